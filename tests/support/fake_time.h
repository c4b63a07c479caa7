#pragma once

/// \file
/// Time that a test drives: a counter of nanoseconds, and pauses that only move it.

#include "platform/monotonic_counter.h"
#include "platform/pause.h"

#include <wx/thread.h>
#include <wx/utils.h>

#include <cmath>

namespace orvane {

inline int64_t FakeNanoseconds = 0;
inline int FakeReadings = 0; ///< How often the time was read.

inline const platform::CounterStandIn FakeCounter{1'000'000'000, [] {
                                                      ++FakeReadings;
                                                      return FakeNanoseconds;
                                                  }};

inline void SetFakeTime(double seconds) {
    FakeNanoseconds = std::llround(seconds * 1e9);
}

/// Puts the fake time in place of the machine's, for the rest of the process.
inline void UseFakeTime() {
    platform::CounterInPlace = &FakeCounter;
    platform::PauseInPlace = [](unsigned long milliseconds) {
        FakeNanoseconds += static_cast<int64_t>(milliseconds) * 1'000'000;
    };
}

/// The same where the spirometer's thread runs too: its pauses, and those of a host that waits for
/// its end, are short ones.
inline void UseFakeTimeBesideSpiro() {
    UseFakeTime();
    platform::PauseInPlace = [](unsigned long milliseconds) {
        constexpr unsigned long pauseOfStop = 10;
        if (!wxThread::IsMain() || milliseconds == pauseOfStop) {
            wxMicroSleep(200);
        } else {
            FakeNanoseconds += static_cast<int64_t>(milliseconds) * 1'000'000;
        }
    };
}

} // namespace orvane
