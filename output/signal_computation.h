#pragma once

/// \file
/// The samples of one period of a signal. Repeated additions and truncated divisions are part
/// of the definition of the signals, so that a period is the same to the last bit on every machine.
///
/// `amplitude` is peak to peak and `offset` the centre value, both in output units.

#include "connection/console_models.h"

#include <cstdint>
#include <optional>
#include <span>

namespace orvane {

/// Number of samples of a period: even, at most 10000, and 0 where the period holds only one.
/// \param frequence in hertz
/// \param tempsMinNs shortest time between two samples; below 1 counts as 1
/// \return nothing if the frequency is not above 0, or too high for a single sample
std::optional<int32_t> PointsPerPeriod(double frequence, uint32_t tempsMinNs);

/// Fills the span with a whole period; its size is that of PointsPerPeriod.
using FillPeriod = void (*)(std::span<double> period, double amplitude, double offset,
                            OutputRange range);

/// The low half first. The low level is limited from below only, the high level from above only.
void FillSquare(std::span<double> period, double amplitude, double offset, OutputRange range);

/// From the centre up.
void FillSine(std::span<double> period, double amplitude, double offset, OutputRange range);

/// From the centre up, from the top down, and from the bottom up to the centre.
void FillTriangle(std::span<double> period, double amplitude, double offset, OutputRange range);

/// Samples of 12-bit codes: 0 is the lower limit and 4095 the upper one. Other codes lie beyond.
/// \param codes as many as there are samples
void FillFromCodes(std::span<double> samples, const int32_t* codes, OutputRange range);

} // namespace orvane
