// Adapters that come and go while a host does something with them.

#include "console/console_port.h"
#include "console/laboratory/console_clock.h"
#include "platform/clock.h"
#include "tests/laboratory/laboratory_fixture.h"
#include "tests/support/answer_text.h"

#include <gmock/gmock.h>

#include <atomic>
#include <sstream>
#include <thread>
#include <utility>

namespace orvane {

namespace {

using platform::Pause;

/// An entry of the timeline: "10 -1 +2" pulls v1 and plugs v2 after 10 s.
std::string Entry(const std::string& text) {
    std::istringstream words(text);
    std::string time;
    words >> time;
    std::string entry = std::string("\"").append(time) + "\" = [";
    for (std::string word; words >> word;) {
        entry += word[0] == '+' ? "{ plug" : "{ unplug";
        entry += " = \"v" + word.substr(1) + "\" }, ";
    }
    return entry + "]\n";
}

class LaboratoryTimeline : public LaboratoryTest {
protected:
    /// Two voltmeters that show 0.5 V, one with presets of 5 s, and what happens to them.
    bool StartTwo(const std::vector<std::string>& timeline) {
        const std::string volts = "signal = [{ pwl = [0, 0.5] }]";
        return StartOver(Voltmeter(1, volts) + Voltmeter(2, volts) +
                             "[adapter.v1.adjustment]\nmode = 2\nstates = [\"\", \"\"]\n"
                             "preset_time = 5\n",
                         timeline);
    }

    bool StartOver(std::string toml, const std::vector<std::string>& timeline) {
        toml += "[timeline]\n";
        for (const std::string& entry : timeline) {
            toml += Entry(entry);
        }
        return Start(toml);
    }

    /// Enumerates again if anything has changed.
    /// \return whether it has
    bool Changed() {
        const bool changed = !VerifCanaux();
        Inputs = changed ? CombienDeCanauxEnEntree() : Inputs;
        return changed;
    }
};

/// Time on the console's clock, in ms.
int64_t NowMs() {
    return laboratory::NowNs() / 1'000'000;
}

/// What was reported: "+1 " and "-1 " for the adapter of connector 1.
std::string reported;
int depth = 0;

void Note(uint8_t connector, bool plugged) {
    EXPECT_EQ(depth++, 0) << "a report inside a report";
    reported.append(plugged ? "+" : "-").append(std::to_string(connector) + " ");
    Pause(300); // The next becomes due meanwhile, and the driver asks back.
    tAdapterDesc desc{};
    EXPECT_EQ(OVGetAdapterDesc(connector, &desc), plugged);
    double value = 0.0;
    OVReadValue(2, 0, 1, 0, &value);
    --depth;
}

TEST_F(LaboratoryTimeline, ReportsInOrderFromInsideOneOperation) {
    ASSERT_TRUE(StartTwo({"10 -1 +1 -1", "10.5 -2 -2", "20 +1"}));
    OVSetPlugCallback(Note);
    EXPECT_EQ(reported, "+1 +2 ");
    reported.clear();
    Pause(9'000);
    OVAutoStop();
    EXPECT_EQ(reported, "");
    Pause(1'000);
    OVAutoStop();
    EXPECT_EQ(reported, "-1 +1 -1 -2 ");
    Pause(10'000);
    OVSetPlugCallback(nullptr);
    EXPECT_FALSE(OVSelectCalibre(2, 0, 1)) << "without a callback all goes on";
    EXPECT_TRUE(OVSelectCalibre(1, 0, 1));
    EXPECT_EQ(reported, "-1 +1 -1 -2 ");
}

TEST_F(LaboratoryTimeline, OpeningAccountsForWhatHappenedBefore) {
    const std::vector<std::string> timeline{"0 -1", "1 +1 -2"};
    for (int start = 0; start < 2; ++start) {
        ASSERT_TRUE(StartTwo(timeline));
        EXPECT_EQ(Inputs, 1);
        EXPECT_TRUE(VerifCanaux()) << "nothing is reported on top";
        Pause(1'000);
        EXPECT_EQ(QuelValeurPour(0), 0.0);
        EXPECT_TRUE(Changed());
        EXPECT_EQ(QuelValeurPour(0), 0.5);
    }
    Pause(10'000);
    OVRelease(); // Opened again after a refused connection.
    ASSERT_TRUE(OVOpen({}));
    OVSetPlugCallback(Note);
    EXPECT_EQ(reported, "+1 ");
}

TEST_F(LaboratoryTimeline, PulledAdapterKeepsItsSettings) {
    ASSERT_TRUE(StartTwo({"1 -1", "2 +1"}));
    MetCalibrePour(0, 1);
    DebutCalibrationPour(0);
    MetCalibrationValuePour(0, 0, 0.25); // In the middle of this calibration.
    Pause(1'000);
    MetCalibrationValuePour(0, 0, 0.75);
    EXPECT_TRUE(Changed());
    EXPECT_EQ(Inputs, 1);
    EXPECT_FALSE(OVCalibrationStart(1, 0) || OVCalibrationDefault(1, 0) ||
                 OVWriteAdjustment(1, 1, 1.0) || OVSelectCalibre(1, 0, 0));
    Pause(1'000);
    OVAutoStop();
    EXPECT_TRUE(Changed());
    EXPECT_EQ(Text(Inputs, QuelMaxPour(0), QuelValeurPour(0)), "2 | 1 | 0.25 | ");
    MetCalibrationValuePour(0, 0, 0.75); // It goes on.
    EXPECT_EQ(QuelValeurPour(0), 0.75);
    AbandonCalibrationPour(0);
    EXPECT_EQ(QuelValeurPour(0), 0.5);
}

TEST_F(LaboratoryTimeline, RunLosesTheSamplesOfAPulledAdapter) {
    ASSERT_TRUE(StartTwo({"1 -1", "6 +1", "12 -2"}));
    const auto sample = [](int32_t channel) { return RecuperationPoint(channel, 9); };
    InitAcqBuff(1e-3, 3'000, 3, 0);
    StartAcqBuff(0, 0, 0.0, 0);
    while (NowMs() < 950) {
        EXPECT_FALSE(TestFinAcq());
    }
    EXPECT_EQ(Text(sample(0), sample(1)), "0.5 | 0.5 | ");
    Pause(100);
    TestFinAcq();
    EXPECT_EQ(Text(sample(0), sample(1)), "0 | 0 | ") << "a change that isn't noted";
    EXPECT_TRUE(Changed());
    EXPECT_EQ(Text(sample(0), sample(1)), "0 | 0.5 | ");
    Pause(3'000);
    StopAcqBuff();
    EXPECT_EQ(Text(sample(0), sample(1)), "0 | 0.5 | ") << "fetched";

    StartAcqBuff(0, 0, 0.0, 0);
    Pause(3'000);
    EXPECT_TRUE(TestFinAcq() && Changed());
    EXPECT_EQ(Text(sample(0), sample(1)), "0.5 | 0.5 | ") << "plugged in again during the run";
    Pause(static_cast<unsigned long>(11'990 - NowMs()));
    std::vector<double> block(4, 0.0);
    uint32_t got = 0;
    EXPECT_TRUE(OVAutoGetPoints(2, 0, 0, 2, block.data(), &got)); // In the middle of a fetch.
    Pause(10);
    EXPECT_FALSE(OVAutoGetPoints(2, 0, 2, 2, block.data(), &got));
    EXPECT_THAT(block, testing::ElementsAre(0.5, 0.5, 0, 0));
    uint32_t count = 0;
    EXPECT_FALSE(OVAutoGetPointCount(2, 0, 0, &count));
    EXPECT_TRUE(OVAutoGetPointCount(1, 0, 0, &count));
}

TEST_F(LaboratoryTimeline, TriggerNeedsItsAdapter) {
    const std::string wave = "signal = [{ sin = [0, 5, 1] }]";
    ASSERT_TRUE(
        StartOver(Voltmeter(1, wave) + Voltmeter(2, wave), {"0.1 -1", "20.7 +1", "22.1 -1"}));
    InitAcqBuff(1e-3, 1'000, 2, 0);
    StartAcqBuff(1, 1, 0.0, 0);
    const auto points = [](unsigned long pause) {
        Pause(pause);
        TestNombreDePointAcqui();
        VerifCanaux();
        return TestNombreDePointAcqui();
    };
    EXPECT_EQ(points(500), 0);
    EXPECT_EQ(points(15'000), 0);
    EXPECT_EQ(points(5'000), 0) << "a crossing comes at 21 s";
    EXPECT_EQ(points(3'000), 1'000);
}

TEST_F(LaboratoryTimeline, PresetOfAPulledAdapterWaitsNoLongerThanAny) {
    ASSERT_TRUE(StartTwo({"1 -1", "2 +1", "10 -1"}));
    for (const double end : {5'050.0, 11'100.0}) {
        PresetAdaptateurPour(0, 2);
        EXPECT_NEAR(static_cast<double>(NowMs()), end, 100.0);
        EXPECT_TRUE(Changed());
    }
    EXPECT_EQ(Inputs, 1);
}

/// What the spirometer's thread reads finds the adapter in, or not; the report is the host's.
TEST_F(LaboratoryTimeline, OtherThreadsLeaveTheReportToTheHosts) {
    ASSERT_TRUE(StartTwo({"1 -1", "1.001 +1"}));
    OVSetPlugCallback([](uint8_t connector, bool plugged) {
        EXPECT_TRUE(laboratory::IsHostThread());
        reported.append(plugged ? "+" : "-").append(std::to_string(connector) + " ");
    });
    std::atomic<int> readings{0};
    std::jthread reader([&readings](const std::stop_token& stop) {
        for (; !stop.stop_requested(); ++readings) {
            double value = 0.5;
            tFunctionDesc desc{};
            OVReadValue(1, 0, 1, 0, &value);
            OVGetFunctionDesc(1, 0, 0, &desc);
            EXPECT_EQ(value, 0.5);
        }
    });
    reported.clear();
    Pause(1'000);
    for (const int end = readings + 500; readings < end;) {
        std::this_thread::yield();
    }
    EXPECT_EQ(reported, "");
    double value = 0.0;
    OVReadValue(2, 0, 1, 0, &value);
    EXPECT_THAT(reported, testing::StartsWith("-1 "));
}

class LaboratoryTimelineClocks : public LaboratoryTimeline,
                                 public testing::WithParamInterface<const char*> {};

TEST_P(LaboratoryTimelineClocks, FireInTime) {
    setenv("ORVANE_CLOCK", GetParam(), 1);
    ASSERT_TRUE(StartTwo({"0.5 -1", "0.6 +1"}));
    for (const int64_t due : {500, 600}) {
        int64_t begin = 0;  // Of the last call,
        int64_t before = 0; // and of the one before, which reported nothing.
        while (VerifCanaux()) {
            before = std::exchange(begin, NowMs());
            QuelValeurPour(1);
        }
        EXPECT_LT(before, due);
        EXPECT_GE(NowMs(), due);
    }
    EXPECT_EQ(CombienDeCanauxEnEntree(), 2);
}

INSTANTIATE_TEST_SUITE_P(Each, LaboratoryTimelineClocks,
                         testing::Values("real", "scaled:2", "virtual"));

} // namespace

} // namespace orvane
