// What is found in the readings of a spirometer. The flows are formulas with known volumes, read
// every 25 ms.

#include "hosts/session/forced_breath.h"

#include <gmock/gmock.h>

#include <cmath>
#include <functional>
#include <numbers>
#include <vector>

using namespace orvane;
using namespace testing;

namespace {

using Flow = std::function<double(double)>;

std::vector<FlowReading> Readings(double from, double to, const Flow& flow) {
    constexpr double step = 0.025;
    std::vector<FlowReading> readings;
    FlowReading last{.TimeSec = from};
    while (last.TimeSec < to) {
        last.TimeSec += step;
        last.Flow = flow(last.TimeSec);
        (last.Flow > 0.0 ? last.VolumeOut : last.VolumeIn) += std::abs(last.Flow) * step;
        readings.push_back(last);
    }
    return readings;
}

/// Inspires `volume` within a second; expires it from t = 0 on, with an even rise within 80 ms and
/// an exponential fall.
double Forced(double volume, double peak, double t) {
    constexpr double rise = 0.08;
    if (t < 0.0) {
        return t < -1.0 ? 0.0 : std::numbers::pi / 2 * volume * std::sin(std::numbers::pi * t);
    }
    const double rate = peak / (volume - peak * rise / 2);
    return t < rise ? peak * t / rise : peak * std::exp(-rate * (t - rise));
}

double Fev1(double volume, double peak) {
    const double rest = volume - peak * 0.04;
    return volume - rest * std::exp(-peak / rest * 0.96);
}

TEST(ForcedBreath, HasTheVolumesOfItsFormula) {
    for (const auto& [volume, peak] : {std::pair{4.8, 8.6}, {2.0, 4.0}, {6.0, 12.0}, {3.0, 3.0}}) {
        for (double offset = 0.0; offset < 0.025; offset += 0.003) {
            const auto best = BestForcedBreath(
                Readings(-2.0 + offset, 9.0, [volume = volume, peak = peak](double t) {
                    return Forced(volume, peak, t);
                }));
            ASSERT_TRUE(best) << volume;
            EXPECT_NEAR(best->Fvc, volume, 0.005 * volume);
            EXPECT_NEAR(best->Fev1, Fev1(volume, peak), 0.01 * volume);
            EXPECT_NEAR(best->Pef, peak, 0.05 * peak);
        }
    }
}

TEST(ForcedBreath, IsTheBestOfThoseThatAreComplete) {
    // One every 12 s, each in a pause with noise, and the last the largest.
    const auto flow = [](double t) {
        const double number = std::floor((t + 3.0) / 12.0);
        const double noise = std::fmod(std::abs(t) * 1000.0, 7.0) < 3.5 ? 0.03 : -0.03;
        return Forced(3.0 + number, 9.0, t - 12.0 * number) + noise;
    };
    const auto best = [&](double from, double to) {
        const auto found = BestForcedBreath(Readings(from, to, flow));
        return found ? std::lround(found->Fvc) : 0;
    };
    EXPECT_EQ(best(-3.0, 33.0), 5);
    EXPECT_EQ(best(-3.0, 25.0), 4) << "the last goes on";
    EXPECT_EQ(best(0.05, 9.0), 0) << "it had begun";
    EXPECT_EQ(best(-3.0, 1.2), 0);
}

TEST(ForcedBreath, IsNoQuietOneAndNoEvenFlow) {
    for (const double rate : {6.0, 12.0, 25.0, 40.0, 90.0}) {
        EXPECT_FALSE(BestForcedBreath(Readings(0.0, 30.0, [&](double t) {
            return std::sin(2 * std::numbers::pi * rate / 60 * t);
        }))) << rate;
    }
    for (const double flow : {2.0, 0.0, -2.0}) {
        EXPECT_FALSE(BestForcedBreath(Readings(0.0, 5.0, [&](double) { return flow; })));
    }
    EXPECT_FALSE(BestForcedBreath({}));
}

} // namespace
