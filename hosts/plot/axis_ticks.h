#pragma once

#include "hosts/plot/chart.h"

namespace orvane {

/// The numbers along an axis.
struct AxisTicks {
    double First = 0.0; ///< The lowest tick.
    double Step = 1.0;
    size_t Count = 0;
    int Decimals = 0; ///< That its numbers need.
};

/// Ticks about `distance` pixels apart on an axis of `length` pixels, at 1, 2 or 5 times a power of
/// ten; at least three of them, none on a range without a length.
AxisTicks TicksOf(AxisRange range, double length, double distance);

/// The number of tick i, with a true minus and without a negative zero.
std::string TickText(const AxisTicks& ticks, size_t i, char decimalPoint);

inline double TickAt(const AxisTicks& ticks, size_t i) {
    return ticks.First + static_cast<double>(i) * ticks.Step;
}

} // namespace orvane
