#pragma once

#include "hosts/plot/run_picture.h"
#include "hosts/spectrum/spectrum.h"

namespace orvane {

/// The spectra of channels over their common frequencies, a lane for each unit.
/// \param decibels relative to one unit; else amplitudes
Chart SpectrumChart(const std::vector<ChannelInfo>& channels, const std::vector<Spectrum>& spectra,
                    std::optional<AxisRange> frequencyHz, size_t steps, bool decibels);

/// A channel over another.
/// \param x,y equally many samples
Chart XyChart(const ChannelInfo& xChannel, std::span<const double> x, const ChannelInfo& yChannel,
              std::span<const double> y);

/// The stretch of an axis that samples need, with a margin.
AxisRange RangeAround(std::span<const double> samples, const ChannelInfo& channel);

} // namespace orvane
