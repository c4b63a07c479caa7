// Every export with every one of its port calls failing, one after the other, and with all of them
// failing from each one on.

#include "connection/console_memory.h"
#include "console/port_operations.h"
#include "tests/support/every_export.h"
#include "tests/support/fake_time.h"
#include "tests/support/scripted_console.h"

#include <gmock/gmock.h>

#include <iostream>

namespace {

using every_export::scenario;
using every_export::Step;

/// A console that has one of everything.
void MakeConsole(uint16_t model) {
    Console = {};
    Console.Recording = false;
    Console.Model = model;
    Console.Memory.assign(32768, 0);
    Console.Connectors[0].Channels = {OutputChannel("Sortie a", -1, 1), InputChannel("E", 0, 5)};
    ScriptedChannel labelled = InputChannel("U", -12, 12);
    labelled.Text = "Etiquette=3";
    labelled.Functions.push_back(
        Function("RMS", "U", "V", {Calibre("a", 0, 1), Calibre("b", 0, 2)}));
    for (ScriptedFunction& function : labelled.Functions) {
        SetText(function.Desc.Image.TypeImage, "png");
        function.Image = {1, 2, 3};
    }
    ScriptedChannel state = StateChannel("Reglage=4");
    state.Functions = labelled.Functions;
    Console.Memory[7175] = 1;
    Console.Memory[7178] = 20;
    Console.Connectors[1] = Adapter(
        "482080", {labelled, AdjustmentChannel("Reglage=4"), state, PlainChannel("V", 2, 1)});
    Console.Connectors[2] =
        Adapter("482060", std::vector<ScriptedChannel>(8, InputChannel("Gate", 0, 1)), 21);
    Console.Connectors[3] = Adapter("482109", {InputChannel("Flow", -20, 20)});
    Console.Log = {{1, 0}, {2, 0}};
}

/// Names, units, limits and links as the host and the driver see them.
std::string Channels() {
    std::string text;
    for (int index = 0; index < CombienDeCanauxEnEntree(); ++index) {
        const TvlVoieOrvane& voie = *InputChannels[static_cast<std::size_t>(index)];
        text += QuelNomPour(index, 0).utf8_string() + QuelUnitePour(index).utf8_string() +
                std::to_string(QuelMaxPour(index)) + " " + std::to_string(voie.VoieReglage) +
                std::to_string(voie.VoieEtat) + std::to_string(voie.ModeReglage) + "; ";
    }
    return text + std::to_string(CombienDeCanauxEnSortie());
}

/// Whether a fresh start finds everything again.
void ExpectRecovery(uint16_t model, const std::string& channels) {
    MakeConsole(model);
    ASSERT_TRUE(StartDll(0, "", "fr", 0));
    VerifCanaux();
    ASSERT_EQ(Channels(), channels);
    EXPECT_EQ(InitAcqBuff(1e-3, 10, 3, 0), 1e-3);
    StartAcqBuff(0, 0, 0.0, 0);
    EXPECT_TRUE(TestFinAcq());
    StopAcqBuff();
    StopDll();
}

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
