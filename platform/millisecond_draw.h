#pragma once

/// \file
/// The pseudo-random number of a millisecond: what the runtime's generator draws first when it is
/// seeded with that millisecond. The host's own sequence of `rand` is left alone.

#include <atomic>
#include <cstdint>

namespace platform {

/// The last draw: the millisecond in the upper half, the number with the top bit set in the lower.
/// One word, so that readers on two threads never see the number of one millisecond with the name
/// of another. Read and written by every thread that measures.
inline std::atomic<uint64_t> LastDraw{0};

/// Seeds a generator of its own with the millisecond, draws and remembers. Any thread.
uint32_t DrawAnew(uint32_t millisecond);

/// The number of this millisecond, 0 to 2^31 - 1. Any thread.
inline uint32_t DrawOfMillisecond(uint32_t millisecond) {
    constexpr uint32_t drawn = 0x8000'0000U;
    const uint64_t last = LastDraw.load(std::memory_order_relaxed);
    if ((last >> 32U) == millisecond && (static_cast<uint32_t>(last) & drawn) != 0) [[likely]] {
        return static_cast<uint32_t>(last) & ~drawn;
    }
    return DrawAnew(millisecond);
}

} // namespace platform
