#pragma once

#include "console/laboratory/signal/signal.h"

#include <array>
#include <cstdint>
#include <optional>

namespace orvane::laboratory {

/// A point of a calibration: what was measured, and what it should have been.
struct CalibrationPoint {
    double Measured = 0.0;
    double Wanted = 0.0;
};

constexpr uint32_t mostCalibrationPoints = 16;

/// By number; nothing where none was set.
using CalibrationPoints = std::array<std::optional<CalibrationPoint>, mostCalibrationPoints>;

/// The calibration of a channel. Between its start and its end there are points.
struct Calibration {
    Correction Used;
    Correction Before; ///< What an abort goes back to.
    bool Begun = false;
    CalibrationPoints Points{};
};

/// The correction that fits the points best: a shift for one point, else a line by least squares.
/// Points that were all measured at one value give a shift.
Correction LineThrough(const CalibrationPoints& points);

} // namespace orvane::laboratory
