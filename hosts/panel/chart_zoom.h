#pragma once

/// \file
/// Which part of a chart is shown, as values.

#include "hosts/plot/chart.h"

#include <optional>
#include <vector>

namespace orvane {

/// What the user chose to see; nothing: all of it.
struct ChartZoom {
    std::optional<AxisRange> X;
    std::optional<AxisRange> Value; ///< Of the lane of that number.
    size_t Lane = 0;

    bool IsWhole() const {
        return !X && !Value;
    }
};

/// The zooms that the user has left, the latest last.
using ZoomHistory = std::vector<ChartZoom>;

/// A range about a point, by a factor below 1 nearer, above 1 farther.
AxisRange Scaled(AxisRange range, double about, double factor);

/// A range moved by a part of its length.
AxisRange Moved(AxisRange range, double part);

/// A range held within another, with its length if that fits.
AxisRange HeldWithin(AxisRange range, AxisRange whole);

} // namespace orvane
