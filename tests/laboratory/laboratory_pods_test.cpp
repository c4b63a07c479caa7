// The pods of the laboratory's radio network, over the driver and on their own.

#include "console/console_port.h"
#include "console/laboratory/console_clock.h"
#include "platform/clock.h"
#include "radio_exports.h"
#include "tests/laboratory/laboratory_fixture.h"
#include "tests/support/answer_text.h"

#include <atomic>
#include <mutex>

namespace orvane {

namespace {

using platform::Pause;

/// What the pods reported: "+3@200 " and "-3@200 " for pod 3 at 200 ms. The pods' thread writes it.
std::mutex notesLock;
std::string notes;

void Note(uint8_t id, tRadioDeviceType type, bool connected) {
    EXPECT_EQ(type, RadioPod);
    const std::scoped_lock lock(notesLock);
    notes.append(connected ? "+" : "-").append(std::to_string(id)).append("@");
    notes.append(std::to_string(laboratory::NowNs() / 1'000'000)).append(" ");
}

std::string TakeNotes() {
    const std::scoped_lock lock(notesLock);
    return std::exchange(notes, "");
}

class LaboratoryPods : public LaboratoryTest {
protected:
    bool StartWith(const std::string& pods, const std::string& clock = "virtual") {
        setenv("ORVANE_CLOCK", clock.c_str(), 1);
        return Start("console = { model = 12336 }\n[radio]\nchannel = 20\npods = [" + pods + "]\n");
    }

    const std::string Three =
        "{ id = 3, joins = 0.2, leaves = 0.25 }, { id = 7, joins = 0.4, leaves "
        "= 0.05, pings = false }, { id = 9, joins = 0.4, leaves = 1 }";
};

TEST_F(LaboratoryPods, ComeWithThePilotAndGoWithIt) {
    ASSERT_TRUE(StartWith(Three));
    Pause(10'000);
    EXPECT_EQ(GetNbPodConnectedO150(), 0) << "nobody opened the network";
    ASSERT_TRUE(RadioSetConfigPilotO150());
    std::string pods;
    for (const unsigned long pause : {199UL, 1UL, 199UL, 1UL}) {
        Pause(pause);
        pods += Text(GetNbPodConnectedO150(), RadioPingDeviceO150(3), RadioPingDeviceO150(7));
    }
    EXPECT_EQ(pods, "0 | 0 | 0 | 1 | 1 | 0 | 1 | 1 | 0 | 3 | 1 | 0 | ");
    AcceptDeviceO150(3);
    AcceptDeviceO150(4);
    EXPECT_EQ(Text(GetRadioDeviceO150(3)->Accepte, GetRadioDeviceO150(4)->Accepte), "1 | 0 | ");
    const int64_t before = laboratory::NowNs();
    EXPECT_TRUE(RadioSetConfigNoneO150());
    EXPECT_EQ((laboratory::NowNs() - before) / 1'000'000, 1'000) << "until the last has left";
    EXPECT_FALSE(RadioPingDeviceO150(3));
    RadioSetConfigPilotO150();
    Pause(300);
    RadioSetConfigNoneO150();
    Pause(10'000);
    EXPECT_EQ(GetNbPodConnectedO150(), 0) << "who was on the way stays away";
}

TEST_F(LaboratoryPods, ReportAtTheirTimeWhateverMovesIt) {
    ASSERT_TRUE(StartWith(Three));
    OVRadioSetCallback(Note);
    ASSERT_TRUE(OVRadioSetMode(RadioModeOuvert));
    Pause(3'000);
    EXPECT_EQ(TakeNotes(), "+3@200 +7@400 +9@400 ");
    EXPECT_TRUE(OVRadioReleaseDevice(9));
    EXPECT_FALSE(OVRadioReleaseDevice(4));
    Pause(500);
    OVRadioSetMode(RadioModeOuvert); // It leaves first, and comes again.
    Pause(1'000);
    EXPECT_EQ(TakeNotes(), "-9@4000 +9@4400 ");
    OVRadioSetMode(RadioModeFerme);
    OVRadioSetCallback(nullptr);
    Pause(100);
    OVRadioSetCallback(Note);
    Pause(2'000);
    EXPECT_EQ(TakeNotes(), "-3@4750 -9@5500 ") << "7 left when nobody listened";
    OVRadioSetConfig(RadioPilote, 20, 1050);
    int looks = 0;
    for (const double end = GetTimeResolu() + 330e3; GetTimeResolu() < end;) {
        ++looks;
    }
    EXPECT_EQ(TakeNotes(), "+3@6800 +7@7000 +9@7000 ");
    EXPECT_LT(looks, 20) << "a host that only waits gets there";
    EXPECT_FALSE(OVRadioSetLevel(18) || OVRadioSetConfig(RadioPilote, 10, 1050));
}

std::mutex hosts; ///< What a callback needs while the host has it.

TEST_F(LaboratoryPods, HostIsNotHeldByACallbackThatWaitsForIt) {
    ASSERT_TRUE(StartWith(Three));
    OVRadioSetCallback([](uint8_t id, tRadioDeviceType type, bool connected) {
        const std::scoped_lock lock(hosts);
        Note(id, type, connected);
    });
    const std::string waiting = [] {
        const std::scoped_lock lock(hosts);
        OVRadioSetConfig(RadioPilote, 20, 1050);
        const int64_t before = platform::MachineNanoseconds();
        Pause(300);
        Pause(300);
        EXPECT_LT(platform::MachineNanoseconds() - before, 5'000'000'000);
        return TakeNotes();
    }();
    EXPECT_EQ(waiting, "");
    for (std::string all; all != "+3@600 +7@600 +9@600 ";) {
        Pause(0);
        all += TakeNotes();
    }
}

TEST_F(LaboratoryPods, FollowTheMachineInTheOtherClocks) {
    for (const std::string clock : {"real", "scaled:20"}) {
        ASSERT_TRUE(StartWith("{ id = 1, joins = 0.05, leaves = 0.02 }", clock));
        RadioSetConfigPilotO150();
        const int64_t begin = laboratory::NowNs();
        while (GetNbPodConnectedO150() == 0) {
        }
        EXPECT_GE(laboratory::NowNs() - begin, 49'000'000);
        RadioSetConfigNoneO150();
        EXPECT_FALSE(RadioPingDeviceO150(1));
    }
}

TEST_F(LaboratoryPods, ThreadEndsWithEachStop) {
    for (int start = 0; start < 30; ++start) {
        ASSERT_TRUE(StartWith("{ id = 1, joins = 0.0001, leaves = 0.001 }, { id = 2, joins = 5 }",
                              start % 2 == 0 ? "real" : "virtual"));
        RadioSetConfigPilotO150();
        if (start % 3 == 0) {
            ShutdownConsole(); // The export alone, with pods on their way.
            EXPECT_FALSE(RadioPingDeviceO150(1));
        }
        StopDll();
        EXPECT_EQ(GetNbPodConnectedO150(), 0);
    }
    ASSERT_TRUE(Start("[radio]\npods = [{ id = 1 }]\n"));
    EXPECT_FALSE(OVRadioSetConfig(RadioPilote, 20, 1050)) << "a model without a radio";
}

} // namespace

} // namespace orvane
