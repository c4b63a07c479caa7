#pragma once

/// \file
/// The simulated converter.

#include "platform/millisecond_draw.h"

#include <array>

namespace orvane::virtual_console {

/// The values that a calibre can give, by the draw of the millisecond.
using SimulatedValues = std::array<double, platform::DrawSteps>;

/// The values of a calibre: from 20 % of its range below the middle to 39 % above it, in steps of
/// 1 %.
SimulatedValues ValuesOfCalibre(float min, float max);

} // namespace orvane::virtual_console
