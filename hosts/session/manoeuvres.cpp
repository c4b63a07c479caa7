#include "hosts/session/manoeuvres.h"

#include <algorithm>
#include <cmath>

namespace orvane {

namespace {

Manoeuvre MakeManoeuvre(const ForcedBreath& breath, std::span<const FlowReading> readings) {
    const auto expired = [](const FlowReading& one) { return one.VolumeOut - one.VolumeIn; };
    const double full = expired(readings[breath.First]);
    Manoeuvre made{.Breath = breath,
                   .Loop = {},
                   .First = breath.First - breath.LoopFirst,
                   .Last = breath.Last - breath.LoopFirst,
                   .At = {}};
    for (size_t i = breath.LoopFirst; i <= breath.LoopLast; ++i) {
        made.Loop.push_back({.TimeSec = readings[i].TimeSec - breath.StartSec,
                             .Flow = readings[i].Flow,
                             .Volume = expired(readings[i]) - full});
    }
    return made;
}

std::optional<double> Apart(std::vector<double> values) {
    if (values.size() < 2) {
        return std::nullopt;
    }
    std::ranges::sort(values, std::ranges::greater());
    return values[0] - values[1];
}

} // namespace

void TakeForcedBreaths(std::vector<Manoeuvre>& list, size_t from,
                       std::span<const FlowReading> readings, const std::string& now) {
    constexpr double sameWithin = 0.5; // s
    for (const ForcedBreath& breath : ForcedBreaths(readings)) {
        Manoeuvre made = MakeManoeuvre(breath, readings);
        const auto same = std::find_if(
            list.begin() + static_cast<std::ptrdiff_t>(from), list.end(), [&](const auto& other) {
                return std::abs(other.Breath.StartSec - breath.StartSec) < sameWithin;
            });
        if (same == list.end()) {
            made.At = now;
            list.push_back(std::move(made));
        } else {
            made.At = same->At;
            made.Kept = same->Kept;
            *same = std::move(made);
        }
    }
}

double BackVolumeLimit(const ForcedBreath& breath) {
    constexpr double partOfFvc = 0.05;
    constexpr double least = 0.10; // L
    return std::max(partOfFvc * breath.Fvc, least);
}

std::optional<BreathSummary> SummaryOf(const std::vector<Manoeuvre>& list) {
    BreathSummary summary;
    summary.StartsWell = true;
    std::vector<double> fvc;
    std::vector<double> fev1;
    double largest = 0.0;
    for (size_t i = 0; i < list.size(); ++i) {
        const ForcedBreath& breath = list[i].Breath;
        if (!list[i].Kept) {
            continue;
        }
        fvc.push_back(breath.Fvc);
        fev1.push_back(breath.Fev1);
        summary.Pef = std::max(summary.Pef, breath.Pef);
        summary.StartsWell = summary.StartsWell && breath.BackVolume <= BackVolumeLimit(breath);
        if (breath.Fvc + breath.Fev1 > largest) {
            largest = breath.Fvc + breath.Fev1;
            summary.Best = i;
        }
    }
    if (fvc.empty()) {
        return std::nullopt;
    }
    summary.Kept = fvc.size();
    summary.Fvc = std::ranges::max(fvc);
    summary.Fev1 = std::ranges::max(fev1);
    summary.FvcApart = Apart(fvc);
    summary.Fev1Apart = Apart(fev1);
    return summary;
}

} // namespace orvane
