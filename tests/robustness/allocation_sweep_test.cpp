// Every export with every one of its allocations failing, one after the other, and with all of them
// failing from each one on. The start of the spirometer's thread has a sweep of its own.

#include "tests/robustness/sweep_console.h"
#include "tests/support/allocation_failures.h"
#include "tests/support/every_export.h"
#include "tests/support/fake_time.h"

#include <wx/app.h>

#include <iostream>
#include <new>

using namespace orvane;

/// The toolkit loses the characters or pixels that it got from malloc when it can't have the object
/// that is to hold them.
extern "C" ORVANE_EXPORT const char*
__lsan_default_suppressions() { // NOLINT(bugprone-reserved-identifier)
    return "leak:libwx_baseu-\nleak:libwx_gtk3u_core-\n";
}

namespace {

/// The application object. When memory runs out inside the toolkit's queue, that loses the event
/// and keeps its lock, which no caller can help.
class Host : public wxAppConsole {
    void QueueEvent(wxEvent* event) override {
        const allocation_failures::Pause noFailure;
        wxAppConsole::QueueEvent(event);
    }
};

/// Runs the scenario on a console never seen before. Tells the allocations made.
std::size_t AllocationsOfRun(uint16_t model, void (*fail)(std::size_t), std::size_t n) {
    MakeConsole(model);
    fail(n);
    for (const every_export::Step& step : every_export::scenario) {
        if (!step.Text.starts_with("StartThreadSpiro")) {
            try {
                step.Call();
            } catch (const std::bad_alloc&) { // All that an export may throw.
                EXPECT_FALSE(step.Text.starts_with("Stop")) << step.Text;
            }
        }
    }
    allocation_failures::End();
    return allocation_failures::Count();
}

class AllocationSweep : public testing::TestWithParam<uint16_t> {};

TEST_P(AllocationSweep, LeavesNothingThatAFreshStartDoesNotMend) {
    wxAppConsole* const usual = wxAppConsole::GetInstance();
    Host host; // Takes the place of the usual one.
    UseFakeTime();
    testing::internal::CaptureStderr();
    const std::string channels = ChannelsAfterStart(GetParam());
    std::size_t live = 0;
    std::size_t runs = 0;
    for (const auto& fail : {&allocation_failures::FailOne, &allocation_failures::FailFrom}) {
        for (std::size_t n = 1; AllocationsOfRun(GetParam(), fail, n) >= n; ++n, ++runs) {
            ASSERT_NO_FATAL_FAILURE(ExpectRecovery(GetParam(), channels)) << n;
            host.ProcessPendingEvents();
            live = live == 0 ? allocation_failures::LiveBlocks() : live;
            ASSERT_EQ(allocation_failures::LiveBlocks(), live) << n;
        }
    }
    wxAppConsole::SetInstance(usual);
    testing::internal::GetCapturedStderr();
    std::cout << runs << " runs with a failure\n";
}

INSTANTIATE_TEST_SUITE_P(Models, AllocationSweep, testing::Values(12304, 12336, 12368));

} // namespace
