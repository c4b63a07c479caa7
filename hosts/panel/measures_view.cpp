#include "hosts/panel/measures_view.h"

#include "hosts/panel/channel_table.h"
#include "hosts/panel/panel_text.h"
#include "hosts/session/number_text.h"
#include "hosts/session/series_measures.h"
#include "hosts/session/unit_prefix.h"

#include <wx/intl.h>
#include <wx/sizer.h>

#include <algorithm>
#include <cmath>

namespace orvane {

namespace {

enum Column { Name, Unit, AtA, AtB, Difference, Min, Max, Mean, Rms, Frequency, Columns };

wxString TimeText(double timeSec, const ShownStretch& shown) {
    const TimeUnit unit = TimeUnitOf(shown.TimeSec);
    const double period = RecordingOf(*shown.Run).PeriodSec / unit.Seconds;
    const int decimals = std::clamp(static_cast<int>(std::ceil(-std::log10(period))) + 1, 0, 6);
    return LocalNumbers(WithTrueMinus(FixedText(timeSec / unit.Seconds, decimals))) + " " +
           FromUtf8(unit.Name);
}

SeriesMeasures MeasuresOf(const ShownStretch& shown, size_t channel) {
    const RunCurves curves = CurvesOf(*shown.Run);
    const Samples& samples = curves.Values[channel];
    return MeasuresOf(samples, curves.Outlines[channel],
                      StretchIn(curves.Recording, samples.size(), shown.TimeSec),
                      curves.Recording.PeriodSec);
}

} // namespace

MeasuresView::MeasuresView(wxWindow* parent)
    : wxPanel(parent), Line(new wxStaticText(this, wxID_ANY, "", wxDefaultPosition, wxDefaultSize,
                                             wxST_NO_AUTORESIZE)),
      Table(new wxListView(this, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                           wxLC_REPORT | wxLC_SINGLE_SEL)) {
    Line->SetName(_("Cursors"));
    Table->SetName(_("Measures"));
    Table->AppendColumn(_("Shown stretch"), wxLIST_FORMAT_LEFT, FromDIP(190));
    const wxString titles[] = {_("Unit"), _("at A"), _("at B"), wxString::FromUTF8("B − A"),
                               _("Min"),  _("Max"),  _("Mean"), _("RMS")};
    for (const wxString& title : titles) {
        Table->AppendColumn(title, wxLIST_FORMAT_RIGHT, FromDIP(76));
    }
    Table->SetColumnWidth(Unit, FromDIP(46));
    Table->AppendColumn(_("Frequency"), wxLIST_FORMAT_RIGHT, FromDIP(100));
    auto* whole = new wxBoxSizer(wxVERTICAL);
    whole->Add(Line, wxSizerFlags().Expand().Border(wxALL, FromDIP(8)));
    whole->Add(Table, wxSizerFlags(1).Expand());
    SetSizer(whole);
}

void MeasuresView::Fold(bool folded) {
    if (folded != Folded) {
        Folded = folded;
        Table->Show(!folded);
        Layout();
    }
}

void MeasuresView::SetText(long row, int column, const wxString& text) {
    if (Table->GetItemText(row, column) != text) {
        Table->SetItem(row, column, text);
    }
}

void MeasuresView::ShowStretch(const ShownStretch& shown) {
    ShowLine(shown);
    if (!Folded) {
        FillRows(shown);
        for (long row = 0; row < Table->GetItemCount(); ++row) {
            ShowRow(row, shown);
        }
    }
}

void MeasuresView::ShowLine(const ShownStretch& shown) {
    wxString line;
    if (shown.Run && shown.Cursors) {
        const auto [a, b] = *shown.Cursors;
        line = "<b>A</b> " + TimeText(a, shown) + "    <b>B</b> " + TimeText(b, shown) +
               wxString::FromUTF8("    <b>Δt</b> ") + TimeText(b - a, shown);
        if (a != b) {
            line += wxString::FromUTF8("    <b>1/Δt</b> ") +
                    LocalNumbers(ToldFrequency(1.0 / std::abs(b - a)));
        }
    }
    if (shown.Run && Folded && PointsOf(*shown.Run) > 0) {
        const auto& channels = shown.Run->Channels;
        const auto selected =
            std::ranges::find(channels, static_cast<int>(shown.Selected), &ChannelInfo::Index);
        const auto i =
            static_cast<size_t>(selected == channels.end() ? 0 : selected - channels.begin());
        const ChannelInfo& channel = channels[i];
        line += wxString::Format("    <b>%d</b> ", channel.Index + 1) + _("mean") + " " +
                LocalNumbers(ToldValue(channel, MeasuresOf(shown, i).Mean)) + " " +
                FromUtf8(ToldUnitOf(channel).Name);
    }
    if (Line->GetLabel() != line) {
        Line->SetLabelMarkup(line);
    }
}

void MeasuresView::FillRows(const ShownStretch& shown) {
    const std::vector<ChannelInfo> channels =
        shown.Run ? shown.Run->Channels : std::vector<ChannelInfo>{};
    if (channels == Rows) {
        return;
    }
    Rows = channels;
    Table->DeleteAllItems();
    size_t numbers = 0;
    for (const ChannelInfo& channel : channels) {
        numbers = std::max(numbers, static_cast<size_t>(channel.Index) + 1);
    }
    Table->AssignImageList(MakeSwatches(*this, numbers), wxIMAGE_LIST_SMALL);
    for (const ChannelInfo& channel : channels) {
        const long row = Table->InsertItem(Table->GetItemCount(), FromUtf8(NumberedName(channel)),
                                           channel.Index);
        SetText(row, Unit, FromUtf8(ToldUnitOf(channel).Name));
    }
}

void MeasuresView::ShowRow(long row, const ShownStretch& shown) {
    const auto i = static_cast<size_t>(row);
    const ChannelInfo& channel = shown.Run->Channels[i];
    const auto show = [&](Column column, std::optional<double> value) {
        SetText(row, column, value ? LocalNumbers(ToldValue(channel, *value)) : wxString());
    };
    const bool hasPoints = PointsOf(*shown.Run) > 0;
    std::optional<double> a;
    std::optional<double> b;
    if (shown.Cursors && hasPoints) {
        a = PointAt(*shown.Run, shown.Cursors->at(0))->Values[i];
        b = PointAt(*shown.Run, shown.Cursors->at(1))->Values[i];
    }
    show(AtA, a);
    show(AtB, b);
    show(Difference, a ? std::optional(*b - *a) : std::nullopt);
    std::optional<SeriesMeasures> measures;
    if (hasPoints) {
        measures = MeasuresOf(shown, i);
    }
    const auto showMeasure = [&](Column column, double SeriesMeasures::*member) {
        show(column, measures ? std::optional(*measures.*member) : std::nullopt);
    };
    showMeasure(Min, &SeriesMeasures::Min);
    showMeasure(Max, &SeriesMeasures::Max);
    showMeasure(Mean, &SeriesMeasures::Mean);
    showMeasure(Rms, &SeriesMeasures::Rms);
    SetText(row, Frequency,
            measures && measures->FrequencyHz ? LocalNumbers(ToldFrequency(*measures->FrequencyHz))
                                              : wxString());
}

} // namespace orvane
