// A card that falls through the gates, as a host sees it.

#include "console/console_port.h"
#include "platform/clock.h"
#include "tests/laboratory/laboratory_fixture.h"

#include <gmock/gmock.h>

#include <climits>
#include <cmath>
#include <vector>

namespace orvane {

namespace {

using namespace testing;

std::string GateAdapter(int connector, const std::string& keys) {
    return "[adapter.g" + std::to_string(connector) +
           "]\nkind = \"gates\"\nconnector = " + std::to_string(connector) + "\n" + keys + "\n";
}

const std::string bench = GateAdapter(3, "door = 0.05\nforks = [[0.3, 0.32]]");

/// When something that falls freely is this far down.
double Falls(double distance, double gravity = 9.81) {
    return std::sqrt(2.0 * distance / gravity);
}

class LaboratoryGates : public LaboratoryTest {
protected:
    /// Polls until the end, no more often than that.
    static bool Wait(int most = 1000) {
        while (!TestEndOfLogPortimetre() && most > 0) {
            --most;
        }
        return most > 0;
    }

    /// The times of a run's rays after its door.
    static std::vector<double> Times(int forks) {
        EXPECT_TRUE(StartAcquisitionPortimetre(forks));
        EXPECT_TRUE(Wait());
        std::vector<double> times;
        for (int ray = 0; ray < 2 * forks; ++ray) {
            times.push_back(GetTimeRayPortimetre(ray));
        }
        return times;
    }
};

TEST_F(LaboratoryGates, TimeAFreeFall) {
    for (const double gravity : {9.81, 1.62}) {
        ASSERT_TRUE(Start(bench + "[body.card]\ngravity = " + std::to_string(gravity)));
        EXPECT_EQ(Inputs, 0) << "gates are no inputs";
        const std::vector<double> times = Times(1);
        for (const size_t ray : {0U, 1U}) {
            const double expected =
                Falls(0.3 + 0.02 * static_cast<double>(ray), gravity) - Falls(0.05, gravity);
            EXPECT_NEAR(times[ray], expected, 1.01e-7);
            EXPECT_NEAR(times[ray] * 1e7, std::round(times[ray] * 1e7), 1e-5)
                << "rounded to 100 ns";
        }
        EXPECT_EQ(Times(1), times) << "each card falls the same";
    }
}

TEST_F(LaboratoryGates, TimeAFallWithDrag) {
    constexpr double terminal = 2.5;
    ASSERT_TRUE(Start(GateAdapter(1, "forks = [[0.4, 1.9]]") +
                      "[body.card]\nterminal_speed = " + std::to_string(terminal)));
    // The middle of each step of v' = g (1 - v²/v∞²).
    const auto falls = [](double distance) {
        constexpr double step = 1e-6;
        double time = 0.0;
        double speed = 0.0;
        for (double at = 0.0; at < distance; time += step) {
            const auto gains = [](double v) { return 9.81 * (1.0 - v * v / terminal / terminal); };
            const double middle = speed + gains(speed) * step / 2.0;
            speed += gains(middle) * step;
            at += middle * step;
        }
        return time;
    };
    EXPECT_THAT(Times(1), Pointwise(DoubleNear(3e-6), {falls(0.4), falls(1.9)}));
    ASSERT_TRUE(Start(GateAdapter(1, "forks = [[1, 2]]") + "[body.card]\nterminal_speed = 1e-300"));
    EXPECT_TRUE(StartAcquisitionPortimetre(1));
    EXPECT_FALSE(Wait()) << "nobody lives to see it";
}

TEST_F(LaboratoryGates, OfSeveralAdaptersAreLoggedInTheOrderOfTime) {
    ASSERT_TRUE(Start(GateAdapter(4, "forks = [[0.9, 0.92], [1.0, 1.02]]") +
                      GateAdapter(2, "forks = [[0.7, 0.72]]") + Voltmeter(1, "") +
                      GateAdapter(3, "forks = [[0.3, 0.32], [0.5, 0.52]]")));
    std::vector<double> expected;
    for (const double at : {0.3, 0.32, 0.5, 0.52, 0.7, 0.72, 0.9, 0.92, 1.0, 1.02}) {
        expected.push_back(Falls(at));
    }
    EXPECT_THAT(Times(5), Pointwise(DoubleNear(1.01e-7), expected));
    expected.resize(6);
    EXPECT_THAT(Times(3), Pointwise(DoubleNear(1.01e-7), expected)) << "only those that are armed";
}

TEST_F(LaboratoryGates, ReadNonZeroWhileTheCardIsInThem) {
    ASSERT_TRUE(Start(bench + "[body.card]\nlength = 0.2\nafter_arming = 0.3\n"));
    const auto states = [] {
        return std::vector{IsPorteClosedPortimetre() ? 0 : 1, GetEtatFourchePortimetre(-1),
                           GetEtatFourchePortimetre(0), GetEtatFourchePortimetre(1)};
    };
    const std::vector atTheTop{0, 0, 0, 0};
    EXPECT_EQ(states(), atTheTop);
    StartAcquisitionPortimetre(2); // It waits for a fork that isn't there.
    const double start = GetTimeResolu();
    int inAGate = 0;
    for (int poll = 0; poll < 100; ++poll) {
        const double falling = (GetTimeResolu() - start) * 1e-6 - 0.3;
        const auto isIn = [&](double at) {
            return falling >= Falls(at) && falling < Falls(at + 0.2) ? 1 : 0;
        };
        const std::vector expected{falling >= Falls(0.05) ? 1 : 0, 0, isIn(0.3), isIn(0.32)};
        EXPECT_EQ(states(), expected) << falling;
        inAGate += expected[2];
        TestEndOfLogPortimetre();
    }
    EXPECT_THAT(inAGate, Ge(5));
    EXPECT_EQ(states(), (std::vector{1, 0, 0, 0})) << "the card has passed";
    GetTimeRayPortimetre(0);
    EXPECT_EQ(states(), atTheTop);
}

TEST_F(LaboratoryGates, RunThatIsGivenUpKeepsWhatWasCrossed) {
    ASSERT_TRUE(Start(GateAdapter(3, "forks = [[0.3, 0.5]]")));
    const std::vector<double> times = Times(1);
    StartAcquisitionPortimetre(1);
    EXPECT_EQ(GetTimeRayPortimetre(0), 0.0) << "of a card that has not been released";
    EXPECT_FALSE(Wait(100)) << "nothing is crossed any more";
    StartAcquisitionPortimetre(1);
    for (uint32_t count = 0; count < 2;) {
        OVAutoGetLogCount(&count);
    }
    GetNombreDeFourcheMaxPortimetre(); // Which stops the run.
    EXPECT_EQ(GetTimeRayPortimetre(0), times[0]);
    EXPECT_EQ(GetTimeRayPortimetre(1), 0.0);
    EXPECT_EQ(Times(1), times);
}

TEST_F(LaboratoryGates, LeaveAcquisitionsAlone) {
    ASSERT_TRUE(Start(bench + Voltmeter(1, "signal = [{ sin = [1, 2, 5] }]\nalign = \"run\"")));
    const auto acquire = [] {
        InitAcqBuff(1e-3, 100, 1, 0);
        StartAcqBuff(0, 0, 0.0, 0);
        for (int polls = 0; !TestFinAcq() && polls < 1000; ++polls) {
        }
        StopAcqBuff();
        return RecuperationPoint(0, 70);
    };
    const double sample = acquire();
    EXPECT_GT(sample, 1.0);
    const std::vector<double> times = Times(1);
    EXPECT_EQ(acquire(), sample) << "without a new set-up";
    StartAcqBuff(0, 0, 0.0, 0); // Which goes on while a run over gates begins.
    EXPECT_EQ(Times(1), times);
    uint8_t trigger = 0;
    EXPECT_TRUE(OVAutoConfigSynchro(3, 6, 0, 0, 0.0, &trigger));
    InitAcqBuff(1e-3, 101, 1, 0);
    EXPECT_EQ(acquire(), sample) << "not a run over the gate";
}

TEST_F(LaboratoryGates, RefuseWhatTheyAreNot) {
    ASSERT_TRUE(Start(bench));
    double value = 7.0;
    tChannelDesc desc{};
    for (const uint8_t channel : std::vector<uint8_t>{0, 1, 2, 5, 8}) {
        EXPECT_FALSE(OVReadValue(3, channel, 1, 0, &value) || OVGetChannelDesc(3, channel, &desc));
    }
    EXPECT_FALSE(OVAutoAddChannel(3, 6));
    StartAcquisitionPortimetre(1);
    OVAutoConfigLog(2); // Of the next run.
    Wait();
    tLogEntry entry{7, 7};
    for (const int32_t number : {INT_MIN, -1, 3, INT_MAX}) {
        EXPECT_FALSE(OVAutoGetLogEntry(number, &entry));
    }
    EXPECT_EQ(value + entry.Secondes + entry.Nanosecondes, 21.0) << "nothing was written";
    uint8_t trigger = 0;
    for (const uint8_t channel : std::vector<uint8_t>{3, 6, 7}) {
        OVAutoConfigSynchro(3, channel, 0, 0, 0.0, &trigger);
    }
    EXPECT_TRUE(OVAutoStart());
    Wait(100);
    EXPECT_TRUE(OVAutoGetLogEntry(1, &entry));
    EXPECT_FALSE(OVAutoGetLogEntry(2, &entry)) << "the log is full";
}

TEST_F(LaboratoryGates, LogNothingWhenTheyArePulled) {
    ASSERT_TRUE(Start(bench + GateAdapter(4, "forks = [[0.1, 0.12]]") +
                      "[timeline]\n\"0.7\" = [{ unplug = \"g3\" }]\n"));
    StartAcquisitionPortimetre(2);
    platform::Pause(720); // The card has left the door and the fork above the other one.
    EXPECT_FALSE(Wait(200));
    uint32_t count = 0;
    OVAutoGetLogCount(&count);
    EXPECT_EQ(count, 3U);
    EXPECT_FALSE(VerifCanaux());
}

} // namespace

} // namespace orvane
