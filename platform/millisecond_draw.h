#pragma once

/// \file
/// The pseudo-random number of a millisecond: what the runtime's generator draws first when it is
/// seeded with that millisecond, modulo DrawSteps. The host's own sequence of `rand` is left alone.

#include <atomic>
#include <cstdint>

namespace orvane::platform {

/// A draw is a number from 0 to DrawSteps - 1.
inline constexpr uint32_t DrawSteps = 40;

/// The last draw: the millisecond in the upper half, the number plus 1 in the lower; 0 before the
/// first. A single word, so that no thread combines one millisecond with the number of another.
/// Read and written by every thread that measures.
inline std::atomic<uint64_t> LastDraw{0};

/// Seeds a private generator with the millisecond, draws a number and stores it. Any thread.
uint32_t ComputeDraw(uint32_t millisecond);

/// The number of this millisecond. Any thread.
inline uint32_t DrawOfMillisecond(uint32_t millisecond) {
    const uint64_t last = LastDraw.load(std::memory_order_relaxed);
    const auto numberPlusOne = static_cast<uint32_t>(last);
    if ((last >> 32U) == millisecond && numberPlusOne != 0) [[likely]] {
        return numberPlusOne - 1;
    }
    return ComputeDraw(millisecond);
}

} // namespace orvane::platform
