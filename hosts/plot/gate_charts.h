#pragma once

/// \file
/// A run over gates as charts, without sizes, in the language of the host's catalogue.

#include "hosts/plot/chart.h"
#include "hosts/session/gate_motion.h"

namespace orvane {

/// The passages as strokes in a row for each gate, the door first; a fork in its own colour.
Chart PassageChart(const GateFall& fall, const std::vector<std::string>& rows);

/// \name Of a run with positions: the forks as dots, and the fall that fits them
/// @{
Chart SpeedChart(const GateFall& fall);
Chart PositionChart(const GateFall& fall);
/// @}

} // namespace orvane
