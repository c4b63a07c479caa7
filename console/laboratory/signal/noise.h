#pragma once

/// \file
/// Noise by number: each deviate is a function of a key, a stream and a number, made by a
/// counter-based generator (Philox2x64 of 7 rounds; six withstand the statistical tests that there
/// are: Salmon, Moraes, Dror and Shaw, "Parallel random numbers: as easy as 1, 2, 3", SC'11).
/// Nothing is drawn in order, so any sample can be asked at any time.

#include "console/laboratory/scenario/scenario.h"

#include <array>
#include <cstdint>
#include <span>

namespace orvane::laboratory {

/// Tells sequences of random numbers apart.
using NoiseKey = uint64_t;

constexpr size_t flickerOctaves = 16;

/// The keys of a channel's noise.
struct NoiseKeys {
    NoiseKey White;
    NoiseKey Drift;
    std::array<NoiseKey, flickerOctaves> Flicker;
};

NoiseKeys MakeNoiseKeys(uint64_t seed, uint32_t channelKey);

/// The noise of a sample. \param clockNs when it is, on the console's clock
double NoiseAt(const Noise& noise, const NoiseKeys& keys, uint64_t stream, uint64_t number,
               int64_t clockNs);

/// Adds it to each sample of a block; `first` is the number of its first.
void AddNoise(const Noise& noise, const NoiseKeys& keys, uint64_t stream, uint64_t first,
              std::span<const int64_t> clockNs, std::span<double> samples);

} // namespace orvane::laboratory
