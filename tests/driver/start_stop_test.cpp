// The order in which a start and a stop call the console, and every way in which a start fails.

#include "channels/adapter_map.h"
#include "connection/connection_state.h"
#include "lifecycle_exports.h"
#include "tests/support/fake_time.h"
#include "tests/support/scripted_console.h"

#include <gmock/gmock.h>
#include <sys/time.h>

#include <chrono>
#include <csignal>
#include <cstdlib>

using namespace orvane;

namespace {

using testing::AllOf;
using testing::Each;
using testing::IsEmpty;
using testing::SizeIs;

using Calls = std::vector<std::string>;

std::vector<unsigned long> Waits;

/// A console with one adapter and a readable memory, so that nothing is said on standard error.
class StartStop : public testing::Test {
protected:
    StartStop() {
        Console.Connectors[2] = Adapter("482034", {InputChannel("U", -12, 12)});
        Console.Memory.assign(32768, 0);
        UsePause([](unsigned long milliseconds) { Waits.push_back(milliseconds); });
        setenv("HOME", "/proc/orvane-é", 1);
    }

    static bool Start(const char* langue = "fr") {
        return StartDll(7, "ctx", wxString::FromUTF8(langue), 0);
    }
};

const Calls Stop{"OVSetPlugCallback(null)", "ShutdownConsole()", "OVRelease()"};
const Calls Library{"OVStartLibrary(\"ctx\", \"fr\")"};
const Calls Pass{"OVOpen(0820032E8E4A8E4A88DAC0F1B5377E0A)", "OVSetLanguage(1)",
                 "OVSetDataFolder(\"/proc/orvane-_/cache\")", "OVCountInterfaces(2)",
                 "OVGetInterfaces(1, 2)"};

Calls operator+(Calls first, const Calls& second) {
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

TEST_F(StartStop, CallsTheConsoleInTheGivenOrder) {
    EXPECT_TRUE(Start());
    const Calls state{"OVConnect(0)", "OVReadInterfaceState()"};
    const Calls memory{"OVSelectMemory(0)", "OVGetMemorySize(0, 2)", "OVSelectMemory(0)",
                       "OVReadMemory(0, 2, 32768)"};
    const Calls interface { "OVReadInterfaceFlags()", "OVGetInterfaceDesc()" };
    const Calls plugs{"OVSetPlugCallback(callback)", "OVGetAdapterDesc(2)"};
    EXPECT_EQ(Console.TakeCalls(), Stop + Library + Pass + state + interface + memory + plugs);
    EXPECT_THAT(Waits, IsEmpty());
    EXPECT_EQ(Adapters.size(), 1U);

    // A restart closes the connection first, and the memory stays read.
    EXPECT_TRUE(Start());
    EXPECT_EQ(Console.TakeCalls(), Stop + Library + Pass + state + interface + plugs);
    EXPECT_EQ(Adapters.size(), 1U);
    StopDll();
    StopDll();
    EXPECT_EQ(Console.TakeCalls(), Stop + Stop);
    EXPECT_EQ(Adapters.size(), 0U);
}

TEST_F(StartStop, ReadsTheMemoryOfModel12336BeforeItsInterface) {
    Console.Model = 12336;
    EXPECT_TRUE(Start());
    const Calls calls = Console.TakeCalls();
    EXPECT_LT(std::ranges::find(calls, "OVReadMemory(0, 2, 32768)"),
              std::ranges::find(calls, "OVReadInterfaceFlags()"));
}

TEST_F(StartStop, TakesThePreTriggerPointsOfTheModel) {
    const auto pointsOf = [](uint16_t model) {
        Console.Model = model;
        Start();
        return GetNbPointPreSynchro();
    };
    EXPECT_EQ(pointsOf(12368), 50U);
    EXPECT_EQ(pointsOf(4711), 50U) << "an unknown model leaves them";
    EXPECT_EQ(pointsOf(12306), 0U);
}

TEST_F(StartStop, TellsFrenchFromEveryOtherLanguage) {
    for (const char* other : {"FR", "fr_FR", "en", ""}) {
        EXPECT_TRUE(Start(other));
        EXPECT_THAT(Console.CallsOf("OVSetLanguage"), Each("OVSetLanguage(2)")) << other;
    }
}

TEST_F(StartStop, HasOneBudgetOfWaitsForTheWholeCall) {
    // Three failures in the first pass, then a second pass that never opens.
    Console.OnCall = [](const std::string& operation) {
        if (operation == "OVConnect") {
            Console.Fail("OVOpen");
        }
    };
    Console.Fail("OVOpen", 3);
    Console.Fail("OVConnect", 1);
    EXPECT_FALSE(Start());
    EXPECT_THAT(Waits, AllOf(SizeIs(20), Each(500U)));
    EXPECT_THAT(Console.CallsOf("OVOpen"), SizeIs(4 + 18));
    EXPECT_EQ(Console.TakeCalls().back().substr(0, 6), "OVOpen") << "nothing is released";

    Waits.clear();
    Console.OnCall = nullptr;
    Console.FailNothing();
    Console.Fail("OVOpen", 20);
    EXPECT_TRUE(Start()) << "the 21st call may still open it";
    EXPECT_THAT(Waits, SizeIs(20));
}

TEST_F(StartStop, GivesUpAfterSixPassesWithAMessage) {
    Console.Fail("OVConnect");
    testing::internal::CaptureStderr();
    EXPECT_FALSE(Start());
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "Erreur au démarrage de l'interface\n");
    const Calls pass = Pass + Calls{"OVConnect(0)", "ShutdownConsole()", "OVRelease()"};
    EXPECT_EQ(Console.TakeCalls(), Stop + Library + pass + pass + pass + pass + pass + pass);
    EXPECT_EQ(Connection.ConsoleModel, 0);
}

TEST_F(StartStop, EndsQuietlyWhereThereIsNoInterface) {
    struct Case {
        void (*Set)();
        std::vector<std::string> Last; ///< Of the calls.
    };
    for (const auto& [set, last] : {
             Case{[] { Console.InterfacesFound = 2; }, {"OVGetInterfaces(1, 2)", "OVRelease()"}},
             Case{[] { Console.Fail("OVGetInterfaces"); },
                  {"OVGetInterfaces(1, 2)", "OVRelease()"}},
             Case{[] { Console.InterfaceCount = 0; }, {"OVCountInterfaces(2)", "OVRelease()"}},
             Case{[] { Console.Fail("OVStartLibrary"); }, {"OVStartLibrary(\"ctx\", \"fr\")"}},
         }) {
        set();
        testing::internal::CaptureStderr();
        EXPECT_FALSE(Start());
        EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
        Calls calls = Console.TakeCalls();
        calls.erase(calls.begin(), calls.end() - static_cast<std::ptrdiff_t>(last.size()));
        EXPECT_EQ(calls, last);
        EXPECT_EQ(Connection.Langue, "fr") << "the arguments are kept all the same";
    }
}

TEST_F(StartStop, LivesByTheClockOfTheConsoleWhileItIsOpen) {
    Console.OnCall = [](const std::string& operation) {
        if (operation == "OVStartLibrary") {
            UseFakeTime();
            SetFakeTime(7.0);
        } else if (operation == "OVRelease") {
            platform::InstalledClock = nullptr;
        }
    };
    Console.Fail("OVOpen", 19);
    EXPECT_TRUE(Start());
    EXPECT_EQ(GetTimeResolu(), 16.5e6) << "19 pauses of 0.5 s";
    StopDll();
    EXPECT_NE(GetTimeResolu(), 16.5e6);
}

TEST(Pause, LastsToItsEndUnderSignals) {
    std::signal(SIGALRM, [](int) {});
    const itimerval often{{0, 3000}, {0, 3000}};
    setitimer(ITIMER_REAL, &often, nullptr);
    const auto begin = std::chrono::steady_clock::now();
    platform::Pause(40);
    EXPECT_GE(std::chrono::steady_clock::now() - begin, std::chrono::milliseconds(40));
}

} // namespace
