// Every export over the laboratory with every one of its port calls failing, one after the other,
// and with all of them failing from each one on.

#include "channels/channel_lists.h"
#include "connection/console_memory.h"
#include "console/stack/layers.h"
#include "spiro/spiro_state.h"
#include "spiro/spiro_thread.h"
#include "tests/support/every_export.h"
#include "tests/support/fake_time.h"

#include <gmock/gmock.h>

#include <atomic>
#include <limits>

using namespace orvane;

namespace {

constexpr std::size_t always = std::numeric_limits<std::size_t>::max();

std::atomic<std::size_t> Calls{0};
std::size_t FirstFailing = always;
std::size_t LastFailing = always;

/// Counts the calls and refuses those that are to fail. One without a result can't fail.
struct FailingLayer {
    static inline const PortTable* Below = nullptr;

#define SWEEP(result, name, parameters, arguments)                                                 \
    static result name parameters {                                                                \
        const std::size_t number = ++Calls;                                                        \
        const bool fails = number >= FirstFailing && number <= LastFailing;                        \
        return fails && !std::is_void_v<result> ? result() : Below->name arguments;                \
    }
    ORVANE_PORT_OPERATIONS(SWEEP)

#define ENTRY(result, name, parameters, arguments) &(name),
    static inline PortTable Table{ORVANE_PORT_OPERATIONS(ENTRY)};
};

/// Between two connections there is no virtual clock: pauses are short ones.
void ReleaseAndKeepPausesShort() {
    FailingLayer::Below->OVRelease();
    UsePause([](unsigned long) { wxMicroSleep(200); });
}

/// Refuses calls from now on: `first` to `last`, counted from 1.
void FailCalls(std::size_t first, std::size_t last) {
    Calls = 0;
    FirstFailing = first;
    LastFailing = last;
    ConsoleMemoryLoaded = false;
}

/// Names, units, limits and links as the host and the driver see them after a fresh start.
std::string ChannelsAfterStart() {
    FailCalls(always, always);
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

/// Whether a fresh start finds everything again, and a run ends.
void ExpectRecovery(const std::string& channels) {
    constexpr int mostPolls = 200;
    ASSERT_EQ(ChannelsAfterStart(), channels);
    EXPECT_GT(InitAcqBuff(1e-3, 10, 3, 0), 0.0);
    StartAcqBuff(0, 0, 0.0, 0);
    int polls = 0;
    while (!TestFinAcq() && polls < mostPolls) {
        ++polls;
    }
    EXPECT_LT(polls, mostPolls);
    StopAcqBuff();
    StopDll();
}

void RunScenario() {
    for (const every_export::Step& step : every_export::scenario) {
        step.Call();
        // A stop in virtual time may give up before the thread has had a chance to end.
        while (step.Text.starts_with("StopThreadSpiro") && Spiro.SpiroThread != nullptr &&
               !Spiro.SpiroThread->HasEnded()) {
            wxMicroSleep(100);
        }
    }
}

class FaultSweep : public testing::TestWithParam<const char*> {};

TEST_P(FaultSweep, LeavesNothingThatAFreshStartDoesNotMend) {
    setenv("ORVANE_SCENARIO", GetParam(), 1);
    setenv("ORVANE_CLOCK", "virtual", 1);
    const std::string channels = ChannelsAfterStart();
    for (const bool one : {true, false}) {
        for (std::size_t n = 1, calls = n; calls >= n; ++n) {
            FailCalls(n, one ? n : always);
            RunScenario();
            calls = Calls;
            ASSERT_NO_FATAL_FAILURE(ExpectRecovery(channels)) << n;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Laboratory, FaultSweep, testing::Values("school", "radio"));

} // namespace

const PortTable& orvane::console_stack::Recorder(const PortTable& below) {
    FailingLayer::Below = &below;
    FailingLayer::Table.OVRelease = ReleaseAndKeepPausesShort;
    return FailingLayer::Table;
}
