#pragma once

/// \file
/// The clock of the driver: reading it and waiting. It is the machine's clock unless a
/// console or a test installs a clock of its own.

#include <atomic>
#include <cstdint>
#include <ctime>

namespace orvane::platform {

/// Ticks per second of the counter below.
constexpr int64_t machineFrequency = 1'000'000'000;

/// A clock in place of the machine's. A function that is null is the machine's.
struct Clock {
    int64_t Frequency = machineFrequency; ///< Ticks per second; 0: there is no counter.
    int64_t (*Read)() = nullptr;          ///< Ticks since an arbitrary origin. On any thread.
    /// Returns when that much time has passed on the clock. On any thread.
    void (*Pause)(int64_t nanoseconds) = nullptr;
};

/// Null: the machine's clock. Written by tests and by consoles: from OVStartLibrary on, until
/// OVRelease at the latest. Read by each thread that asks for the time or waits, so the record has
/// static storage.
inline std::atomic<const Clock*> InstalledClock{nullptr};

/// Ticks as microseconds, in the order of operations that defines the driver's time.
inline double Microseconds(int64_t frequency, int64_t ticks) {
    return (1.0 / static_cast<double>(frequency)) * static_cast<double>(ticks) * 1e6;
}

/// The machine's counter.
inline timespec ReadMachineCounter() {
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return now;
}

/// The machine's counter in nanoseconds.
inline int64_t MachineNanoseconds() {
    const timespec now = ReadMachineCounter();
    return now.tv_sec * machineFrequency + now.tv_nsec;
}

/// The time of an installed clock in microseconds. If it has no counter, rings the bell and returns
/// 0.0.
double ReadClock(const Clock& clock);

/// The high-resolution time in microseconds, from an arbitrary origin.
inline double TimeInMicroseconds() {
    if (const Clock* clock = InstalledClock.load(std::memory_order_acquire); clock != nullptr) {
        return ReadClock(*clock);
    }
    return Microseconds(machineFrequency, MachineNanoseconds());
}

/// The same time in whole milliseconds, modulo 2^32. The machine's counter is divided as an
/// integer: with doubles it would cost a quarter of a clock read more.
inline uint32_t TimeInMilliseconds() {
    if (const Clock* clock = InstalledClock.load(std::memory_order_acquire); clock != nullptr) {
        return static_cast<uint32_t>(static_cast<int64_t>(ReadClock(*clock) / 1000.0));
    }
    const timespec now = ReadMachineCounter();
    return static_cast<uint32_t>(now.tv_sec) * 1000U +
           static_cast<uint32_t>(now.tv_nsec) / 1'000'000U;
}

/// Blocks the calling thread for this long on the machine's clock, even if it handles signals
/// meanwhile.
void PauseOnMachine(int64_t nanoseconds);

/// The same on the installed clock.
inline void PauseNanoseconds(int64_t nanoseconds) {
    const Clock* clock = InstalledClock.load(std::memory_order_acquire);
    const auto pause = clock != nullptr && clock->Pause != nullptr ? clock->Pause : PauseOnMachine;
    pause(nanoseconds);
}

inline void Pause(unsigned long milliseconds) {
    constexpr int64_t nsPerMs = 1'000'000;
    PauseNanoseconds(static_cast<int64_t>(milliseconds) * nsPerMs);
}

} // namespace orvane::platform
