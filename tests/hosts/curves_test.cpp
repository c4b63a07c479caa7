// What the window of the panel draws, without the window.

#include "hosts/panel/curves.h"
#include "tests/hosts/full_driver.h"

#include <gmock/gmock.h>

#include <semaphore>

using namespace orvane;
using namespace testing;

namespace {

std::binary_semaphore StopMayEnd{0};

TEST(ShownRun, TakesBoundedStepsAndLosesNoPeak) {
    DriverExports driver = FullDriver();
    driver.StopAcqBuff = [] { StopMayEnd.acquire(); };
    driver.RecuperationPoint = [](int32_t voie, uint32_t point) {
        ++Answers.Reads;
        return point % 1000 == 500 ? 7.0 + voie : point % 1000 == 700 ? -1.0 : 0.0;
    };
    Answers.Samples = 200'000;
    const AcquisitionRequest request{1e-3, 100'000, {0, 1}, std::nullopt, false};
    ChannelInfo second;
    second.Index = 1;
    ShownRun run(driver, request, {ChannelInfo{}, second});
    bool waited = false;
    while (run.Followed) {
        Answers.Reads = 0;
        Step(run, 1000);
        ASSERT_LE(Answers.Reads, 1000);
        if (!waited && run.Followed && run.Followed->Now == FollowedRun::Phase::Fetching) {
            EXPECT_TRUE(IsBusy(*run.Followed)) << "no step waits for the driver";
            EXPECT_EQ(Step(run, 1000), 0U);
            waited = true;
            StopMayEnd.release();
        }
    }
    EXPECT_THAT(SamplesOf(run), Each(SizeIs(100'000)));
    // One step of the picture holds one peak up and one down.
    const Chart picture = ChartOf(CurvesOf(run), WholeTime(run), 100, {.OneEach = true});
    ASSERT_THAT(picture.Lanes, SizeIs(2));
    const Samples& drawn = picture.Lanes[1].Curves[0].Points.Y;
    EXPECT_THAT(drawn, SizeIs(200));
    EXPECT_EQ(std::ranges::count(drawn, 8.0), 100);
    EXPECT_EQ(std::ranges::count(drawn, -1.0), 100);
    EXPECT_EQ(PointAt(run, 3.4996)->Values, (std::vector<double>{7.0, 8.0}));
}

TEST(ShownRun, OverlaysFormerRunsOfTheSameScaleOnly) {
    const auto run = [](double most) {
        SamplesFile file;
        file.Channels.resize(1);
        file.Channels[0].Max = most;
        file.Recording.PeriodSec = 1e-3;
        file.Recording.Fetched = {{1.0, 2.0, 3.0}};
        return std::make_shared<ShownRun>(std::move(file));
    };
    FormerRuns former;
    for (int i = 0; i < 10; ++i) {
        AddFormer(former, run(i < 9 ? 12.0 : 24.0));
    }
    ASSERT_THAT(former, SizeIs(8));
    const auto now = run(12.0);
    Chart chart = ChartOf(CurvesOf(*now), WholeTime(*now), 100, {});
    for (size_t i = 0; i < former.size(); ++i) {
        AddFormer(chart, now->Channels, CurvesOf(*former[i]), i + 1, 100, {});
    }
    ASSERT_THAT(chart.Lanes[0].Curves, SizeIs(8)); // Seven, and the run itself above them.
    EXPECT_FALSE(chart.Lanes[0].Curves.back().Pale);
    EXPECT_LT(chart.Lanes[0].Curves.front().Opacity, chart.Lanes[0].Curves[6].Opacity);
}

TEST(StripChart, ShowsTheLastTenSeconds) {
    StripChart chart;
    for (int second = 0; second <= 30; ++second) {
        Append(chart, second, {1.0 * second, 100.0});
    }
    ChannelInfo amperes;
    amperes.Index = 1;
    const Chart picture = ChartOf(chart, {ChannelInfo{}}, {});
    ASSERT_THAT(picture.Lanes, SizeIs(1));
    const ChartPoints& points = picture.Lanes[0].Curves[0].Points;
    EXPECT_THAT(points.X, AllOf(SizeIs(11), Contains(-10.0)));
    EXPECT_EQ(points.Y.front(), 20.0);
    EXPECT_EQ(PointAt(chart, {amperes, ChannelInfo{}}, -3.0)->Values,
              (std::vector<double>{100.0, 27.0}));
}

} // namespace
