#include "hosts/panel/gates_page.h"

#include "console/laboratory/scenario/gate_row.h"
#include "console/laboratory/scenario/scenario_reader.h"
#include "hosts/panel/panel_text.h"
#include "hosts/panel/saving.h"
#include "hosts/panel/swatch.h"
#include "hosts/panel/tool_icons.h"
#include "hosts/plot/gate_charts.h"
#include "hosts/session/host_error.h"
#include "hosts/session/number_text.h"
#include "hosts/session/translation.h"

#include <wx/confbase.h>
#include <wx/datetime.h>
#include <wx/intl.h>
#include <wx/splitter.h>
#include <wx/time.h>

namespace orvane {

namespace {

constexpr int formWidth = 364;

/// What outlives the page.
struct Kept {
    std::vector<TimedFall> Runs;
    size_t Shown = 0;
    bool Unsaved = false;
    std::vector<wxString> Positions;
    int Forks = 1;
};

/// The gates of a console; where they are is known of the laboratory's.
std::vector<GatePlace> PlacesOf(const DriverOptions& options, size_t forks) {
    std::vector<GatePlace> places(2 * forks + 1);
    if (options.Scenario.empty()) {
        return places;
    }
    try {
        const auto row = laboratory::GateRow(laboratory::LoadScenario(options.Scenario).Value);
        for (size_t gate = 0; gate < std::min(places.size(), row.size()); ++gate) {
            places[gate] = {wxString::Format("%d.%d", row[gate].Connector, row[gate].Channel),
                            row[gate].Position};
        }
    } catch (const std::exception&) { // The file may have changed since; then they are not known.
    }
    return places;
}

} // namespace

bool HasGates(const DriverExports& driver) {
    return driver.GetNombreDeFourcheMaxPortimetre() > 0;
}

GatesPage::GatesPage(wxWindow* parent, DriverAccess& access) : Page(parent, access, _("Gates")) {
    {
        const DriverTurn turn(Access);
        const auto forks = static_cast<size_t>(turn->GetNombreDeFourcheMaxPortimetre());
        Places = PlacesOf(Access.Options, std::max<size_t>(forks, 1));
    }
    auto* split = new wxSplitterWindow(this, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                                       wxSP_LIVE_UPDATE | wxSP_NOBORDER);
    Fields = new GateForm(split, Places);
    auto* right = new wxPanel(split);
    auto* results = new wxBoxSizer(wxVERTICAL);
    const wxSizerFlags wide = wxSizerFlags().Expand();
    results->Add(AddChart(right, _("Passages"), &GatesPage::Passages, 170)->Frame(),
                 wxSizerFlags(wide).Proportion(5));
    Forks = new wxListView(right, wxID_ANY, wxDefaultPosition, FromDIP(wxSize(-1, 108)),
                           wxLC_REPORT | wxLC_SINGLE_SEL);
    Forks->SetName(_("Forks"));
    results->Add(Forks, wxSizerFlags(wide).Border(wxALL, FromDIP(4)));
    auto* motion = new wxBoxSizer(wxHORIZONTAL);
    motion->Add(AddChart(right, _("Speed"), &GatesPage::Speeds, 200)->Frame(),
                wxSizerFlags(1).Expand().Border(wxRIGHT, FromDIP(4)));
    motion->Add(AddChart(right, _("Position"), &GatesPage::Positions, 200)->Frame(),
                wxSizerFlags(1).Expand());
    results->Add(motion, wxSizerFlags(wide).Proportion(6));
    right->SetSizer(results);
    split->SplitVertically(Fields, right, FromDIP(formWidth));
    split->SetMinimumPaneSize(FromDIP(280));
    auto* whole = new wxBoxSizer(wxVERTICAL);
    whole->Add(split, wxSizerFlags(1).Expand());
    SetSizer(whole);
    const auto on = [](wxButton* button, auto action) {
        button->Bind(wxEVT_BUTTON, [action](wxCommandEvent&) { action(); });
    };
    on(Fields->Arm, [this] { Arm(); });
    on(Fields->Stop, [this] { Stop(); });
    on(Fields->Correct, [this] { CorrectShown(); });
    Fields->Forks->Bind(wxEVT_SPINCTRL, [this](wxSpinEvent&) { PositionsChanged(); });
    Fields->Rows->Changed = [this] { PositionsChanged(); };
    Fields->Runs->Bind(wxEVT_LIST_ITEM_SELECTED, [this](wxListEvent& event) {
        Shown = static_cast<size_t>(event.GetIndex());
        ShowRun();
    });
    PositionsChanged();
    ShowRun();
}

ChartView* GatesPage::AddChart(wxWindow* parent, const wxString& name,
                               Chart (GatesPage::*make)() const, int height) {
    Charts.push_back(new ChartView(parent, name,
                                   {.Chart =
                                        [this, make](const ChartZoom&, size_t) {
                                            Chart chart;
                                            if (ShownFall() == nullptr) {
                                                chart.Empty =
                                                    make == &GatesPage::Passages
                                                        ? Translated("Arm, then drop the card.")
                                                        : std::string();
                                                return chart;
                                            }
                                            chart = (this->*make)();
                                            UseDecimalPoint(chart, DecimalPoint());
                                            return chart;
                                        }},
                                   FromDIP(wxSize(160, height))));
    return Charts.back();
}

std::vector<PageTool> GatesPage::Tools() {
    return {{.Label = _("Arm"),
             .Icon = tool_icon::Run,
             .Keys = "F5",
             .Do = [this] { Arm(); },
             .CanDo = [this] { return CanArm(); }},
            {.Label = _("Stop"),
             .Icon = tool_icon::Stop,
             .Keys = "Esc",
             .Do = [this] { Stop(); },
             .CanDo = [this] { return IsMeasuring(); }}};
}

PageState GatesPage::State() const {
    if (!Failure.empty()) {
        return {.Now = PageState::Kind::Failed, .Words = {}, .Detail = Failure};
    }
    if (Armed) {
        const auto since = ((wxGetLocalTimeMillis() - Begun) / 1000).GetValue();
        return {.Now = PageState::Kind::Waiting,
                .Words = _("Armed, waiting for the card"),
                .Detail = FromUtf8(Translated("%s s", {std::to_string(since)}))};
    }
    if (Stopped) {
        return {.Now = PageState::Kind::Stopped, .Words = {}, .Detail = {}};
    }
    if (Runs.empty()) {
        return {};
    }
    const std::string passages = std::to_string(Runs[Shown].RaysSec.size() + 1);
    return {.Now = PageState::Kind::Done,
            .Words = {},
            .Detail = FromUtf8(Translated("%s of %s passages", {passages, passages}))};
}

const GateFall* GatesPage::ShownFall() const {
    return Shown < Runs.size() ? &Runs[Shown].Fall : nullptr;
}

Chart GatesPage::Passages() const {
    std::vector<std::string> rows;
    for (size_t row = 0; row <= ShownFall()->TimesSec.size(); ++row) {
        rows.push_back(GateName(row).utf8_string());
    }
    return PassageChart(*ShownFall(), rows);
}

Chart GatesPage::Speeds() const {
    return ShownFall()->Line ? SpeedChart(*ShownFall()) : Chart{};
}

Chart GatesPage::Positions() const {
    return ShownFall()->Line ? PositionChart(*ShownFall()) : Chart{};
}

bool GatesPage::CanArm() const {
    return !Access.IsMeasuring() && !Access.IsBusy();
}

void GatesPage::Arm() {
    if (!CanArm()) {
        return;
    }
    Failure.clear();
    Stopped = false;
    try {
        const DriverTurn turn(Access);
        Armed = std::make_unique<GateRun>(turn.Driver, Fields->Forks->GetValue());
        Begun = wxGetLocalTimeMillis();
    } catch (const HostError& error) {
        Failure = FromUtf8(error.what());
    }
    EnableButtons();
    StateChanged();
}

void GatesPage::Stop() {
    if (Armed) {
        const DriverTurn turn(Access);
        Armed.reset();
        Stopped = true;
    }
    EnableButtons();
    StateChanged();
}

void GatesPage::Tick() {
    if (!Armed || Access.IsBusy()) {
        return;
    }
    std::vector<double> rays;
    try {
        const DriverTurn turn(Access);
        if (!HasEnded(*Armed)) {
            return;
        }
        rays = RayTimes(*Armed);
        Armed.reset();
    } catch (const HostError& error) {
        Failure = FromUtf8(error.what());
        Armed.reset();
    }
    if (Failure.empty()) {
        TakeRun(rays);
    }
    EnableButtons();
    StateChanged();
}

void GatesPage::TakeRun(const std::vector<double>& raysSec) {
    TimedFall run{.At = wxDateTime::Now().FormatISOTime().utf8_string(),
                  .RaysSec = raysSec,
                  .Positions = Fields->Rows->PositionsOfGates(raysSec.size()),
                  .Fall = {}};
    try {
        run.Fall = FallOf(run.RaysSec, run.Positions);
    } catch (const HostError& error) {
        Failure = FromUtf8(error.what());
        return;
    }
    Runs.push_back(std::move(run));
    Shown = Runs.size() - 1;
    Unsaved = true;
    Fields->ShowRuns(Runs, Shown);
    ShowRun();
}

/// Runs without positions get the new ones; the others keep theirs, since forks are moved between
/// two runs.
void GatesPage::PositionsChanged() {
    Fields->Rows->UseGates(Fields->GateCount());
    const std::vector<double> positions = Fields->Rows->PositionsOfGates(Fields->GateCount());
    for (TimedFall& run : Runs) {
        if (run.Positions.empty() && run.RaysSec.size() == positions.size()) {
            run.Positions = positions;
            run.Fall = FallOf(run.RaysSec, run.Positions);
        }
    }
    Fields->ShowRuns(Runs, Shown);
    ShowRun();
}

void GatesPage::CorrectShown() {
    TimedFall& run = Runs.at(Shown);
    run.Positions = Fields->Rows->PositionsOfGates(run.RaysSec.size());
    run.Fall = FallOf(run.RaysSec, run.Positions);
    Unsaved = true;
    Fields->ShowRuns(Runs, Shown);
    ShowRun();
}

void GatesPage::Measured() {
    if (IsShownOnScreen()) {
        const DriverTurn turn(Access);
        Fields->Rows->ShowStates(ReadGates(turn.Driver, static_cast<int32_t>(Places.size() / 2)));
    }
    EnableButtons();
}

void GatesPage::StopMeasuring() {
    Stop();
}

void GatesPage::ShowRun() {
    const bool differs = Shown < Runs.size() && [this] {
        const auto now = Fields->Rows->PositionsOfGates(Runs[Shown].RaysSec.size());
        return !now.empty() && now != Runs[Shown].Positions;
    }();
    Fields->Correct->Show(differs);
    Fields->ShowResult(Runs, Shown);
    ShowForks();
    for (ChartView* chart : Charts) {
        chart->Invalidate();
    }
    StateChanged();
}

void GatesPage::EnableButtons() {
    Fields->EnableFor(IsMeasuring(), CanArm());
}

std::any GatesPage::GiveUp() {
    return Kept{std::move(Runs), Shown, Unsaved, Fields->Rows->Texts(), Fields->Forks->GetValue()};
}

void GatesPage::TakeOver(std::any given) {
    auto kept = std::any_cast<Kept>(std::move(given));
    Runs = std::move(kept.Runs);
    Shown = kept.Shown;
    Unsaved = kept.Unsaved;
    Fields->Forks->SetValue(kept.Forks);
    Fields->Rows->SetTexts(kept.Positions);
}

Page* MakeGatesPage(wxWindow* parent, DriverAccess& access) {
    return new GatesPage(parent, access);
}

} // namespace orvane
