#include "hosts/session/recent_readings.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <span>

namespace orvane {

namespace {

constexpr size_t fewest = 4; // for a judgement

double MeanOf(std::span<const double> values) {
    return std::accumulate(values.begin(), values.end(), 0.0) / static_cast<double>(values.size());
}

} // namespace

void Append(RecentReadings& readings, double timeSec, double value) {
    readings.TimesSec.push_back(timeSec);
    readings.Values.push_back(value);
    const auto old =
        std::ranges::lower_bound(readings.TimesSec, timeSec - RecentReadings::LengthSec) -
        readings.TimesSec.begin();
    readings.TimesSec.erase(readings.TimesSec.begin(), readings.TimesSec.begin() + old);
    readings.Values.erase(readings.Values.begin(), readings.Values.begin() + old);
}

ReadingSpread SpreadOf(const RecentReadings& readings, double seconds, double range) {
    if (readings.Values.empty()) {
        return {};
    }
    const auto from =
        std::ranges::lower_bound(readings.TimesSec, readings.TimesSec.back() - seconds) -
        readings.TimesSec.begin();
    const std::span last = std::span(readings.Values).subspan(static_cast<size_t>(from));
    const auto [least, most] = std::ranges::minmax(last);
    ReadingSpread spread{.Half = (most - least) / 2.0};
    if (last.size() >= fewest) {
        constexpr double part = 1e-3;
        const size_t half = last.size() / 2;
        spread.Steady =
            std::abs(MeanOf(last.first(half)) - MeanOf(last.last(half))) <= part * range;
    }
    return spread;
}

} // namespace orvane
