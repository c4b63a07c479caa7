#pragma once

#include "hosts/plot/chart.h"
#include "hosts/session/output_preview.h"

namespace orvane {

/// Two periods of a signal: asked dotted, played solid, what the output cannot give shaded.
Chart PreviewOf(const PlannedSignal& planned, const OutputLimits& limits, const std::string& label);

/// The first points of a signal as the output plays them: each is held until the next.
Chart FirstPointsOf(const PlannedSignal& planned, const std::string& label);

} // namespace orvane
