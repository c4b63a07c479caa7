#include "hosts/panel/spirometer_page.h"

#include "hosts/panel/panel_text.h"
#include "hosts/panel/saving.h"
#include "hosts/panel/tool_icons.h"
#include "hosts/session/number_text.h"
#include "hosts/session/translation.h"

#include <wx/confbase.h>
#include <wx/datetime.h>
#include <wx/intl.h>
#include <wx/settings.h>
#include <wx/splitter.h>

#include <algorithm>
#include <array>

namespace orvane {

namespace {

constexpr int formWidth = 364;
constexpr unsigned ticksPerLook = 10;
constexpr const char* lengthKey = "Length";

/// What outlives the page.
struct Kept {
    std::vector<Manoeuvre> Manoeuvres;
    bool Unsaved = false;
    int Length = 0;
};

double Expired(const FlowReading& reading) {
    return reading.VolumeOut - reading.VolumeIn;
}

} // namespace

bool HasTurbine(const std::vector<ChannelInfo>& channels) {
    return std::ranges::any_of(channels, IsTurbine);
}

SpirometerPage::SpirometerPage(wxWindow* parent, DriverAccess& access)
    : Page(parent, access, _("Spirometer")) {
    auto* split = new wxSplitterWindow(this, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                                       wxSP_LIVE_UPDATE | wxSP_NOBORDER);
    Fields = new SpirometerForm(split);
    split->SplitVertically(Fields, MakeResults(split), FromDIP(formWidth));
    split->SetMinimumPaneSize(FromDIP(280));
    auto* whole = new wxBoxSizer(wxVERTICAL);
    whole->Add(split, wxSizerFlags(1).Expand());
    SetSizer(whole);
    const auto on = [](wxButton* button, auto action) {
        button->Bind(wxEVT_BUTTON, [action](wxCommandEvent&) { action(); });
    };
    on(Fields->Start, [this] { Start(); });
    on(Fields->Stop, [this] { Stop(); });
    on(Fields->Zero, [this] {
        ZeroVolume = Readings.empty() ? 0.0 : Expired(Readings.back());
        ShowCharts();
    });
    Fields->Keeps = [this](size_t number, bool kept) {
        Manoeuvres.at(number).Kept = kept;
        Unsaved = true;
        ShowManoeuvres();
    };
    Fields->EnableFor(false, true);
    ShowManoeuvres();
}

wxWindow* SpirometerPage::MakeResults(wxWindow* parent) {
    auto* panel = new wxPanel(parent);
    const auto add = [&](const wxString& name, Chart (SpirometerPage::*make)() const,
                         const wxSize& least) {
        return new ChartView(panel, name,
                             {.Chart =
                                  [this, make](const ChartZoom&, size_t) {
                                      Chart chart = (this->*make)();
                                      UseDecimalPoint(chart, DecimalPoint());
                                      return chart;
                                  }},
                             FromDIP(least));
    };
    LoopView = add(_("Flow over volume"), &SpirometerPage::Loops, wxSize(200, 240));
    VolumeView = add(_("Volume over time"), &SpirometerPage::Volumes, wxSize(200, 140));
    Figures = new BreathTable(panel);
    Verdict = new wxStaticText(panel, wxID_ANY, "");
    auto* warning = new wxStaticText(
        panel, wxID_ANY, _("For teaching. Not a medical device: no diagnosis from these figures."));
    warning->SetForegroundColour(wxSystemSettings::GetColour(wxSYS_COLOUR_GRAYTEXT));
    auto* right = new wxBoxSizer(wxVERTICAL);
    right->Add(VolumeView->Frame(), wxSizerFlags(1).Expand());
    right->Add(Figures, wxSizerFlags().Expand().Border(wxTOP, FromDIP(8)));
    right->Add(Verdict, wxSizerFlags().Expand().Border(wxTOP, FromDIP(8)));
    right->Add(warning, wxSizerFlags().Expand().Border(wxTOP | wxBOTTOM, FromDIP(8)));
    auto* both = new wxBoxSizer(wxHORIZONTAL);
    both->Add(LoopView->Frame(), wxSizerFlags(1).Expand().Border(wxRIGHT, FromDIP(4)));
    both->Add(right, wxSizerFlags(1).Expand());
    panel->SetSizer(both);
    return panel;
}

std::vector<PageTool> SpirometerPage::Tools() {
    return {{.Label = _("Start"),
             .Icon = tool_icon::Run,
             .Keys = "F5",
             .Do = [this] { Start(); },
             .CanDo = [this] { return CanStart(); }},
            {.Label = _("Stop"),
             .Icon = tool_icon::Stop,
             .Keys = "Esc",
             .Do = [this] { Stop(); },
             .CanDo = [this] { return IsMeasuring(); }}};
}

PageState SpirometerPage::State() const {
    if (!Failure.empty()) {
        return {.Now = PageState::Kind::Failed, .Words = {}, .Detail = Failure};
    }
    const auto summary = SummaryOf(Manoeuvres);
    PageState state;
    state.Detail = FromUtf8(
        Translated("%s manoeuvres, %s kept", {std::to_string(Manoeuvres.size()),
                                              std::to_string(summary ? summary->Kept : 0)}));
    if (Recording) {
        const int length = Fields->Length->GetValue();
        const double time = Readings.empty() ? 0.0 : Readings.back().TimeSec;
        state.Now = PageState::Kind::Running;
        state.Part = time / length;
        state.Detail =
            FromUtf8(Translated("%s of %s s", {FixedText(time, 0), std::to_string(length)})) +
            ", " + state.Detail;
    } else if (Manoeuvres.empty()) {
        state.Now = Stopped ? PageState::Kind::Stopped : PageState::Kind::Ready;
        state.Detail = Stopped ? _("no forced breath") : wxString();
    } else {
        state.Now = PageState::Kind::Done;
    }
    return state;
}

wxString SpirometerPage::Readout() const {
    const std::vector<BreathPoint> trace = Trace();
    if (trace.empty()) {
        return "";
    }
    return LocalNumbers("V " + FixedText(trace.back().Volume, 2) + " " + Units.Volume + "   " +
                        Translated("flow") + " " + FixedText(trace.back().Flow, 2) + " " +
                        Units.Flow);
}

const ChannelInfo* SpirometerPage::Turbine() const {
    const auto found = std::ranges::find_if(Access.Channels, IsTurbine);
    return found == Access.Channels.end() ? nullptr : &*found;
}

void SpirometerPage::ChannelsChanged() {
    Fields->ShowTurbine(Turbine());
    if (Turbine() != nullptr) {
        Units = {Turbine()->Unit, VolumeUnit(Turbine()->Unit)};
    }
    ShowManoeuvres();
}

bool SpirometerPage::CanStart() const {
    return Turbine() != nullptr && !Access.IsMeasuring() && !Access.IsBusy();
}

void SpirometerPage::Start() {
    if (!CanStart()) {
        return;
    }
    Failure.clear();
    Stopped = false;
    Readings.clear();
    ZeroVolume.reset();
    FirstOfRecording = Manoeuvres.size();
    {
        const DriverTurn turn(Access);
        Recording =
            std::make_unique<FlowRecording>(turn.Driver, turn.Section, Fields->Length->GetValue());
    }
    ShowCharts();
    StateChanged();
}

void SpirometerPage::Stop() {
    if (Recording) {
        RecordingEnded();
    }
}

void SpirometerPage::Tick() {
    if (!Recording) {
        return;
    }
    const bool ended = Recording->HasEnded(); // Before its last readings are taken.
    if (ended) {
        RecordingEnded();
    } else if (Ticks++ % ticksPerLook == 0) {
        TakeReadings();
        ShowManoeuvres();
    }
}

void SpirometerPage::TakeReadings() {
    const bool first = Readings.empty();
    if (Recording->TakeReadings(Readings) && first) {
        Access.GiveChoices(); // The driver's thread has enumerated the channels.
    }
    const size_t before = Manoeuvres.size();
    TakeForcedBreaths(Manoeuvres, FirstOfRecording, Readings,
                      wxDateTime::Now().FormatISOTime().utf8_string());
    Unsaved = Unsaved || Manoeuvres.size() > before;
}

void SpirometerPage::RecordingEnded() {
    Failure = Recording->HasEnded() ? FromUtf8(Recording->Failure()) : wxString();
    TakeReadings();
    Recording.reset();
    Stopped = true;
    ShowManoeuvres();
    StateChanged();
}

void SpirometerPage::Measured() {
    const ChannelInfo* turbine = Turbine();
    std::optional<double> flow;
    if (turbine != nullptr && static_cast<size_t>(turbine->Index) < Access.Values.size()) {
        flow = Access.Values[static_cast<size_t>(turbine->Index)];
    }
    Fields->ShowFlow(flow, Units.Flow);
    Fields->EnableFor(IsMeasuring(), CanStart());
}

void SpirometerPage::StopMeasuring() {
    Stop();
}

std::vector<BreathPoint> SpirometerPage::Trace() const {
    std::vector<BreathPoint> trace;
    if (!Recording || Readings.empty()) {
        return trace;
    }
    const double zero =
        ZeroVolume.value_or(Expired(*std::ranges::min_element(Readings, {}, Expired)));
    for (const FlowReading& reading : Readings) {
        trace.push_back({reading.TimeSec, reading.Flow, Expired(reading) - zero});
    }
    return trace;
}

Chart SpirometerPage::Loops() const {
    return LoopChart(Manoeuvres, Trace(), Units);
}

Chart SpirometerPage::Volumes() const {
    return Recording ? VolumeChart(Trace(), Units) : ExpirationChart(Manoeuvres, Units);
}

void SpirometerPage::ShowManoeuvres() {
    Fields->ShowManoeuvres(Manoeuvres);
    Figures->Show(Manoeuvres, Units);
    if (const wxString text = Judgement(Manoeuvres); text != Verdict->GetLabel()) {
        Verdict->SetLabel(text);
        Verdict->GetParent()->Layout();
    }
    ShowCharts();
}

void SpirometerPage::ShowCharts() {
    LoopView->Invalidate();
    VolumeView->Invalidate();
}

void SpirometerPage::SaveSamples() {
    std::array<std::vector<double>, 4> values;
    for (size_t i = 0; i < Manoeuvres.size(); ++i) {
        for (const BreathPoint& point : Manoeuvres[i].Loop) {
            values[0].push_back(static_cast<double>(i + 1));
            values[1].push_back(point.TimeSec);
            values[2].push_back(point.Flow);
            values[3].push_back(point.Volume);
        }
    }
    if (SaveColumnsAs(this, "spirometer.csv",
                      {{_("manoeuvre").utf8_string(), values[0]},
                       {_("time after the back-extrapolated start (s)").utf8_string(), values[1]},
                       {_("flow").utf8_string() + " (" + Units.Flow + ")", values[2]},
                       {_("volume").utf8_string() + " (" + Units.Volume + ")", values[3]}})) {
        Unsaved = false;
        StateChanged();
    }
}

void SpirometerPage::SavePicture() {
    constexpr int width = 600;
    constexpr int height = 640;
    SaveChartsAs(this, "spirometer.png", {Loops(), Volumes()}, wxSize(width, height));
}

std::any SpirometerPage::GiveUp() {
    return Kept{std::move(Manoeuvres), Unsaved, Fields->Length->GetValue()};
}

void SpirometerPage::TakeOver(std::any given) {
    auto kept = std::any_cast<Kept>(std::move(given));
    Manoeuvres = std::move(kept.Manoeuvres);
    Unsaved = kept.Unsaved;
    Fields->Length->SetValue(kept.Length);
    ShowManoeuvres();
}

void SpirometerPage::Keep(wxConfigBase& config) const {
    config.Write(lengthKey, Fields->Length->GetValue());
}

void SpirometerPage::Restore(const wxConfigBase& config) {
    Fields->Length->SetValue(
        static_cast<int>(config.ReadLong(lengthKey, Fields->Length->GetValue())));
}

Page* MakeSpirometerPage(wxWindow* parent, DriverAccess& access) {
    return new SpirometerPage(parent, access);
}

} // namespace orvane
