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

/// The readings at which the breath turns: lungs that are emptied, filled, emptied and so on. It
/// turns where the volume goes back by more than a small part of its range, so that noise in a
/// pause doesn't end an expiration.
std::vector<size_t> TurnsOf(Readings readings) {
    constexpr double small = 0.02;
    const double turn = small * VolumeRange(readings);
    std::vector<size_t> turns;
    bool expires = true;
    size_t last = 0; // The furthest reading in the present direction.
    for (size_t i = 0; i < readings.size(); ++i) {
        const double further = expires ? Expired(readings[i]) - Expired(readings[last])
                                       : Expired(readings[last]) - Expired(readings[i]);
        if (further > 0.0 || (further == 0.0 && !expires)) {
            last = i;
        } else if (further < -turn) {
            turns.push_back(last);
            expires = !expires;
            last = i;
        }
    }
    return turns;
}

/// A complete expiration from the reading before it to its last one, and the inspirations around.
struct Expiration {
    size_t LoopFirst = 0;
    size_t First = 0;
    size_t Last = 0;
    size_t LoopLast = 0;
};

std::vector<Expiration> Expirations(Readings readings) {
    const std::vector<size_t> turns = TurnsOf(readings);
    const auto furthest = [&](size_t from, auto find) {
        return from + static_cast<size_t>(find(readings.subspan(from)));
    };
    const auto emptiest = [](Readings rest) {
        return std::ranges::max_element(rest, {}, Expired) - rest.begin();
    };
    const auto fullest = [](Readings rest) {
        return std::ranges::min_element(rest, {}, Expired) - rest.begin();
    };
    std::vector<Expiration> found;
    for (size_t filled = 1; filled < turns.size(); filled += 2) {
        const size_t first = turns[filled];
        const bool turned = filled + 1 < turns.size();
        if (turned || HasEnded(readings.subspan(first))) {
            const size_t last = turned ? turns[filled + 1] : furthest(first, emptiest);
            const size_t end =
                filled + 2 < turns.size() ? turns[filled + 2] : furthest(last, fullest);
            found.push_back({turns[filled - 1], first, last, end});
        }
    }
    return found;
}

/// The volume expired until a time, between readings on a straight line; from before the first
/// reading on, that of the first.
double ExpiredUntil(Readings readings, double timeSec) {
    const auto after = std::ranges::lower_bound(readings, timeSec, {}, &FlowReading::TimeSec);
    if (after == readings.begin()) {
        return Expired(readings.front());
    }
    const FlowReading& before = *std::prev(after);
    const double part = (timeSec - before.TimeSec) / (after->TimeSec - before.TimeSec);
    return Expired(before) + part * (Expired(*after) - Expired(before));
}

/// Nothing if the expiration isn't forced.
std::optional<ForcedBreath> Measured(Readings readings, const Expiration& place) {
    constexpr double longestToPeak = 0.25;
    constexpr double second = 1.0;
    const Readings expiration = readings.subspan(place.First, place.Last - place.First + 1);
    const FlowReading& peak = *std::ranges::max_element(expiration, {}, &FlowReading::Flow);
    const FlowReading& last = expiration.back();
    const double before = Expired(expiration.front());
    const double start = peak.TimeSec - (Expired(peak) - before) / peak.Flow;
    if (peak.Flow <= 0.0 || peak.TimeSec - start > longestToPeak || last.TimeSec - start < second) {
        return std::nullopt;
    }
    return ForcedBreath{.Fvc = Expired(last) - before,
                        .Fev1 = ExpiredUntil(expiration, start + second) - before,
                        .Pef = peak.Flow,
                        .BackVolume = ExpiredUntil(expiration, start) - before,
                        .StartSec = start,
                        .First = place.First,
                        .Last = place.Last,
                        .LoopFirst = place.LoopFirst,
                        .LoopLast = place.LoopLast};
}

} // namespace

std::vector<ForcedBreath> ForcedBreaths(std::span<const FlowReading> readings) {
    std::vector<ForcedBreath> breaths;
    if (readings.empty()) {
        return breaths;
    }
    for (const Expiration& expiration : Expirations(readings)) {
        if (const auto found = Measured(readings, expiration); found) {
            breaths.push_back(*found);
        }
    }
    return breaths;
}

std::optional<ForcedBreath> BestForcedBreath(std::span<const FlowReading> readings) {
    const std::vector<ForcedBreath> breaths = ForcedBreaths(readings);
    const auto best = std::ranges::max_element(
        breaths, {}, [](const ForcedBreath& breath) { return breath.Fvc + breath.Fev1; });
    return best == breaths.end() ? std::nullopt : std::optional(*best);
}

} // namespace orvane
