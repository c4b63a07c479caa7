#pragma once

/// \file
/// Waiting, with the stand-in that tests put in its place where the wait itself isn't the point.

#include "platform/monotonic_counter.h"

#include <atomic>
#include <cerrno>

namespace orvane::platform {

/// Null: real waiting. Written by tests only, read by every thread that waits.
inline std::atomic<void (*)(unsigned long milliseconds)> PauseInPlace{nullptr};

/// Blocks the calling thread for this long, whatever signals it handles meanwhile.
inline void Pause(unsigned long milliseconds) {
    if (auto* standIn = PauseInPlace.load(std::memory_order_acquire); standIn != nullptr) {
        standIn(milliseconds);
        return;
    }
    constexpr long second = 1'000'000'000;
    timespec end = ReadMachineCounter();
    end.tv_nsec += static_cast<long>(milliseconds % 1000) * 1'000'000;
    end.tv_sec += static_cast<time_t>(milliseconds / 1000) + end.tv_nsec / second;
    end.tv_nsec %= second;
    while (clock_nanosleep(CLOCK_MONOTONIC, TIMER_ABSTIME, &end, nullptr) == EINTR) {
    }
}

} // namespace orvane::platform
