// The radio network: start to stop, table, configuration, mode, and what the host is told.

#include "connection/console_memory.h"
#include "driver_exports.h"
#include "tests/support/fake_time.h"
#include "tests/support/scripted_console.h"

#include <wx/app.h>

#include <gmock/gmock.h>

#include <atomic>
#include <climits>
#include <thread>

using namespace orvane;

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using Calls = std::vector<std::string>;

/// The calls of one action.
Calls CallsOf(const std::function<void()>& action) {
    Console.TakeCalls();
    action();
    return Console.TakeCalls();
}

Calls CallsOfConfig(int type, uint8_t canal, int niveau, bool result = true) {
    return CallsOf([&] {
        EXPECT_EQ(RadioSetConfigO150(static_cast<tRadioDeviceType>(type), canal,
                                     static_cast<char>(niveau)),
                  result);
    });
}

Calls CallsOfMode(tRadioMode mode) {
    return CallsOf([&] { RadioSetModeO150(mode); });
}

/// The calls of a pilot configuration from these bytes, in a network of pods.
Calls CallsOfPilot(int flag, int canal, int niveau, bool result) {
    ConsoleMemory[7175] = static_cast<uint8_t>(flag);
    ConsoleMemory[7178] = static_cast<uint8_t>(canal);
    ConsoleMemory[7181] = static_cast<uint8_t>(niveau);
    RadioSetConfigO150(RadioPod, 5, 1);
    RadioSetModeO150(RadioModeFerme);
    return CallsOf([&] { EXPECT_EQ(RadioSetConfigPilotO150(), result); });
}

/// Type, Connecte and Accepte of a device.
std::vector<int> Device(int index) {
    const TVL_RADIO_DEVICE* device = GetRadioDeviceO150(index);
    return {device->Type, device->Connecte, device->Accepte};
}

} // namespace

TEST(Radio, StartsAndStopsWithTheDriverAndTellsTheHostLater) {
    UseFakeTime();
    wxAppConsole* host = wxAppConsole::GetInstance();
    std::vector<std::uintptr_t> told;
    const auto note = [&](const wxCommandEvent& event) {
        told.push_back(reinterpret_cast<std::uintptr_t>(event.GetClientData()));
    };
    host->Bind(wxEVT_MENU, note, 7202);
    Console.Model = 12336;
    Console.Memory.assign(32768, 0);
    Console.Memory[7178] = 20;
    const Calls start = CallsOf([] { EXPECT_TRUE(StartDll(0, "", "fr", 0)); });
    EXPECT_THAT(Calls(start.end() - 3, start.end()),
                ElementsAre("OVGetInterfaceDesc()", "OVRadioSetCallback(callback)",
                            "OVSetPlugCallback(callback)"));
    EXPECT_EQ(GetCanalReelO150(), 20);

    RadioSetConfigO150(RadioPilote, 20, 0);
    RadioSetModeO150(RadioModePilote);
    Console.RadioEvent(3, RadioPod, true);
    Console.RadioEvent(4, RadioPod, true);
    AcceptDeviceO150(3);
    Console.OnCall = [](const std::string& operation) {
        if (operation == "OVRadioReleaseDevice") {
            Console.RadioEvent(3, RadioPod, false);
        }
    };
    EXPECT_THAT(CallsOf(StopDll),
                ElementsAre("OVSetPlugCallback(null)", "OVRadioSetMode(16)",
                            "OVRadioReleaseDevice(3)", "OVRadioSetMode(19)",
                            "OVRadioSetConfig(0, 11, 1050)", "ShutdownConsole()", "OVRelease()"));
    EXPECT_EQ(FakeNanoseconds, 3'000'000'000) << "for pod 4, which stays";
    EXPECT_THAT(Device(4), ElementsAre(0, 0, 0));
    EXPECT_THAT(told, IsEmpty());
    host->ProcessPendingEvents();
    EXPECT_THAT(told, ElementsAre(1, 0));

    Console.RadioEvent(7, RadioPod, true); // The callback outlives the stop.
    EXPECT_EQ(GetNbPodConnectedO150(), 1);
    EXPECT_TRUE(StartDll(0, "", "fr", 0));
    EXPECT_THAT(Device(7), ElementsAre(0, 0, 0));
}

TEST(Radio, StoppedAgreesToAllAndDoesNothingAlsoWithoutAHost) {
    wxAppConsole* host = wxAppConsole::GetInstance();
    wxAppConsole::SetInstance(nullptr);
    StartO150();
    StopO150();
    wxAppConsole::SetInstance(host);
    EXPECT_THAT(CallsOfConfig(17, 12, 3), IsEmpty());
    EXPECT_THAT(CallsOfMode(RadioModeOuvert), IsEmpty());
    EXPECT_THAT(CallsOf([] { EXPECT_TRUE(RadioSetConfigNoneO150()); }), IsEmpty());
}

TEST(Radio, TableFollowsThePodsAndNothingElse) {
    const std::pair<int, int> hostile[] = {{50, 16}, {255, 16}, {5, 15}, {5, 17}, {5, 22}, {5, -1}};
    for (const auto& [id, type] : hostile) {
        DeviceCb(static_cast<uint8_t>(id), static_cast<tRadioDeviceType>(type), true);
    }
    DeviceCb(5, RadioPod, false);
    EXPECT_EQ(GetNbPodConnectedO150(), 0);
    DeviceCb(49, RadioPod, true);
    AcceptDeviceO150(49);
    DeviceCb(49, RadioPod, true);
    DeviceCb(49, RadioType20, false);
    EXPECT_EQ(GetNbPodConnectedO150(), 1);
    EXPECT_THAT(Device(49), ElementsAre(16, 1, 1));
    Console.Fail("OVRadioAcceptDevice");
    AcceptDeviceO150(49);
    EXPECT_THAT(Device(49), ElementsAre(16, 1, 0));
    GetRadioDeviceO150(0)->Connecte = 1; // A host that writes.
    DeviceCb(0, RadioPod, false);
    DeviceCb(49, RadioPod, false);
    EXPECT_EQ(GetNbPodConnectedO150(), 0);
    Console.TakeCalls();
    for (const int index : {-1, 50, INT_MIN, INT_MAX}) {
        AcceptDeviceO150(index);
        EXPECT_EQ(GetRadioDeviceO150(index), nullptr);
    }
    EXPECT_TRUE(RadioPingDeviceO150(255));
    EXPECT_THAT(Console.TakeCalls(), ElementsAre("OVRadioPing(255, 500, 5)"));
}

TEST(Radio, SendsWhatChangesAndKeepsNothingThatIsRefused) {
    StartO150();
    EXPECT_THAT(CallsOfMode(RadioModeOuvert), IsEmpty()); // Without configuration only noted.
    EXPECT_THAT(CallsOfConfig(16, 12, -4),
                ElementsAre("OVRadioSetConfig(16, 12, 1050)", "OVRadioSetLevel(-4)"));
    EXPECT_THAT(CallsOfConfig(16, 12, -4), IsEmpty());
    EXPECT_THAT(CallsOfConfig(16, 13, -4), ElementsAre("OVRadioSetConfig(16, 13, 1050)"));
    EXPECT_THAT(CallsOfMode(RadioModeOuvert), IsEmpty());
    for (const char* operation : {"OVRadioSetMode", "OVRadioSetConfig", "OVRadioSetLevel"}) {
        Console.Fail(operation, 1);
    }
    EXPECT_THAT(CallsOfMode(RadioModePilote), ElementsAre("OVRadioSetMode(17)"));
    EXPECT_THAT(CallsOfMode(RadioModePilote), ElementsAre("OVRadioSetMode(17)"));
    EXPECT_THAT(CallsOfConfig(18, 14, 17, false), ElementsAre("OVRadioSetConfig(18, 14, 1050)"));
    EXPECT_THAT(CallsOfConfig(18, 14, 17, false),
                ElementsAre("OVRadioSetConfig(18, 14, 1050)", "OVRadioSetLevel(17)"));
    EXPECT_THAT(CallsOfConfig(18, 14, 17), ElementsAre("OVRadioSetLevel(17)"));
    EXPECT_THAT(CallsOf(RadioSetConfigNoneO150), ElementsAre("OVRadioSetConfig(0, 11, 1050)"));
    EXPECT_THAT(CallsOf(RadioSetConfigNoneO150), ElementsAre("OVRadioSetConfig(0, 11, 1050)"));
    EXPECT_THAT(CallsOfConfig(16, 12, 0), ElementsAre("OVRadioSetConfig(16, 12, 1050)"));
}

TEST(Radio, PilotTakesTheStoredConfigurationWithinItsLimits) {
    StartO150();
    EXPECT_THAT(CallsOfPilot(0, 12, 3, false), IsEmpty());
    EXPECT_THAT(CallsOfPilot(2, 12, 3, false), IsEmpty());
    for (const auto& [canal, niveau] : {std::pair{10, 3}, {27, 3}, {11, -5}, {26, 18}}) {
        EXPECT_THAT(CallsOfPilot(1, canal, niveau, false), ElementsAre("OVRadioSetMode(17)"));
        EXPECT_EQ(GetCanalReelO150(), canal == 26 ? 26 : 11);
    }
    EXPECT_THAT(
        CallsOfPilot(1, 11, -4, true),
        ElementsAre("OVRadioSetConfig(17, 11, 1050)", "OVRadioSetLevel(-4)", "OVRadioSetMode(17)"));
    EXPECT_THAT(
        CallsOfPilot(1, 26, 17, true),
        ElementsAre("OVRadioSetConfig(17, 26, 1050)", "OVRadioSetLevel(17)", "OVRadioSetMode(17)"));
    Console.Fail("OVRadioSetLevel", 2); // Of the pods too.
    EXPECT_THAT(CallsOfPilot(1, 26, 16, false),
                ElementsAre("OVRadioSetConfig(17, 26, 1050)", "OVRadioSetLevel(16)"));
}

TEST(Radio, WaitsForPodsThatLeaveOnAThreadOfTheConsole) {
    StartO150();
    RadioSetConfigO150(RadioPilote, 12, 3);
    for (uint8_t id = 0; id < 50; ++id) {
        DeviceCb(id, RadioPod, true);
        AcceptDeviceO150(id);
    }
    static std::atomic<bool> waiting = false;
    std::jthread console;
    Console.OnCall = [&](const std::string& operation) {
        if (operation == "OVRadioReleaseDevice" && !console.joinable()) {
            console = std::jthread([] {
                for (uint8_t id = 0; id < 49; ++id) {
                    DeviceCb(id, RadioPod, false);
                }
                waiting.wait(false); // The last one leaves under the eyes of the host.
                DeviceCb(49, RadioPod, false);
            });
        }
    };
    UsePause([](unsigned long milliseconds) {
        waiting = true;
        waiting.notify_one();
        while (std::atomic_ref(GetRadioDeviceO150(49)->Connecte) != 0 ||
               GetNbPodConnectedO150() != 0) {
            std::this_thread::yield();
        }
        FakeNanoseconds += static_cast<int64_t>(milliseconds) * 1'000'000;
    });
    EXPECT_TRUE(RadioSetConfigNoneO150());
    EXPECT_EQ(FakeNanoseconds, 100'000'000);
}
