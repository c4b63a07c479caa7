#pragma once

/// \file
/// The samples of one period of a signal. Additions are repeated and divisions truncated as the
/// signals are defined, so that a period comes out the same to the last bit everywhere.
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
/// \return nothing for a frequency that no signal can have, or too high for a single sample
std::optional<int32_t> PointsPerPeriod(double frequence, uint32_t tempsMinNs);

/// A whole period in the span; its size is that of PointsPerPeriod.
using FillPeriod = void (*)(std::span<double> period, double amplitude, double offset,
                            OutputRange range);

/// The low half first. The low level is kept above the range's lower limit only, the high level
/// below the upper one only.
void FillSquare(std::span<double> period, double amplitude, double offset, OutputRange range);

/// From the centre up.
void FillSine(std::span<double> period, double amplitude, double offset, OutputRange range);

/// From the centre up, from the top down, and from the bottom up to the centre.
void FillTriangle(std::span<double> period, double amplitude, double offset, OutputRange range);

/// Samples of 12-bit codes: 0 is the lower limit and 4095 the upper one. Other codes lie beyond.
/// \param codes as many as there are samples
void FillFromCodes(std::span<double> samples, const int32_t* codes, OutputRange range);

} // namespace orvane
