#include "hosts/panel/signal_views.h"

#include "hosts/panel/channel_table.h"
#include "hosts/panel/panel_text.h"
#include "hosts/plot/signal_pictures.h"
#include "hosts/session/translation.h"
#include "hosts/session/unit_prefix.h"

#include <wx/intl.h>
#include <wx/sizer.h>

namespace orvane {

namespace {

constexpr int smallestWidth = 200;
constexpr int smallestHeight = 100;

/// A row of controls, each behind its label.
struct ControlRow {
    explicit ControlRow(wxWindow* parent) : Parent(parent) {}

    wxChoice* Add(const wxString& label, const wxArrayString& choices) {
        auto* text = new wxStaticText(Parent, wxID_ANY, label);
        auto* choice = new wxChoice(Parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, choices);
        choice->SetName(wxControl::RemoveMnemonics(label));
        Sizer->Add(text, wxSizerFlags().CentreVertical().Border(wxALL, Parent->FromDIP(4)));
        Sizer->Add(choice, wxSizerFlags().CentreVertical());
        return choice;
    }

    wxWindow* Parent;
    wxBoxSizer* Sizer = new wxBoxSizer(wxHORIZONTAL);
};

void LayOut(wxWindow* parent, wxSizer* row, ChartView* view) {
    auto* whole = new wxBoxSizer(wxVERTICAL);
    whole->Add(row, wxSizerFlags().Expand().Border(wxALL, parent->FromDIP(4)));
    whole->Add(view->Frame(), wxSizerFlags(1).Expand());
    parent->SetSizer(whole);
}

std::span<const double> SamplesIn(const ShownStretch& shown, size_t channel) {
    const RunCurves curves = CurvesOf(*shown.Run);
    const std::span<const double> samples = curves.Values[channel];
    const SampleStretch stretch = StretchIn(curves.Recording, samples.size(), shown.TimeSec);
    return stretch.First < stretch.End ? samples.subspan(stretch.First, stretch.End - stretch.First)
                                       : std::span<const double>{};
}

bool IsSame(const ShownStretch& one, const ShownStretch& other) {
    return one.Run == other.Run && one.TimeSec.From == other.TimeSec.From &&
           one.TimeSec.To == other.TimeSec.To;
}

} // namespace

SpectrumView::SpectrumView(wxWindow* parent) : wxPanel(parent) {
    ControlRow row(this);
    wxArrayString windows; // In the order of SpectrumWindow.
    for (const wxString& name : {wxString("Hann"), wxString("Hamming"), wxString("Blackman"),
                                 _("flat top"), _("rectangular")}) {
        windows.Add(name);
    }
    Window = row.Add(_("&Window"), windows);
    wxArrayString scales;
    scales.Add(_("amplitude"));
    scales.Add("dB");
    Scale = row.Add(_("S&cale"), scales);
    Peaks = new wxStaticText(this, wxID_ANY, "");
    Peaks->SetName(_("Peaks"));
    row.Sizer->Add(Peaks, wxSizerFlags(1).CentreVertical().Border(wxLEFT, FromDIP(12)));
    ChartSource source;
    source.Chart = [this](const ChartZoom& zoom, size_t steps) {
        Chart chart = SpectrumChart(Shown.Run ? Shown.Run->Channels : std::vector<ChannelInfo>{},
                                    Spectra, zoom.X, steps, Scale->GetSelection() == 1);
        chart.Empty = Translated("Check a channel, then press Run.");
        if (zoom.Value && zoom.Lane < chart.Lanes.size()) {
            chart.Lanes[zoom.Lane].Value = zoom.Value;
        }
        return chart;
    };
    source.Whole = [this] { return SpectrumChart({}, Spectra, std::nullopt, 1, false).X; };
    View = new ChartView(this, _("Spectrum"), std::move(source),
                         FromDIP(wxSize(smallestWidth, smallestHeight)));
    LayOut(this, row.Sizer, View);
    for (wxChoice* choice : {Window, Scale}) {
        choice->SetSelection(0);
        choice->Bind(wxEVT_CHOICE, [this](wxCommandEvent&) { Compute(); });
    }
}

void SpectrumView::ShowStretch(const ShownStretch& shown) {
    const size_t points = shown.Run ? PointsOf(*shown.Run) : 0;
    if (IsSame(shown, Shown) && points == Points) {
        return;
    }
    Shown = shown;
    Points = points;
    Compute();
}

void SpectrumView::Compute() {
    Spectra.clear();
    wxString peaks;
    for (size_t i = 0; Shown.Run && i < Shown.Run->Channels.size(); ++i) {
        Spectra.push_back(SpectrumOf(SamplesIn(Shown, i), RecordingOf(*Shown.Run).PeriodSec,
                                     static_cast<SpectrumWindow>(Window->GetSelection())));
        const std::string peak = ToldFrequency(PeakFrequencyHz(Spectra.back()));
        if (!peak.empty()) {
            peaks += wxString::Format("%d: ", Shown.Run->Channels[i].Index + 1) +
                     LocalNumbers(peak) + "   ";
        }
    }
    Peaks->SetLabelText(peaks);
    View->Invalidate();
}

XyView::XyView(wxWindow* parent) : wxPanel(parent) {
    ControlRow row(this);
    Horizontal = row.Add("&X", {});
    Vertical = row.Add("&Y", {});
    ChartSource source;
    source.Chart = [this](const ChartZoom& zoom, size_t) { return MakeChart(zoom); };
    source.Whole = [this] {
        const int x = Horizontal->GetSelection();
        return x < 0 ? AxisRange{}
                     : RangeAround(SamplesOf(*Horizontal), Channels.at(static_cast<size_t>(x)));
    };
    View = new ChartView(this, "X-Y", std::move(source),
                         FromDIP(wxSize(smallestWidth, smallestHeight)));
    LayOut(this, row.Sizer, View);
    for (wxChoice* choice : {Horizontal, Vertical}) {
        choice->Bind(wxEVT_CHOICE, [this](wxCommandEvent&) { View->ResetZoom(); });
    }
}

std::span<const double> XyView::SamplesOf(const wxChoice& choice) const {
    const int selection = choice.GetSelection();
    return selection < 0 ? std::span<const double>{}
                         : SamplesIn(Shown, static_cast<size_t>(selection));
}

Chart XyView::MakeChart(const ChartZoom& zoom) const {
    Chart chart;
    const int x = Horizontal->GetSelection();
    const int y = Vertical->GetSelection();
    if (x >= 0 && y >= 0) {
        chart = XyChart(Channels.at(static_cast<size_t>(x)), SamplesOf(*Horizontal),
                        Channels.at(static_cast<size_t>(y)), SamplesOf(*Vertical));
        chart.X = zoom.X.value_or(chart.X);
        chart.Lanes[0].Value = zoom.Value;
    }
    chart.Empty = Translated("Check a channel, then press Run.");
    return chart;
}

void XyView::ShowStretch(const ShownStretch& shown) {
    Shown = shown;
    const std::vector<ChannelInfo> channels =
        shown.Run ? shown.Run->Channels : std::vector<ChannelInfo>{};
    if (channels != Channels) {
        Channels = channels;
        for (wxChoice* choice : {Horizontal, Vertical}) {
            choice->Clear();
            for (const ChannelInfo& channel : Channels) {
                choice->Append(FromUtf8(NumberedName(channel)));
            }
        }
        Horizontal->SetSelection(Channels.empty() ? wxNOT_FOUND : 0);
        Vertical->SetSelection(Channels.empty() ? wxNOT_FOUND : Channels.size() > 1 ? 1 : 0);
        Layout();
    }
    View->Invalidate();
}

LowerView::LowerView(wxWindow* parent)
    : wxPanel(parent), Measures(new MeasuresView(this)), Spectra(new SpectrumView(this)),
      Xy(new XyView(this)) {
    auto* whole = new wxBoxSizer(wxVERTICAL);
    for (wxWindow* view : std::initializer_list<wxWindow*>{Measures, Spectra, Xy}) {
        whole->Add(view, wxSizerFlags(1).Expand());
    }
    SetSizer(whole);
    ShowKind(Kind::Measures);
}

void LowerView::ShowKind(Kind kind) {
    Current = kind;
    Measures->Show(kind == Kind::Measures);
    Spectra->Show(kind == Kind::Spectrum);
    Xy->Show(kind == Kind::Xy);
    Layout();
}

void LowerView::ShowStretch(const ShownStretch& shown) {
    switch (Current) {
    case Kind::Measures:
        Measures->ShowStretch(shown);
        break;
    case Kind::Spectrum:
        Spectra->ShowStretch(shown);
        break;
    case Kind::Xy:
        Xy->ShowStretch(shown);
        break;
    }
}

} // namespace orvane
