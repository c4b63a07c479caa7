#pragma once

/// \file
/// What an analog output plays of a signal: points of whole nanoseconds, within its range. The
/// driver computes a period in the same way when it sends one.

#include "hosts/session/output_signal.h"

namespace orvane {

/// What an output can give.
struct OutputLimits {
    double Least = -1.0;
    double Most = 1.0;
    double HighestHz = 500.0;
    double ShortestStepSec = 1e-6; ///< Of a point.
};

/// Those that the driver tells. It does not tell the shortest time of a point, which is that of
/// most outputs then.
OutputLimits LimitsOf(const DriverExports& driver);

/// Points that an output plays one after the other.
struct PlannedSignal {
    std::vector<double> Asked; ///< Without the limits of the output; as many as Played.
    std::vector<double> Played;
    double StepSec = 0.0;
    double CutPart = 0.0; ///< Of the points, 0 to 1.

    [[nodiscard]] double PeriodSec() const {
        return StepSec * static_cast<double>(Played.size());
    }
};

/// One period of a signal. Throws HostError if the output cannot play it.
PlannedSignal PlanSignal(const OutputSignal& signal, const OutputLimits& limits);

/// What an output plays of codes. Throws HostError if it cannot play them.
PlannedSignal PlanCodes(const OutputCodes& codes, const OutputLimits& limits);

} // namespace orvane
