#include "hosts/orvane/commands/rate_measurement.h"

#include <algorithm>
#include <chrono>
#include <limits>

namespace orvane {

namespace {

using Clock = std::chrono::steady_clock;
using Nanoseconds = std::chrono::duration<double, std::nano>;

constexpr Nanoseconds roundLength = std::chrono::milliseconds(1);
constexpr auto longest = std::chrono::seconds(2);
constexpr size_t fewestRounds = 3;
constexpr size_t mostRounds = 100;

/// Nanoseconds for one time.
double Measure(const RateCase& one, size_t count) {
    double cost = 0.0;
    do {
        if (one.Prepare) {
            one.Prepare();
        }
        const auto start = Clock::now();
        const size_t done = one.Do(count);
        cost = Nanoseconds(Clock::now() - start).count() / static_cast<double>(done);
    } while (one.Stood && !one.Stood());
    return cost;
}

/// How often to do it in a round, found in steps because the first times are slow.
size_t CountOfRound(const RateCase& one) {
    constexpr size_t step = 32;
    constexpr double most = 1e6;
    size_t count = 1;
    while (true) {
        const double fitting = std::clamp(roundLength.count() / Measure(one, count), 1.0, most);
        const auto wanted = static_cast<size_t>(fitting);
        if (wanted <= count * step) {
            return wanted;
        }
        count *= step;
    }
}

} // namespace

std::vector<double> MeasureRates(const std::vector<RateCase>& cases) {
    const auto end = Clock::now() + longest;
    std::vector<size_t> counts;
    std::ranges::transform(cases, std::back_inserter(counts), CountOfRound);
    std::vector<double> least(cases.size(), std::numeric_limits<double>::infinity());
    for (size_t round = 0; round < mostRounds; ++round) {
        for (size_t i = 0; i < cases.size(); ++i) {
            least[i] = std::min(least[i], Measure(cases[i], counts[i]));
        }
        if (round + 1 >= fewestRounds && Clock::now() > end) {
            break;
        }
    }
    return least;
}

} // namespace orvane
