#pragma once

/// \file
/// What a spirometer measured as charts, without sizes, in the language of the host's catalogue.

#include "hosts/plot/chart.h"
#include "hosts/session/manoeuvres.h"

namespace orvane {

struct BreathUnits {
    std::string Flow;
    std::string Volume;
};

/// The flow over the volume, expiration upwards and 2 L/s as long as 1 L: the manoeuvres, and in
/// thin lines what is measured now.
Chart LoopChart(const std::vector<Manoeuvre>& manoeuvres, const std::vector<BreathPoint>& now,
                const BreathUnits& units);

/// The expired volume of the manoeuvres over the time since their back-extrapolated starts.
Chart ExpirationChart(const std::vector<Manoeuvre>& manoeuvres, const BreathUnits& units);

/// The volume that is measured now, over its last time.
Chart VolumeChart(const std::vector<BreathPoint>& now, const BreathUnits& units);

/// The pattern of a manoeuvre's curves; its colour is that of its number.
Dash DashOfManoeuvre(size_t number);

} // namespace orvane
