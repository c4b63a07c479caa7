#pragma once

#include "hosts/plot/chart.h"
#include "hosts/session/forced_breath.h"

#include <span>

namespace orvane {

/// What a spirometer measured, one reading at least, as charts to stand side by side: the volume in
/// the lungs over time, and the flow over the volume expired from full lungs on, expiration
/// upwards, with 2 L/s as long as 1 L.
std::vector<Chart> PicturesOf(std::span<const FlowReading> readings, const std::string& flowUnit,
                              const std::string& volumeUnit);

} // namespace orvane
