// The order in which a start and a stop call the console, and every way in which a start fails.

#include "channels/adapter_map.h"
#include "connection/connection_state.h"
#include "tests/support/fake_time.h"
#include "tests/support/started_driver.h"

#include <sys/time.h>

#include <chrono>
#include <csignal>
#include <cstdlib>

using namespace orvane;

namespace {

using namespace testing;

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

const std::string Stop = "OVSetPlugCallback(null) ShutdownConsole() OVRelease() ";
const std::string Library = "OVStartLibrary(\"ctx\", \"fr\") ";
const std::string Pass = "OVOpen(0820032E8E4A8E4A88DAC0F1B5377E0A) OVSetLanguage(1) "
                         "OVSetDataFolder(\"/proc/orvane-_/cache\") OVCountInterfaces(2) "
                         "OVGetInterfaces(1, 2) ";
const std::string Read = "OVConnect(0) OVReadInterfaceState() OVReadInterfaceFlags() "
                         "OVGetInterfaceDesc() ";
const std::string Memory = "OVSelectMemory(0) OVGetMemorySize(0, 2) OVSelectMemory(0) "
                           "OVReadMemory(0, 2, 32768) ";
const std::string Plugs = "OVSetPlugCallback(callback) OVGetAdapterDesc(2) ";

TEST_F(StartStop, CallsTheConsoleInTheGivenOrder) {
    EXPECT_TRUE(Start());
    EXPECT_EQ(Calls(), Stop + Library + Pass + Read + Memory + Plugs);
    EXPECT_THAT(Waits, IsEmpty());
    EXPECT_EQ(Adapters.size(), 1U);

    // A restart closes the connection first, and the memory stays read.
    EXPECT_TRUE(Start());
    EXPECT_EQ(Calls(), Stop + Library + Pass + Read + Plugs);
    EXPECT_EQ(Adapters.size(), 1U);
    StopDll();
    StopDll();
    EXPECT_EQ(Calls(), Stop + Stop);
    EXPECT_EQ(Adapters.size(), 0U);
}

TEST_F(StartStop, ReadsTheMemoryOfModel12336BeforeItsInterface) {
    Console.Model = 12336;
    EXPECT_TRUE(Start());
    EXPECT_THAT(Calls(), HasSubstr(Memory + "OVReadInterfaceFlags() "));
}

TEST_F(StartStop, TakesThePreTriggerPointsOfTheModel) {
    // An unknown model leaves them.
    for (const auto& [model, points] : {std::pair{12368, 50U}, {4711, 50U}, {12306, 0U}}) {
        Console.Model = static_cast<uint16_t>(model);
        EXPECT_TRUE(Start());
        EXPECT_EQ(GetNbPointPreSynchro(), points);
    }
}

TEST_F(StartStop, TellsFrenchFromEveryOtherLanguage) {
    for (const char* other : {"FR", "fr_FR", "en", ""}) {
        EXPECT_TRUE(Start(other));
    }
    EXPECT_THAT(Console.CallsOf("OVSetLanguage"), AllOf(SizeIs(4), Each("OVSetLanguage(2)")));
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
    const std::string pass = Pass + "OVConnect(0) ShutdownConsole() OVRelease() ";
    EXPECT_EQ(Calls(), Stop + Library + pass + pass + pass + pass + pass + pass);
    EXPECT_EQ(Connection.ConsoleModel, 0);
}

TEST_F(StartStop, EndsQuietlyWhereThereIsNoInterface) {
    // What fails, after what failed before, and the last calls.
    const std::pair<void (*)(), std::string> cases[] = {
        {[] { Console.InterfacesFound = 2; }, "OVGetInterfaces(1, 2) OVRelease() "},
        {[] { Console.Fail("OVGetInterfaces"); }, "OVGetInterfaces(1, 2) OVRelease() "},
        {[] { Console.InterfaceCount = 0; }, "OVCountInterfaces(2) OVRelease() "},
        {[] { Console.Fail("OVStartLibrary"); }, Library}};
    for (const auto& [fail, last] : cases) {
        fail();
        testing::internal::CaptureStderr();
        EXPECT_FALSE(Start());
        EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
        EXPECT_THAT(Calls(), EndsWith(last));
        EXPECT_EQ(Connection.Langue, "fr") << "the arguments are kept all the same";
    }
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
