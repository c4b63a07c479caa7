#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

namespace orvane {

/// A step of the spirometer: the flow at its end, and the volumes since the start. An expiration is
/// positive, an inspiration negative; both volumes are positive numbers.
struct FlowReading {
    double TimeSec = 0.0; ///< The end of the step, since the start.
    double Flow = 0.0;
    double VolumeOut = 0.0;
    double VolumeIn = 0.0;
};

/// What a forced expiration gave, in the units of the volumes and the flow.
struct ForcedBreath {
    double Fvc = 0.0;        ///< Forced vital capacity: all that was expired.
    double Fev1 = 0.0;       ///< Expired within the first second.
    double Pef = 0.0;        ///< Peak expiratory flow.
    double BackVolume = 0.0; ///< Expired before StartSec: the back-extrapolated volume.
    double StartSec = 0.0;   ///< Where the steepest part of the volume would have begun.
    /// \name Readings: the expiration, and with the inspirations before and after it
    /// @{
    size_t First = 0; ///< Before the expiration, with full lungs.
    size_t Last = 0;  ///< Of the expiration.
    size_t LoopFirst = 0;
    size_t LoopLast = 0;
    /// @}
};

/// The forced breaths of readings, in their order. An expiration is forced if it lasts a second at
/// least and its flow is at the peak within a quarter of a second. It starts where the steepest
/// part of its volume, extrapolated back, would have begun. One that had begun before the readings,
/// or goes on after them, is left out.
std::vector<ForcedBreath> ForcedBreaths(std::span<const FlowReading> readings);

/// The one with the largest sum of FVC and FEV1; nothing if there is none.
std::optional<ForcedBreath> BestForcedBreath(std::span<const FlowReading> readings);

} // namespace orvane
