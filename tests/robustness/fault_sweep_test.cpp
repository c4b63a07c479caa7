// Every export with every one of its port calls failing, one after the other, and with all of them
// failing from each one on.

#include "console/port_operations.h"
#include "tests/robustness/sweep_console.h"
#include "tests/support/every_export.h"
#include "tests/support/fake_time.h"

#include <iostream>

using namespace orvane;

namespace {

void RunScenario() {
    for (const every_export::Step& step : every_export::scenario) {
        step.Call();
    }
}

TEST(Scenario, ReachesEveryOperationOfThePort) {
    UseFakeTimeBesideSpiro();
#define NAME(result, name, parameters, arguments) #name,
    static std::set<std::string> unreached{ORVANE_PORT_OPERATIONS(NAME)};
    for (const uint16_t model : {uint16_t{12304}, uint16_t{12336}}) { // Pictures, and a radio.
        MakeConsole(model);
        Console.OnCall = [](const std::string& operation) {
            const auto lock = ScriptedConsole::Lock();
            unreached.erase(operation);
        };
        RunScenario();
    }
    EXPECT_THAT(unreached, testing::IsEmpty());
}

TEST(FaultSweep, LeavesNothingThatAFreshStartDoesNotMend) {
    constexpr uint16_t model = 12304;
    UseFakeTimeBesideSpiro();
    testing::internal::CaptureStderr();
    const std::string channels = ChannelsAfterStart(model);
    std::size_t runs = 0;
    for (const auto& fail : {&ScriptedConsole::FailCall, &ScriptedConsole::FailFrom}) {
        for (std::size_t n = 1, calls = n; calls >= n; ++n, ++runs) {
            MakeConsole(model);
            (Console.*fail)(n);
            RunScenario();
            calls = Console.CallCount();
            ASSERT_NO_FATAL_FAILURE(ExpectRecovery(model, channels)) << n;
        }
    }
    testing::internal::GetCapturedStderr();
    std::cout << runs << " runs with a failure\n";
}

} // namespace
