#include "tests/laboratory/laboratory_fixture.h"

#include <gmock/gmock.h>

#include <cmath>
#include <numbers>
#include <vector>

namespace orvane {

namespace {

using namespace testing;

const std::string model12368 = "console = { model = 12368 }\n";
const std::string output = "[[output]]\nname = \"Sortie analogique 1\"\nrange = [-10, 10]\n";

class LaboratoryRun : public LaboratoryTest {
protected:
    /// Waits for a run's end, no longer than so many polls.
    /// \return polls
    static int Wait(int most = 1000) {
        int polls = 0;
        while (!TestFinAcq() && polls < most) {
            ++polls;
        }
        return polls;
    }

    static std::vector<double> Samples(int32_t channel, int first, int count) {
        std::vector<double> samples;
        for (int i = first; i < first + count; ++i) {
            samples.push_back(RecuperationPoint(channel, static_cast<uint32_t>(i)));
        }
        return samples;
    }

    /// A run to its end; live samples of the first channel before the stop.
    static std::vector<double> Run(double period, int points, uint32_t mask = 1) {
        InitAcqBuff(period, points, mask, 0);
        StartAcqBuff(0, 0, 0.0, 0);
        Wait();
        std::vector<double> live = Samples(0, 0, points);
        StopAcqBuff();
        EXPECT_EQ(Samples(0, 0, points), live) << "fetched as live";
        return live;
    }
};

TEST_F(LaboratoryRun, FollowsTheConsolesTime) {
    ASSERT_TRUE(Start(Voltmeter(1, "signal = [{ sin = [1, 2, 5] }]\nalign = \"run\"")));
    const std::vector<double> samples = Run(1e-3, 400);
    for (size_t i = 0; i < samples.size(); ++i) {
        const double turns = 5e-3 * static_cast<double>(i);
        EXPECT_NEAR(samples[i], 1.0 + 2.0 * std::sin(2.0 * std::numbers::pi * turns), 1e-9);
    }
    EXPECT_EQ(Run(1e-3, 400), samples) << "t = 0 is the start of each run";
    InitAcqBuff(1e-3, 3'600'000, 1, 0);
    StartAcqBuff(0, 0, 0.0, 0);
    EXPECT_THAT(Wait(), Le(110)) << "an hour in some hundred polls";
    EXPECT_EQ(TestNombreDePointAcqui(), 3'600'000);
}

TEST_F(LaboratoryRun, AppliesThePeriodThatItsChannelsKeepUpWith) {
    ASSERT_TRUE(Start(model12368 + Voltmeter(1, "shortest_period = 2e-4")));
    EXPECT_DOUBLE_EQ(InitAcqBuff(1e-5, 10, 1, 0), 2e-4);
    EXPECT_DOUBLE_EQ(InitAcqBuff(3e-4, 10, 1, 0), 3e-4);
}

TEST_F(LaboratoryRun, NewRunOfTheSameSetupGoesOnInTime) {
    ASSERT_TRUE(
        Start(Voltmeter(1, "signal = [{ pwl = [0, -5, 100, 5] }]\nnoise = { white = 1e-3 }")));
    const std::vector<double> first = Run(1e-3, 50);
    StartAcqBuff(0, 0, 0.0, 0);
    EXPECT_LT(TestNombreDePointAcqui(), 50) << "restarted";
    Wait();
    StopAcqBuff();
    EXPECT_GT(RecuperationPoint(0, 0), first.front());
}

TEST_F(LaboratoryRun, BeginsAtItsTriggerWithWhatWasBefore) {
    ASSERT_TRUE(
        Start(model12368 + Voltmeter(1, "signal = [{ sin = [0, 5, 2] }]\nalign = \"run\"")));
    for (const bool rising : {true, false}) {
        ASSERT_GT(InitAcqBuff(1e-3, 100, 1, 1), 0.0);
        StartAcqBuff(1, rising ? 1 : 0, 2.5, 0);
        Wait();
        StopAcqBuff();
        const std::vector<double> samples = Samples(0, -50, 150);
        const double turn = rising ? 1.0 : -1.0;
        EXPECT_LT(turn * samples[49], turn * 2.5);
        EXPECT_GE(turn * samples[50], turn * 2.5);
        EXPECT_NEAR(samples[50], 2.5, 5.0 * 2.0 * std::numbers::pi * 2.0 * 1e-3);
    }
}

TEST_F(LaboratoryRun, WaitsForATriggerThatNeverComes) {
    ASSERT_TRUE(Start(Voltmeter(1, "signal = [{ sin = [0, 1, 2] }]")));
    InitAcqBuff(1e-3, 100, 1, 0);
    StartAcqBuff(1, 1, 2.0, 0);
    EXPECT_EQ(Wait(500), 500);
    EXPECT_EQ(TestNombreDePointAcqui(), 0);
    StopAcqBuff();
    EXPECT_THAT(Run(1e-3, 20), Each(Le(1.0))) << "the next run is a run";
}

TEST_F(LaboratoryRun, SeesWhatTheOutputsPlay) {
    ASSERT_TRUE(Start(model12368 + output + Voltmeter(1, "signal = [{ output = 0, gain = 0.5 }]")));
    KiroDACEcrire(0, 4.0);
    EXPECT_EQ(QuelValeurPour(0), 2.0);
    KiroDACEcrire(0, 400.0);
    EXPECT_EQ(QuelValeurPour(0), 5.0) << "no more than the output's range";
    ASSERT_TRUE(KiroDACCreneau(0, 6.0, 1.0, 10.0, 1));
    const std::vector<double> square = Run(1e-3, 200);
    EXPECT_EQ(std::count(square.begin(), square.end(), -1.0), 100);
    EXPECT_EQ(std::count(square.begin(), square.end(), 2.0), 100);
    KiroDACEcrireNum(0, 2048);
    EXPECT_EQ(QuelValeurPour(0), 0.0);
    const std::vector<int32_t> codes{0, 4095};
    ASSERT_TRUE(KiroDACGenerer(0, 2, codes.data(), 1e6, 0));
    EXPECT_THAT(Run(1e-4, 100), testing::AllOf(testing::Contains(-5.0), testing::Contains(5.0)));
    EXPECT_EQ(QuelValeurPour(0), 5.0) << "after a single pass the last value stays";
}

} // namespace

} // namespace orvane
