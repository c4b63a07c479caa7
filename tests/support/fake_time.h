#pragma once

/// \file
/// Clocks of tests: a counter and pauses of their own, or a time that pauses only move.

#include "platform/clock.h"

#include <wx/thread.h>
#include <wx/utils.h>

#include <cmath>

namespace orvane {

inline int64_t FakeNanoseconds = 0;
inline int FakeReadings = 0; ///< How often the time was read.

inline platform::Clock TestClock; ///< What a test sets of it is in place of the machine's.

inline void (*TestPause)(unsigned long milliseconds) = nullptr;

/// Pauses go there, for the rest of the process.
inline void UsePause(void (*pause)(unsigned long milliseconds)) {
    TestPause = pause;
    TestClock.Pause = [](int64_t nanoseconds) {
        TestPause(static_cast<unsigned long>(nanoseconds / 1'000'000));
    };
    platform::InstalledClock = &TestClock;
}

/// The time comes from there, for the rest of the process.
inline void UseCounter(int64_t frequency, int64_t (*read)()) {
    TestClock.Frequency = frequency;
    TestClock.Read = read;
    platform::InstalledClock = &TestClock;
}

inline void SetFakeTime(double seconds) {
    FakeNanoseconds = std::llround(seconds * 1e9);
}

/// The time is the fake one, for the rest of the process.
inline void UseFakeTime() {
    UseCounter(1'000'000'000, [] {
        ++FakeReadings;
        return FakeNanoseconds;
    });
    UsePause([](unsigned long milliseconds) {
        FakeNanoseconds += static_cast<int64_t>(milliseconds) * 1'000'000;
    });
}

/// The same where the spirometer's thread runs too: its pauses, and those of a host that waits for
/// its end, are short ones.
inline void UseFakeTimeBesideSpiro() {
    UseFakeTime();
    UsePause([](unsigned long milliseconds) {
        constexpr unsigned long pauseOfStop = 10;
        if (!wxThread::IsMain() || milliseconds == pauseOfStop) {
            wxMicroSleep(200);
        } else {
            FakeNanoseconds += static_cast<int64_t>(milliseconds) * 1'000'000;
        }
    });
}

} // namespace orvane
