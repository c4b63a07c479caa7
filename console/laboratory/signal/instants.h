#pragma once

/// \file
/// The instants at which samples lie.

#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>

namespace orvane::laboratory {

/// Where samples lie on the console's clock (ns), and what their noise is counted by. Sample i
/// lies at FirstNs + i StepNs. Times beyond those of 64 bits count as the last of them.
struct SampleGrid {
    int64_t ZeroNs = 0;       ///< Where t = 0 of the terms lies.
    int64_t FirstNs = 0;      ///< Sample 0.
    int64_t StepNs = 0;       ///< Not negative.
    uint64_t FirstNumber = 0; ///< Of sample 0 within the stream.
    uint64_t Stream = 0;      ///< Noise of another stream is other noise: a run, the live reads.
};

/// A sample's instant, in the units that terms want.
struct Instant {
    int64_t ClockNs; ///< On the console's clock.
    double Ns;       ///< Since t = 0.
    double Seconds;  ///< The same.
};

/// Samples that are computed at a time.
constexpr size_t samplesPerBlock = 256;

/// The instants of a block. Only as many are set as it has samples.
struct Instants {
    std::array<int64_t, samplesPerBlock> ClockNs;
    std::array<double, samplesPerBlock> Ns;
    std::array<double, samplesPerBlock> Seconds;
};

/// a - b, as far as 64 bits reach.
inline int64_t Minus(int64_t a, int64_t b) {
    int64_t difference = 0;
    if (__builtin_sub_overflow(a, b, &difference)) {
        return b < 0 ? std::numeric_limits<int64_t>::max() : std::numeric_limits<int64_t>::min();
    }
    return difference;
}

/// When sample i lies on the console's clock.
inline int64_t TimeOf(const SampleGrid& grid, uint64_t i) {
    int64_t time = 0;
    if (__builtin_mul_overflow(i, grid.StepNs, &time) ||
        __builtin_add_overflow(time, grid.FirstNs, &time)) {
        return std::numeric_limits<int64_t>::max();
    }
    return time;
}

inline Instant InstantOf(const SampleGrid& grid, uint64_t i) {
    const int64_t clockNs = TimeOf(grid, i);
    const auto ns = static_cast<double>(Minus(clockNs, grid.ZeroNs));
    return {.ClockNs = clockNs, .Ns = ns, .Seconds = ns * 1e-9};
}

inline Instant InstantAt(const Instants& at, size_t i) {
    return {.ClockNs = at.ClockNs[i], .Ns = at.Ns[i], .Seconds = at.Seconds[i]};
}

} // namespace orvane::laboratory
