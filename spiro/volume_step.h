#pragma once

/// \file
/// The volume of a step, from its flow.

#include "spiro_exports.h"

namespace orvane {

/// The step of a signed flow that lasted this many microseconds. A flow of 0 counts as negative.
constexpr tSpiroSample VolumeStep(double flow, double dureeUs) {
    tSpiroSample step{};
    step.DureeUs = dureeUs;
    step.Sens = flow > 0.0 ? 1 : -1;
    const double volume = flow * dureeUs / 1000000.0;
    if (step.Sens > 0) {
        step.VolumePositif += volume;
    } else {
        step.VolumeNegatif -= volume;
    }
    step.Debit = dureeUs == 0.0 ? 0.0 : step.Sens * flow;
    return step;
}

} // namespace orvane
