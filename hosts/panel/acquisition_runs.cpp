// The runs of the page of acquisitions: started, followed, shown, stopped.

#include "hosts/panel/acquisition_page.h"
#include "hosts/panel/panel_text.h"
#include "hosts/session/host_error.h"
#include "hosts/session/translation.h"

#include <wx/datetime.h>
#include <wx/intl.h>

namespace orvane {

namespace {

using std::chrono::milliseconds;

constexpr milliseconds stepBudget(5);
constexpr size_t stepSamples = 256; // between two clock reads
constexpr milliseconds drawDistance(100);
constexpr milliseconds measureDistance(200);
constexpr double shortestRolledSec = 0.5; // a shorter run is shown as a whole frame

} // namespace

PageState AcquisitionPage::State() const {
    PageState state;
    if (!Failure.empty()) {
        return {.Now = PageState::Kind::Failed, .Words = {}, .Detail = Failure};
    }
    const ShownRun* run = Current ? Current.get() : Run.get();
    if (run == nullptr) {
        return state;
    }
    const size_t points = PointsOf(*run);
    state.Detail = FromUtf8(
        Translated("%s of %s points", {std::to_string(points), std::to_string(run->Points)}));
    state.Part = static_cast<double>(points) / static_cast<double>(run->Points);
    if (Current) {
        const bool waits = points == 0 && run->Trigger.has_value();
        state.Now = waits ? PageState::Kind::Waiting : PageState::Kind::Running;
        if (waits) {
            const auto since =
                std::chrono::duration_cast<std::chrono::seconds>(Clock::now() - Begun);
            state.Detail = FromUtf8(Translated("%s s", {std::to_string(since.count())}));
        } else if (points == 0 && IsBusy()) {
            state.Words = _("Console is getting ready");
        }
        return state;
    }
    const RunEnd end = RecordingOf(*run).End;
    state.Now = end == RunEnd::Full ? PageState::Kind::Done : PageState::Kind::Stopped;
    if (end == RunEnd::AdaptersChanged) {
        state.Words = _("The adapters of the console changed");
    }
    return state;
}

void AcquisitionPage::Tick() {
    if (Current) {
        FollowRun();
    }
    const auto now = Clock::now();
    const size_t points = Run ? PointsOf(*Run) : 0;
    const bool isFirst = DrawnPoints == 0 && points > 0;
    if (points != DrawnPoints && (isFirst || now - Drawn >= drawDistance)) {
        DrawnPoints = points;
        Drawn = now;
        LowerStale = true;
        Curves->Invalidate();
    }
    if (LowerStale && now - LowerShown >= measureDistance && IsShownOnScreen()) {
        ShowLower();
    }
}

void AcquisitionPage::FollowRun() {
    const auto end = Clock::now() + stepBudget;
    {
        const DriverTurn turn(Access);
        while (Step(*Current, stepSamples) > 0 && Clock::now() < end) {
        }
    }
    if (!Current->Followed) {
        RunEnded();
    }
}

void AcquisitionPage::RunEnded() {
    const bool again = Repeats && RecordingOf(*Current).End == RunEnd::Full;
    const std::shared_ptr<ShownRun> ended = std::exchange(Current, nullptr);
    if (ended != Run && (PointsOf(*ended) > 0 || !Run)) {
        ShowRun(ended);
    }
    Unsaved = Unsaved || PointsOf(*ended) > 0;
    Curves->Invalidate();
    LowerStale = true;
    if (again) {
        Start(true);
    }
    if (!Current) { // Fields and buttons stay as they are from one run to the next.
        Fields->SetRunActive(false);
        StateChanged();
    }
}

void AcquisitionPage::Start(bool repeats) {
    if (dynamic_cast<NumberField*>(FindFocus()) != nullptr) {
        Fields->SetFocusIgnoringChildren(); // What is still being written counts for this run.
    }
    Failure.clear();
    auto request = Fields->Request();
    if (!request) {
        return;
    }
    request->Channels = Table->Checked();
    if (request->Channels.empty()) {
        Fields->ChannelsMessage->ShowError(_("Check a channel first."));
        Table->SetFocus();
        return;
    }
    try {
        StartRun(*request);
        Repeats = repeats;
    } catch (const HostError& error) {
        if (error.Kind == ErrorKind::WrongArguments) {
            Fields->PointsMessage->ShowError(FromUtf8(error.what()));
            Fields->Points->SetFocus();
        } else {
            Failure = FromUtf8(error.what());
        }
    }
    StateChanged();
}

void AcquisitionPage::StartRun(const AcquisitionRequest& request) {
    const DriverTurn turn(Access);
    const AcquisitionRequest complete = CompleteRequest(request, turn.Driver, Access.Channels);
    if (Run && !MayStay(*Run)) { // Releases its samples before new ones are allocated.
        Run.reset();
    }
    std::vector<ChannelInfo> channels;
    for (const int index : complete.Channels) {
        channels.push_back(Access.Channels.at(static_cast<size_t>(index)));
    }
    Current = std::make_shared<ShownRun>(turn.Driver, complete, std::move(channels));
    const wxDateTime now = wxDateTime::Now();
    Current->Notes = {.Date = now.FormatISOCombined(' ').utf8_string(),
                      .Console = TextOf(turn->GetInterfaceName()),
                      .Scenario = Access.Options.Scenario};
    Current->Title =
        Translated("run %s", {std::to_string(++Runs)}) + " · " + now.FormatISOTime().utf8_string();
    Begun = Clock::now();
    Fields->ShowAppliedPeriod(RecordingOf(*Current).PeriodSec);
    Fields->SetRunActive(true);
    const AxisRange time = WholeTime(*Current);
    if (time.To - time.From >= shortestRolledSec || !Run) {
        ShowRun(Current);
    }
}

void AcquisitionPage::ShowRun(const std::shared_ptr<ShownRun>& run) {
    const bool isAlike = Run && WholeTime(*Run).From == WholeTime(*run).From &&
                         WholeTime(*Run).To == WholeTime(*run).To;
    if (Run && PointsOf(*Run) > 0) {
        orvane::AddFormer(Former, Run);
    }
    Run = run;
    DrawnPoints = 0;
    Unsaved = false;
    LowerStale = true;
    if (!isAlike) {
        Curves->ResetZoom();
    }
    Curves->Invalidate();
}

void AcquisitionPage::StopRun() {
    Repeats = false;
    if (Current) {
        {
            const DriverTurn turn(Access);
            InterruptRun(*Current->Followed);
        }
        FollowRun();
    }
}

void AcquisitionPage::StopMeasuring() {
    while (Current) { // A call in the background is waited for.
        StopRun();
    }
}

} // namespace orvane
