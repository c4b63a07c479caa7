// The radio network: start to stop, table, configuration, mode, and what the host is told.

#include "connection/console_memory.h"
#include "driver_exports.h"
#include "tests/support/fake_time.h"
#include "tests/support/scripted_console.h"

#include <wx/app.h>

#include <gmock/gmock.h>

#include <climits>
#include <semaphore>
#include <thread>

using namespace orvane;

namespace {

using namespace testing;

/// The calls of one action: "SetConfig(17, 12, 1050) SetLevel(4) ".
std::string CallsOf(const std::function<void()>& action) {
    Console.TakeCalls();
    action();
    std::string calls;
    for (const std::string& call : Console.TakeCalls()) {
        calls += call.substr(call.starts_with("OVRadio") ? 7 : 0) + " ";
    }
    return calls;
}

std::string CallsOfConfig(int type, uint8_t canal, int niveau, bool result = true) {
    return CallsOf([&] {
        const auto device = static_cast<tRadioDeviceType>(type);
        EXPECT_EQ(RadioSetConfigO150(device, canal, static_cast<char>(niveau)), result);
    });
}

std::string CallsOfMode(tRadioMode mode) {
    return CallsOf([&] { RadioSetModeO150(mode); });
}

/// The calls of a pilot configuration from these bytes, in a network of pods.
std::string CallsOfPilot(int flag, int canal, int niveau, bool result) {
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

TEST(Radio, StartsAndStopsWithTheDriverAndTellsTheHostLater) {
    UseFakeTime();
    wxAppConsole* host = wxAppConsole::GetInstance();
    std::vector<void*> told;
    const auto note = [&](const wxCommandEvent& event) { told.push_back(event.GetClientData()); };
    host->Bind(wxEVT_MENU, note, 7202);
    Console.Model = 12336;
    Console.Memory.assign(32768, 0);
    Console.Memory[7178] = 20;
    EXPECT_THAT(
        CallsOf([] { EXPECT_TRUE(StartDll(0, "", "fr", 0)); }),
        EndsWith("OVGetInterfaceDesc() SetCallback(callback) OVSetPlugCallback(callback) "));
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
    EXPECT_EQ(CallsOf(StopDll), "OVSetPlugCallback(null) SetMode(16) ReleaseDevice(3) SetMode(19) "
                                "SetConfig(0, 11, 1050) ShutdownConsole() OVRelease() ");
    EXPECT_EQ(FakeNanoseconds, 3'000'000'000) << "for pod 4, which stays";
    EXPECT_THAT(Device(4), ElementsAre(0, 0, 0));
    EXPECT_THAT(told, IsEmpty());
    host->ProcessPendingEvents();
    EXPECT_THAT(told, ElementsAre(reinterpret_cast<void*>(1), nullptr));

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
    EXPECT_EQ(CallsOfConfig(17, 12, 3) + CallsOfMode(RadioModeOuvert), "");
    EXPECT_EQ(CallsOf([] { EXPECT_TRUE(RadioSetConfigNoneO150()); }), "");
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
    EXPECT_EQ(CallsOf([] {
                  for (const int index : {-1, 50, INT_MIN, INT_MAX}) {
                      AcceptDeviceO150(index);
                      EXPECT_EQ(GetRadioDeviceO150(index), nullptr);
                  }
                  EXPECT_TRUE(RadioPingDeviceO150(255));
              }),
              "Ping(255, 500, 5) ");
}

TEST(Radio, SendsWhatChangesAndKeepsNothingThatIsRefused) {
    StartO150();
    EXPECT_EQ(CallsOfMode(RadioModeOuvert), ""); // Without configuration only noted.
    EXPECT_EQ(CallsOfConfig(16, 12, -4), "SetConfig(16, 12, 1050) SetLevel(-4) ");
    EXPECT_EQ(CallsOfConfig(16, 12, -4), "");
    EXPECT_EQ(CallsOfConfig(16, 13, -4), "SetConfig(16, 13, 1050) ");
    EXPECT_EQ(CallsOfMode(RadioModeOuvert), "");
    for (const char* operation : {"OVRadioSetMode", "OVRadioSetConfig", "OVRadioSetLevel"}) {
        Console.Fail(operation, 1);
    }
    EXPECT_EQ(CallsOfMode(RadioModePilote), "SetMode(17) ");
    EXPECT_EQ(CallsOfMode(RadioModePilote), "SetMode(17) ");
    EXPECT_EQ(CallsOfConfig(18, 14, 17, false), "SetConfig(18, 14, 1050) ");
    EXPECT_EQ(CallsOfConfig(18, 14, 17, false), "SetConfig(18, 14, 1050) SetLevel(17) ");
    EXPECT_EQ(CallsOfConfig(18, 14, 17), "SetLevel(17) ");
    EXPECT_EQ(CallsOf(RadioSetConfigNoneO150), "SetConfig(0, 11, 1050) ");
    EXPECT_EQ(CallsOf(RadioSetConfigNoneO150), "SetConfig(0, 11, 1050) ");
    EXPECT_EQ(CallsOfConfig(16, 12, 0), "SetConfig(16, 12, 1050) ");
}

TEST(Radio, PilotTakesTheStoredConfigurationWithinItsLimits) {
    StartO150();
    EXPECT_EQ(CallsOfPilot(0, 12, 3, false) + CallsOfPilot(2, 12, 3, false), "");
    for (const auto& [canal, niveau] : {std::pair{10, 3}, {27, 3}, {11, -5}, {26, 18}}) {
        EXPECT_EQ(CallsOfPilot(1, canal, niveau, false), "SetMode(17) ");
        EXPECT_EQ(GetCanalReelO150(), canal == 26 ? 26 : 11);
    }
    EXPECT_EQ(CallsOfPilot(1, 11, -4, true), "SetConfig(17, 11, 1050) SetLevel(-4) SetMode(17) ");
    EXPECT_EQ(CallsOfPilot(1, 26, 17, true), "SetConfig(17, 26, 1050) SetLevel(17) SetMode(17) ");
    Console.Fail("OVRadioSetLevel", 2); // Of the pods too.
    EXPECT_EQ(CallsOfPilot(1, 26, 16, false), "SetConfig(17, 26, 1050) SetLevel(16) ");
}

TEST(Radio, WaitsForPodsThatLeaveOnAThreadOfTheConsole) {
    static std::binary_semaphore waiting{0};
    static unsigned long waited = 0;
    StartO150();
    RadioSetConfigO150(RadioPilote, 12, 3);
    for (uint8_t id = 0; id < 50; ++id) {
        DeviceCb(id, RadioPod, true);
        AcceptDeviceO150(id);
    }
    std::jthread console;
    Console.OnCall = [&](const std::string& operation) {
        if (operation == "OVRadioReleaseDevice" && !console.joinable()) {
            console = std::jthread([] {
                for (uint8_t id = 0; id < 49; ++id) {
                    DeviceCb(id, RadioPod, false);
                }
                waiting.acquire(); // The last one leaves under the eyes of the host.
                DeviceCb(49, RadioPod, false);
            });
        }
    };
    UsePause([](unsigned long milliseconds) {
        waited += milliseconds;
        waiting.release();
        while (std::atomic_ref(GetRadioDeviceO150(49)->Connecte) != 0 ||
               GetNbPodConnectedO150() != 0) {
            std::this_thread::yield();
        }
    });
    EXPECT_TRUE(RadioSetConfigNoneO150());
    EXPECT_EQ(waited, 100U);
}

} // namespace
