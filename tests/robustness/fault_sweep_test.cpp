// Every export with every one of its port calls failing, one after the other, and with all of them
// failing from each one on.

#include "connection/console_memory.h"
#include "console/port_operations.h"
#include "tests/robustness/sweep_console.h"
#include "tests/support/every_export.h"
#include "tests/support/fake_time.h"

#include <gmock/gmock.h>

#include <iostream>

using namespace orvane;

namespace {

using every_export::scenario;
using every_export::Step;

/// Runs the scenario in what is to the driver a process of its own. Tells the port calls made.
std::size_t CallsOfRun(uint16_t model, void (ScriptedConsole::*fail)(std::size_t), std::size_t n) {
    MakeConsole(model);
    (Console.*fail)(n);
    ConsoleMemoryLoaded = false;
    for (const Step& step : scenario) {
        step.Call();
    }
    return Console.CallCount();
}

/// The port calls of each export when none fails.
std::string CallsByExport(uint16_t model) {
    MakeConsole(model);
    ConsoleMemoryLoaded = false;
    std::string log;
    for (const Step& step : scenario) {
        const std::size_t before = Console.CallCount();
        step.Call();
        if (const std::size_t calls = Console.CallCount() - before; calls > 0) {
            log += ", " + ExportOf(step) + " " + std::to_string(calls);
        }
    }
    return log;
}

TEST(Scenario, ReachesEveryOperationOfThePort) {
    UseFakeTimeBesideSpiro();
#define NAME(result, name, parameters, arguments) #name,
    static std::set<std::string> unreached{ORVANE_PORT_OPERATIONS(NAME)};
    for (const uint16_t model :
         std::initializer_list<uint16_t>{12304, 12336}) { // One has pictures, the other a radio.
        MakeConsole(model);
        Console.OnCall = [](const std::string& operation) {
            const auto lock = ScriptedConsole::Lock();
            unreached.erase(operation);
        };
        for (const Step& step : scenario) {
            step.Call();
        }
    }
    EXPECT_THAT(unreached, testing::IsEmpty());
}

class FaultSweep : public testing::TestWithParam<uint16_t> {};

TEST_P(FaultSweep, LeavesNothingThatAFreshStartDoesNotMend) {
    UseFakeTimeBesideSpiro();
    testing::internal::CaptureStderr();
    MakeConsole(GetParam());
    StartDll(0, "", "fr", 0);
    VerifCanaux();
    const std::string channels = Channels();
    const std::string log = CallsByExport(GetParam());
    std::size_t runs = 0;
    for (const auto& fail : {&ScriptedConsole::FailCall, &ScriptedConsole::FailFrom}) {
        for (std::size_t n = 1; CallsOfRun(GetParam(), fail, n) >= n; ++n, ++runs) {
            ASSERT_NO_FATAL_FAILURE(ExpectRecovery(GetParam(), channels)) << n;
        }
    }
    testing::internal::GetCapturedStderr();
    std::cout << runs << " runs with a failure; port calls that failed, by export:" << log.substr(1)
              << '\n';
}

INSTANTIATE_TEST_SUITE_P(Models, FaultSweep, testing::Values(12304, 12336, 12368));

} // namespace
