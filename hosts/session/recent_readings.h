#pragma once

#include <vector>

namespace orvane {

/// The last readings of a channel.
struct RecentReadings {
    static constexpr double LengthSec = 10.0;

    std::vector<double> TimesSec; ///< Ascending, of any clock.
    std::vector<double> Values;   ///< As many.
};

/// Adds a reading and removes those that are too old.
void Append(RecentReadings& readings, double timeSec, double value);

/// How far the readings of the last seconds lie apart.
struct ReadingSpread {
    double Half = 0.0;   ///< Half of what lies between the lowest and the highest.
    bool Steady = false; ///< The later half reads as the earlier one, by a thousandth of the range.
};

/// \param range of the channel, from its lowest to its highest value
ReadingSpread SpreadOf(const RecentReadings& readings, double seconds, double range);

} // namespace orvane
