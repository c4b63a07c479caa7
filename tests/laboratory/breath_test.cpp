// What turns the turbine, held against its integrals: volumes are added up here in steps of 0.1 ms.

#include "console/laboratory/signal/breath.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <vector>

using namespace orvane::laboratory;

namespace {

constexpr double step = 1e-4;

/// Flows in the middle of each step.
std::vector<double> Flows(const Breath& breath, double from, double seconds) {
    const PreparedBreath prepared = PrepareBreath(breath);
    std::vector<double> flows(static_cast<size_t>(std::lround(seconds / step)));
    for (size_t i = 0; i < flows.size(); ++i) {
        flows[i] = FlowAt(prepared, from + (static_cast<double>(i) + 0.5) * step);
    }
    return flows;
}

/// A forced expiration as a spirometer sees it.
struct Manoeuvre {
    double Fvc = 0.0;
    double Fev1 = 0.0;
    double Pef = 0.0;
    double Inspired = 0.0; ///< Just before.
};

/// That with the highest flow.
Manoeuvre Highest(const std::vector<double>& flows) {
    const auto peak = std::ranges::max_element(flows);
    const auto up = [](double flow) { return flow > 0.0; };
    const auto begin = std::find_if_not(std::make_reverse_iterator(peak), flows.rend(), up).base();
    const auto inspiration =
        std::find_if(std::make_reverse_iterator(begin), flows.rend(), [](double flow) {
            return flow >= 0.0;
        }).base();
    Manoeuvre made{.Pef = *peak};
    double volume = 0.0;
    double volumeAtPeak = 0.0;
    std::vector<double> volumes;
    for (auto flow = begin; flow != flows.end() && up(*flow); ++flow) {
        volumes.push_back(volume += *flow * step);
        volumeAtPeak = flow <= peak ? volume : volumeAtPeak;
    }
    const double start = static_cast<double>(peak - begin) * step - volumeAtPeak / *peak;
    made.Fvc = volume;
    made.Fev1 = volumes.at(static_cast<size_t>(std::lround((start + 1.0) / step)));
    for (auto flow = inspiration; flow != begin; ++flow) {
        made.Inspired -= *flow * step;
    }
    return made;
}

TEST(Breath, IsQuietWithItsVolumeAndRate) {
    const auto flows = Flows({.Tidal = 0.7, .Rate = 12.0, .Forced = {}}, 1e6, 10.0);
    double in = 0.0;
    double out = 0.0;
    for (const double flow : flows) {
        (flow > 0.0 ? out : in) += std::abs(flow) * step;
    }
    EXPECT_NEAR(in, 1.4, 1e-6);
    EXPECT_NEAR(out, 1.4, 1e-6);
    EXPECT_LT(flows[100], 0.0) << "it begins with the inspiration";
}

TEST(Breath, ForcesItsVolumes) {
    std::mt19937 random(3);
    const auto between = [&](double from, double to) {
        return std::uniform_real_distribution(from, to)(random);
    };
    for (int round = 0; round < 100; ++round) {
        ForcedBreath forced{.Every = between(2.0, 30.0), .Fvc = between(1.0, 8.0)};
        forced.Fev1 = forced.Fvc * between(0.3, 0.99);
        forced.Pef = forced.Fev1 * between(1.01, 4.0);
        const double rest = LongestExpiration(forced) - 1.04;
        if (forced.Fvc - forced.Fev1 > forced.Pef * rest / 2.0) {
            continue; // No scenario says that.
        }
        const Breath breath{
            .Tidal = between(0.0, 0.2) * forced.Pef, .Rate = between(5.0, 60.0), .Forced = forced};
        const auto flows = Flows(breath, 0.0, 3.0 * forced.Every);
        const Manoeuvre found = Highest(flows);
        const std::string which =
            testing::PrintToString(std::vector{forced.Every, forced.Fvc, forced.Fev1, forced.Pef});
        EXPECT_NEAR(found.Fvc, forced.Fvc, 1e-3 * forced.Fvc) << which;
        EXPECT_NEAR(found.Fev1, forced.Fev1, 2e-3 * forced.Fev1) << which;
        EXPECT_NEAR(found.Pef, forced.Pef, 2e-3 * forced.Pef) << which;
        EXPECT_NEAR(found.Inspired, forced.Fvc, 1e-3 * forced.Fvc) << which;
        double volume = 0.0;
        double jump = 0.0;
        for (size_t i = 1; i < flows.size(); ++i) {
            volume += flows[i] * step;
            jump = std::max(jump, std::abs(flows[i] - flows[i - 1]));
        }
        EXPECT_NEAR(volume, 0.0, 1e-3 * forced.Fvc) << "three cycles of " << which;
        EXPECT_LT(jump, 0.1 * forced.Pef) << which;
    }
}

} // namespace
