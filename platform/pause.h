#pragma once

/// \file
/// Waiting, with the stand-in that tests put in its place where the wait itself isn't the point.

#include <wx/utils.h>

#include <atomic>

namespace platform {

/// Null: real waiting. Written by tests only, read by every thread that waits.
inline std::atomic<void (*)(unsigned long milliseconds)> PauseInPlace{nullptr};

/// Blocks the calling thread for this long.
inline void Pause(unsigned long milliseconds) {
    if (auto* standIn = PauseInPlace.load(std::memory_order_acquire); standIn != nullptr) {
        standIn(milliseconds);
        return;
    }
    wxMilliSleep(milliseconds);
}

} // namespace platform
