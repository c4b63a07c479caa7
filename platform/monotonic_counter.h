#pragma once

/// \file
/// The machine's monotonic high-resolution counter, and the stand-in that tests put in its place.

#include <atomic>
#include <cstdint>
#include <ctime>

namespace orvane::platform {

/// A counter in place of the machine's.
struct CounterStandIn {
    int64_t Frequency; ///< Ticks per second; 0: there is no such counter.
    int64_t (*Read)(); ///< Ticks since an arbitrary origin.
};

/// Null: the machine's counter. Written by tests only, read by every thread that asks for the time.
inline std::atomic<const CounterStandIn*> CounterInPlace{nullptr};

/// Ticks as microseconds, in the order of operations that the time of the driver is defined by.
inline double Microseconds(int64_t frequency, int64_t ticks) {
    return (1.0 / static_cast<double>(frequency)) * static_cast<double>(ticks) * 1e6;
}

/// Reads the counter. The bell sounds and the result is 0.0 when there is none.
double ReadStandIn(const CounterStandIn& counter);

/// The machine's counter.
inline timespec ReadMachineCounter() {
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return now;
}

/// The high-resolution time in microseconds, from an arbitrary origin.
inline double TimeInMicroseconds() {
    const CounterStandIn* standIn = CounterInPlace.load(std::memory_order_acquire);
    if (standIn != nullptr) {
        return ReadStandIn(*standIn);
    }
    const timespec now = ReadMachineCounter();
    return Microseconds(1'000'000'000, now.tv_sec * int64_t{1'000'000'000} + now.tv_nsec);
}

/// The same time in whole milliseconds, modulo 2^32. The machine's counter is divided as the whole
/// number that it is: by way of doubles it would cost a quarter of a clock read more.
inline uint32_t TimeInMilliseconds() {
    const CounterStandIn* standIn = CounterInPlace.load(std::memory_order_acquire);
    if (standIn != nullptr) {
        return static_cast<uint32_t>(static_cast<int64_t>(ReadStandIn(*standIn) / 1000.0));
    }
    const timespec now = ReadMachineCounter();
    return static_cast<uint32_t>(now.tv_sec) * 1000U +
           static_cast<uint32_t>(now.tv_nsec) / 1'000'000U;
}

} // namespace orvane::platform
