#include "hosts/session/forced_breath.h"

#include <algorithm>
#include <iterator>
#include <vector>

namespace orvane {

namespace {

using Readings = std::span<const FlowReading>;

double Expired(const FlowReading& reading) {
    return reading.VolumeOut - reading.VolumeIn;
}

/// The largest difference of the volume.
double VolumeRange(Readings readings) {
    const auto [least, most] = std::ranges::minmax(readings, {}, Expired);
    return Expired(most) - Expired(least);
}

/// Whether an expiration is over though no inspiration has followed yet.
bool HasEnded(Readings expiration) {
    constexpr double hardlyAny = 0.01; // of the peak
    const FlowReading& peak = *std::ranges::max_element(expiration, {}, &FlowReading::Flow);
    return expiration.back().Flow <= hardlyAny * peak.Flow;
}

/// Each complete expiration from the reading before it to its last one. The volume turns where it
/// goes back by more than a small part of its range, so that noise in a pause doesn't end an
/// expiration.
std::vector<Readings> Expirations(Readings readings) {
    constexpr double small = 0.02;
    const double turn = small * VolumeRange(readings);
    std::vector<Readings> found;
    std::optional<size_t> begin; // Of the present expiration, if the readings have it.
    bool expires = true;
    size_t last = 0; // The furthest reading in the present direction.
    for (size_t i = 0; i < readings.size(); ++i) {
        const double further = expires ? Expired(readings[i]) - Expired(readings[last])
                                       : Expired(readings[last]) - Expired(readings[i]);
        if (further > 0.0 || (further == 0.0 && !expires)) {
            last = i;
        } else if (further < -turn) {
            if (expires && begin) {
                found.push_back(readings.subspan(*begin, last - *begin + 1));
            }
            begin = last;
            expires = !expires;
            last = i;
        }
    }
    if (expires && begin && HasEnded(readings.subspan(*begin))) {
        found.push_back(readings.subspan(*begin, last - *begin + 1));
    }
    return found;
}

/// The volume expired until a time, between readings on a straight line.
double ExpiredUntil(Readings readings, double timeSec) {
    const auto after = std::ranges::lower_bound(readings, timeSec, {}, &FlowReading::TimeSec);
    const FlowReading& before = *std::prev(after);
    const double part = (timeSec - before.TimeSec) / (after->TimeSec - before.TimeSec);
    return Expired(before) + part * (Expired(*after) - Expired(before));
}

/// Nothing if the expiration isn't forced.
std::optional<ForcedBreath> Measured(Readings expiration) {
    constexpr double longestToPeak = 0.25;
    constexpr double second = 1.0;
    const FlowReading& peak = *std::ranges::max_element(expiration, {}, &FlowReading::Flow);
    const FlowReading& last = expiration.back();
    const double before = Expired(expiration.front());
    const double start = peak.TimeSec - (Expired(peak) - before) / peak.Flow;
    if (peak.Flow <= 0.0 || peak.TimeSec - start > longestToPeak || last.TimeSec - start < second) {
        return std::nullopt;
    }
    return ForcedBreath{.Fvc = Expired(last) - before,
                        .Fev1 = ExpiredUntil(expiration, start + second) - before,
                        .Pef = peak.Flow};
}

} // namespace

std::optional<ForcedBreath> BestForcedBreath(std::span<const FlowReading> readings) {
    std::optional<ForcedBreath> best;
    if (readings.empty()) {
        return best;
    }
    for (const Readings expiration : Expirations(readings)) {
        const auto found = Measured(expiration);
        if (found && (!best || found->Fvc + found->Fev1 > best->Fvc + best->Fev1)) {
            best = found;
        }
    }
    return best;
}

} // namespace orvane
