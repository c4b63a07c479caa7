// Every export with every one of its allocations failing, one after the other, and with all of them
// failing from each one on.

#include "channels/channel_lists.h"
#include "connection/console_memory.h"
#include "console/port_operations.h"
#include "driver_exports.h"
#include "tests/support/allocation_failures.h"
#include "tests/support/every_export.h"
#include "tests/support/fake_time.h"
#include "tests/support/scripted_console.h"

#include <wx/app.h>

#include <gmock/gmock.h>

using namespace orvane;

/// The toolkit loses the characters or pixels that it got from malloc when it can't have the object
/// that is to hold them.
extern "C" ORVANE_EXPORT const char*
__lsan_default_suppressions() { // NOLINT(bugprone-reserved-identifier)
    return "leak:libwx_baseu-\nleak:libwx_gtk3u_core-\n";
}

namespace {

/// A console that has one of everything, never seen before by the driver.
void MakeConsole(uint16_t model) {
    Console = {};
    Console.Recording = false;
    Console.Model = model;
    Console.Memory.assign(32768, 0);
    Console.Memory[7175] = 1; // A radio configuration, on channel 20.
    Console.Memory[7178] = 20;
    ConsoleMemoryLoaded = false;
    Console.Connectors[0].Channels = {OutputChannel("Sortie a", -1, 1), InputChannel("E", 0, 5)};
    ScriptedChannel labelled = InputChannel("U", -12, 12);
    labelled.Text = "Etiquette=3";
    labelled.Functions.push_back(
        Function("RMS", "U", "V", {Calibre("a", 0, 1), Calibre("b", 0, 2)}));
    for (ScriptedFunction& function : labelled.Functions) {
        SetText(function.Desc.Image.TypeImage, "bmp");
        function.Image = {'B', 'M', 0, 0, 0, 0, 0, 0, 0, 0, 54, 0, 0, 0,  40,
                          0,   0,   0, 1, 0, 0, 0, 1, 0, 0, 0,  1, 0, 24, 0};
        function.Image.resize(58);
    }
    ScriptedChannel state = StateChannel("Reglage=4");
    state.Functions = labelled.Functions;
    Console.Connectors[1] = Adapter(
        "482080", {labelled, AdjustmentChannel("Reglage=4"), state, PlainChannel("V", 2, 1)});
    Console.Connectors[2] =
        Adapter("482060", std::vector<ScriptedChannel>(8, InputChannel("Gate", 0, 1)), 21);
    Console.Connectors[3] = Adapter("482109", {InputChannel("Flow", -20, 20)});
    Console.Log = {{1, 0}, {2, 0}};
}

/// Names, units, limits and links as the host and the driver see them after a fresh start.
std::string ChannelsAfterStart(uint16_t model) {
    MakeConsole(model);
    EXPECT_TRUE(StartDll(0, "", "fr", 0));
    VerifCanaux();
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
    ASSERT_EQ(ChannelsAfterStart(model), channels);
    EXPECT_EQ(InitAcqBuff(1e-3, 10, 3, 0), 1e-3);
    StartAcqBuff(0, 0, 0.0, 0);
    EXPECT_TRUE(TestFinAcq());
    StopAcqBuff();
    StopDll();
}

void RunScenario(const char* without = "none") {
    for (const every_export::Step& step : every_export::scenario) {
        if (!step.Text.starts_with(without)) {
            try {
                step.Call();
            } catch (const std::bad_alloc&) { // All that an export may throw.
                EXPECT_FALSE(step.Text.starts_with("Stop")) << step.Text;
            }
        }
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

/// The application object. When memory runs out inside the toolkit's queue, that loses the event
/// and keeps its lock, which no caller can help.
class Host : public wxAppConsole {
    void QueueEvent(wxEvent* event) override {
        const bool counting = allocation_failures::Resume(false);
        wxAppConsole::QueueEvent(event);
        allocation_failures::Resume(counting);
    }
};

class AllocationSweep : public testing::TestWithParam<uint16_t> {};

TEST_P(AllocationSweep, LeavesNothingThatAFreshStartDoesNotMend) {
    wxAppConsole* const usual = wxAppConsole::GetInstance();
    Host host; // Takes the place of the usual one.
    UseFakeTime();
    const std::string channels = ChannelsAfterStart(GetParam());
    std::size_t live = 0;
    for (const auto& fail : {&allocation_failures::FailOne, &allocation_failures::FailFrom}) {
        for (std::size_t n = 1, allocations = n; allocations >= n; ++n) {
            MakeConsole(GetParam());
            fail(n);
            RunScenario("StartThreadSpiro"); // Its start has a test of its own.
            allocation_failures::End();
            allocations = allocation_failures::Count();
            ASSERT_NO_FATAL_FAILURE(ExpectRecovery(GetParam(), channels)) << n;
            host.ProcessPendingEvents();
            live = live == 0 ? allocation_failures::LiveBlocks() : live;
            ASSERT_EQ(allocation_failures::LiveBlocks(), live) << n;
        }
    }
    wxAppConsole::SetInstance(usual);
}

INSTANTIATE_TEST_SUITE_P(Models, AllocationSweep, testing::Values(12304, 12336, 12368));

} // namespace
