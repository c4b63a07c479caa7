#include "hosts/panel/acquisition_page.h"

#include "hosts/panel/panel_text.h"
#include "hosts/panel/saving.h"
#include "hosts/panel/tool_icons.h"
#include "hosts/plot/run_picture.h"
#include "hosts/session/host_error.h"
#include "hosts/session/number_text.h"
#include "hosts/session/translation.h"

#include <wx/intl.h>
#include <wx/splitter.h>
#include <wx/time.h>

#include <chrono>

namespace orvane {

namespace {

constexpr auto stepBudget = std::chrono::milliseconds(5);
constexpr size_t stepSamples = 256; // between two clock reads
constexpr unsigned ticksPerDraw = 2;
constexpr int checkedAtFirst = 4;
constexpr int formWidth = 364;

/// What outlives the page.
struct Kept {
    std::shared_ptr<ShownRun> Run;
    bool Unsaved = false;
    AcquisitionFields Fields;
};

std::vector<ChannelInfo> Select(const std::vector<ChannelInfo>& channels,
                                const std::vector<int>& indexes) {
    std::vector<ChannelInfo> selected;
    selected.reserve(indexes.size());
    for (const int index : indexes) {
        selected.push_back(channels[static_cast<size_t>(index)]);
    }
    return selected;
}

const std::vector<Samples>& SamplesOf(const ShownRun& run) {
    const AcquisitionRecording& recording = run.Followed.Recording;
    return run.Followed.Now == FollowedRun::Phase::Ended ? KeptSamples(recording) : recording.Live;
}

const std::vector<SeriesOutline>& OutlinesOf(const ShownRun& run) {
    return &SamplesOf(run) == &run.Followed.Recording.Live ? run.Live : run.Fetched;
}

} // namespace

AcquisitionPage::AcquisitionPage(wxWindow* parent, DriverAccess& access)
    : Page(parent, access, _("Acquisition")) {
    auto* split = new wxSplitterWindow(this, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                                       wxSP_LIVE_UPDATE | wxSP_NOBORDER);
    Table = new ChannelTable(split);
    Fields = new AcquisitionForm(split, Table);
    Curves = new ChartView(split, _("Curves"), Source(), FromDIP(wxSize(300, 200)));
    split->SplitVertically(Fields, Curves->Frame(), FromDIP(formWidth));
    split->SetMinimumPaneSize(FromDIP(280));
    auto* whole = new wxBoxSizer(wxVERTICAL);
    whole->Add(split, wxSizerFlags(1).Expand());
    SetSizer(whole);
    Fields->ViewChanged = [this] { Curves->Invalidate(); };
    Fields->TriggerChanged = [this] { Curves->Refresh(false); };
    for (const auto& type : {wxEVT_LIST_ITEM_CHECKED, wxEVT_LIST_ITEM_UNCHECKED}) {
        Table->Bind(type, [this](wxListEvent& event) {
            const auto row = static_cast<size_t>(event.GetIndex());
            if (row < Access.Channels.size()) {
                Access.ChoiceOf(Access.Channels[row]).Checked =
                    Table->IsItemChecked(event.GetIndex());
            }
            Curves->Invalidate();
        });
    }
}

std::vector<PageTool> AcquisitionPage::Tools() {
    const auto canStart = [this] { return !Access.IsMeasuring() && !Access.IsBusy(); };
    return {{.Label = _("Run"),
             .Icon = tool_icon::Run,
             .Keys = "F5",
             .Do = [this] { Start(true); },
             .CanDo = canStart},
            {.Label = _("Single"),
             .Icon = tool_icon::Once,
             .Keys = "F6",
             .Do = [this] { Start(false); },
             .CanDo = canStart},
            {.Label = _("Stop"),
             .Icon = tool_icon::Stop,
             .Keys = "Esc",
             .Do = [this] { StopRun(); },
             .CanDo = [this] { return RunActive; }},
            {.Label = _("Fit"),
             .Icon = tool_icon::Fit,
             .Keys = "",
             .Do = [this] { Curves->ResetZoom(); }},
            {.Label = _("Cursors"),
             .Icon = tool_icon::Cursors,
             .Keys = "",
             .Do = [this] { Curves->ShowCursors(!Curves->HasCursors()); },
             .CanDo = [] { return true; },
             .IsOn = [this] { return Curves->HasCursors(); }}};
}

PageState AcquisitionPage::State() const {
    PageState state;
    if (!Failure.empty()) {
        return {.Now = PageState::Kind::Failed, .Words = {}, .Detail = Failure};
    }
    if (!Run) {
        return state;
    }
    const size_t points = SamplesOf(*Run).front().size();
    state.Detail = FromUtf8(Translated(
        "%s of %s points", {std::to_string(points), std::to_string(Run->Followed.Points)}));
    state.Part = static_cast<double>(points) / static_cast<double>(Run->Followed.Points);
    if (RunActive) {
        const bool starts = points == 0 && IsBusy();
        const bool waits = points == 0 && Fields->Trigger->GetValue();
        state.Now = waits ? PageState::Kind::Waiting : PageState::Kind::Running;
        if (starts) {
            state.Words = _("Console is getting ready");
        }
        if (waits) {
            state.Detail = FromUtf8(Translated(
                "%s s", {std::to_string(((wxGetLocalTimeMillis() - Begun) / 1000).GetValue())}));
        }
        return state;
    }
    const RunEnd end = Run->Followed.Recording.End;
    state.Now = end == RunEnd::Full ? PageState::Kind::Done : PageState::Kind::Stopped;
    if (end == RunEnd::AdaptersChanged) {
        state.Words = _("The adapters of the console changed");
    }
    return state;
}

bool AcquisitionPage::CanSave() const {
    return Run && !RunActive && !SamplesOf(*Run).front().empty();
}

ChartSource AcquisitionPage::Source() {
    return {.Chart = [this](const ChartZoom& zoom, size_t steps) { return MakeChart(zoom, steps); },
            .Whole =
                [this] {
                    return Run ? WholeTime(*Run) : AxisRange{-StripChart::LengthSec, 0.0};
                },
            .At = [this](double& x) { return ValuesAt(x); },
            .Hovered = [this](std::optional<double> x) { ShowPointed(x); },
            .CursorsMoved = {},
            .Level = [this] { return TriggerTag(); },
            .LevelMoved =
                [this](double value) {
                    constexpr int decimals = 3;
                    Fields->SetLevel(value, decimals);
                }};
}

Chart AcquisitionPage::MakeChart(const ChartZoom& zoom, size_t steps) {
    Chart chart;
    if (Run) {
        const AxisRange time = zoom.X.value_or(WholeTime(*Run));
        chart = ChartOf({.Channels = Run->Channels,
                         .Recording = Run->Followed.Recording,
                         .Values = SamplesOf(*Run),
                         .Outlines = OutlinesOf(*Run)},
                        time, steps, Fields->Lanes->GetSelection() == 1);
        chart.XLabel = Translated("Time (%s)", {TimeUnitOf(time).Name});
    } else {
        chart = PictureOf(Strip, Access.Channels, Table->Checked());
        chart.Empty = Translated("Check a channel, then press Run.");
    }
    if (zoom.Value && zoom.Lane < chart.Lanes.size()) {
        chart.Lanes[zoom.Lane].Value = zoom.Value;
    }
    return chart;
}

std::vector<CursorValue> AcquisitionPage::ValuesAt(double& x) const {
    std::vector<CursorValue> values;
    const auto point = Run ? PointAt(*Run, x) : PointAt(Strip, Table->Checked(), x);
    if (!point) {
        return values;
    }
    x = point->TimeSec;
    const std::vector<ChannelInfo> shown =
        Run ? Run->Channels : Select(Access.Channels, Table->Checked());
    const std::vector<size_t> lanes = LanesOf(shown, !Run || Fields->Lanes->GetSelection() == 1);
    for (size_t i = 0; i < std::min(shown.size(), point->Values.size()); ++i) {
        values.push_back({lanes[i], point->Values[i], {static_cast<size_t>(shown[i].Index)}});
    }
    return values;
}

void AcquisitionPage::ShowPointed(std::optional<double> x) {
    Pointed.clear();
    if (!x) {
        return;
    }
    const std::vector<CursorValue> values = ValuesAt(*x);
    Pointed = "t " + FromUtf8(NumberText(*x)) + " s";
    for (const CursorValue& value : values) {
        const ChannelInfo& channel = Access.Channels.at(value.Ink.Curve);
        Pointed += wxString::Format("   %zu: ", value.Ink.Curve + 1) +
                   FromUtf8(ReadingText(channel, value.Value) + " " + channel.Unit);
    }
}

std::optional<LevelTag> AcquisitionPage::TriggerTag() const {
    const int source = Fields->TriggerChannel->GetSelection();
    const auto level = ParseInput(Fields->TriggerLevel->GetValue());
    if (!Fields->Trigger->GetValue() || source < 0 || !level || !Run) {
        return std::nullopt;
    }
    const std::vector<size_t> lanes = LanesOf(Run->Channels, Fields->Lanes->GetSelection() == 1);
    for (size_t i = 0; i < Run->Channels.size(); ++i) {
        if (Run->Channels[i].Index == source) {
            const bool rising = Fields->TriggerEdge->GetSelection() == 0;
            return LevelTag{lanes[i],
                            *level,
                            {static_cast<size_t>(source)},
                            wxString("T") + (rising ? wxUniChar(0x2191) : wxUniChar(0x2193))};
        }
    }
    return std::nullopt;
}

void AcquisitionPage::ChannelsChanged() {
    std::vector<int> checked;
    const bool isNew = std::ranges::none_of(Access.Channels, [this](const ChannelInfo& channel) {
        return Access.Choices.contains(KeyOf(channel));
    });
    for (const ChannelInfo& channel : Access.Channels) {
        if (isNew ? channel.Index < checkedAtFirst : Access.ChoiceOf(channel).Checked) {
            checked.push_back(channel.Index);
            Access.ChoiceOf(channel).Checked = true;
        }
    }
    Table->Fill(Access.Channels, checked);
    Fields->ShowChannels(Access.Channels);
    {
        const DriverTurn turn(Access);
        AcquisitionRequest none;
        none.PreTrigger = true;
        Fields->ShowLimits(PointsInAll(none, turn.Driver));
    }
    if (!Run) {
        Strip = {};
    }
    Curves->Invalidate();
}

/// Old and new scale are never in one curve.
void AcquisitionPage::ChannelSetUp(int channel) {
    Table->UpdateRow(Access.Channels[static_cast<size_t>(channel)]);
    Strip = {};
    Curves->Invalidate();
}

/// Another page may have checked a channel.
void AcquisitionPage::Entered() {
    for (const ChannelInfo& channel : Access.Channels) {
        Table->CheckItem(channel.Index, Access.ChoiceOf(channel).Checked);
    }
}

void AcquisitionPage::Measured() {
    Table->ShowValues(Access.Channels, Access.Values);
    if (!Run) {
        constexpr double msPerSecond = 1e3;
        Append(Strip, wxGetUTCTimeMillis().ToDouble() / msPerSecond, Access.Values);
        Curves->Invalidate();
    }
}

void AcquisitionPage::Tick() {
    if (!RunActive) {
        return;
    }
    FollowRun();
    if (Ticks++ % ticksPerDraw == 0) {
        Curves->Invalidate();
    }
}

void AcquisitionPage::FollowRun() {
    const auto end = std::chrono::steady_clock::now() + stepBudget;
    {
        const DriverTurn turn(Access);
        while (Step(*Run, stepSamples) > 0 && std::chrono::steady_clock::now() < end) {
        }
    }
    if (Run->Followed.Now == FollowedRun::Phase::Ended) {
        RunEnded();
    }
}

void AcquisitionPage::RunEnded() {
    const bool again = Repeats && Run->Followed.Recording.End == RunEnd::Full;
    RunActive = false;
    Unsaved = !SamplesOf(*Run).front().empty();
    Fields->SetRunActive(false);
    Curves->Invalidate();
    StateChanged();
    if (again) {
        Start(true);
    }
}

void AcquisitionPage::Start(bool repeats) {
    // A number that is still being written counts for this run.
    Fields->SetFocusIgnoringChildren();
    Failure.clear();
    try {
        auto request = Fields->Request();
        if (!request) {
            return;
        }
        request->Channels = Table->Checked();
        if (request->Channels.empty()) {
            throw WrongArgument(Translated("Check a channel first."));
        }
        const DriverTurn turn(Access);
        *request = CompleteRequest(*request, turn.Driver, Access.Channels);
        Run.reset(); // Releases its samples before new ones are allocated.
        Run = std::make_shared<ShownRun>(turn.Driver, *request,
                                         Select(Access.Channels, request->Channels));
    } catch (const HostError& error) {
        Failure = FromUtf8(error.what());
        StateChanged();
        return;
    }
    Repeats = repeats;
    RunActive = true;
    Unsaved = false;
    Begun = wxGetLocalTimeMillis();
    Fields->ShowAppliedPeriod(Run->Followed.Recording.PeriodSec);
    Fields->SetRunActive(true);
    Curves->ResetZoom();
    StateChanged();
}

void AcquisitionPage::StopRun() {
    Repeats = false;
    if (RunActive) {
        const DriverTurn turn(Access);
        InterruptRun(Run->Followed);
    }
    FollowRun();
}

void AcquisitionPage::StopMeasuring() {
    Repeats = false;
    while (RunActive) { // A call in the background is waited for.
        StopRun();
    }
}

void AcquisitionPage::SaveSamples() {
    if (SaveSamplesAs(this, *Run)) {
        Unsaved = false;
    }
}

void AcquisitionPage::SavePicture() {
    SaveChartAs(this, MakeChart(Curves->Zoom(), stepsOfFile));
}

std::any AcquisitionPage::GiveUp() {
    return Kept{std::move(Run), Unsaved, Fields->Fields()};
}

void AcquisitionPage::TakeOver(std::any given) {
    auto kept = std::any_cast<Kept>(std::move(given));
    Run = std::move(kept.Run);
    Unsaved = kept.Unsaved;
    Fields->SetFields(kept.Fields);
    Curves->Invalidate();
}

Page* MakeAcquisitionPage(wxWindow* parent, DriverAccess& access) {
    return new AcquisitionPage(parent, access); // NOLINT: its parent owns it
}

} // namespace orvane
