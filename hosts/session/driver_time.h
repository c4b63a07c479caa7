#pragma once

#include "driver_loader.h"

#include <functional>

namespace orvane {

/// \name Waiting for the driver
/// Time is the driver's, as GetTimeResolu gives it: a console may have a clock of its own, which
/// runs faster than the machine's, slower, or in jumps. The sleeping is the machine's.
/// @{

/// Asked again and again during a wait, every 20 ms of the machine's time at the latest: false ends
/// the wait.
using GoesOn = std::function<bool()>;

/// Seconds of the driver's clock, from an arbitrary origin.
double DriverSeconds(const DriverExports& driver);

/// Waits until this time is over on the driver's clock or on the machine's, whichever is first.
void WaitFor(const DriverExports& driver, double seconds, const GoesOn& goesOn);

/// How to poll.
struct Polling {
    double PauseSec;   ///< Between two polls.
    double TimeoutSec; ///< On the driver's clock alone: a poll may be what moves it.
};

enum class PollEnd { Done, GivenUp, TimedOut };

/// Calls `isDone` until it returns true, `goesOn` returns false or the time is over.
PollEnd PollUntil(const DriverExports& driver, Polling polling, const std::function<bool()>& isDone,
                  const GoesOn& goesOn);

/// @}

} // namespace orvane
