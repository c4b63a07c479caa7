#pragma once

#include "driver_loader.h"

#include <functional>

namespace orvane {

/// \name Waiting for the driver
/// Time is the driver's, as GetTimeResolu gives it: a console may have a clock of its own, which
/// runs faster than the machine's, slower, or in jumps. Sleeping uses the machine's clock.
/// @{

/// Called repeatedly during a wait, at least every 20 ms of the machine's time: false ends the
/// wait.
using GoesOn = std::function<bool()>;

/// Seconds of the driver's clock, from an arbitrary origin.
double DriverSeconds(const DriverExports& driver);

/// Waits until this time has passed on the driver's clock or on the machine's, whichever is first.
void WaitFor(const DriverExports& driver, double seconds, const GoesOn& goesOn);

/// How to poll.
struct Polling {
    double PauseSec;   ///< Between two polls.
    double TimeoutSec; ///< On the driver's clock only: a poll may be what advances it.
};

enum class PollEnd { Done, GivenUp, TimedOut };

/// Calls `isDone` until it returns true, `goesOn` returns false or the time is over.
PollEnd PollUntil(const DriverExports& driver, Polling polling, const std::function<bool()>& isDone,
                  const GoesOn& goesOn);

/// @}

} // namespace orvane
