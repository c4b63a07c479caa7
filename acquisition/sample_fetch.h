#pragma once

/// \file
/// Reading the samples of the console as the host sees them. Host's thread.

#include "channels/tvl_voie_orvane.h"

#include <cstdint>
#include <span>

namespace orvane {

/// One sample. A refused read counts as the console value 0.0.
double FetchSample(const TvlVoieOrvane& voie, uint32_t index);

/// The samples of a channel from the first on: what FetchSample gives for each, read in blocks
/// where the console has them. Allocates nothing.
void FetchSamples(const TvlVoieOrvane& voie, std::span<double> samples);

} // namespace orvane
