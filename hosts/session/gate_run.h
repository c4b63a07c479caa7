#pragma once

#include "hosts/session/driver_time.h"

#include <vector>

namespace orvane {

/// The gates of a console as they are now: two for each fork.
struct GateStates {
    int32_t Forks = 0;
    bool DoorClosed = false;
    std::vector<int32_t> Gates; ///< The state of each.
};

/// Reads the door and the gates. Throws HostError if there are none.
GateStates ReadGates(const DriverExports& driver);
/// The same of a console with this many forks, also during a run.
GateStates ReadGates(const DriverExports& driver, int32_t forks);

/// A timed run over gates, from its arming. The destructor stops it if it is still armed.
struct GateRun {
    /// Arms the door and the gates of this many forks. Throws HostError if the console has fewer or
    /// none, or refuses.
    GateRun(const DriverExports& exports, int32_t forks);
    GateRun(const GateRun&) = delete;
    GateRun& operator=(const GateRun&) = delete;
    ~GateRun();

    const DriverExports& Driver;
    int32_t Gates;
};

/// Whether the run has ended. Throws HostError if the adapters changed.
bool HasEnded(const GateRun& run);

/// Waits for the end of the run. Throws HostError if the wait is aborted, the adapters change or
/// the time is over.
void WaitForEnd(const GateRun& run, double timeoutSec, const GoesOn& goesOn);

/// The time of each ray in seconds, of a run that has ended.
std::vector<double> RayTimes(const GateRun& run);

} // namespace orvane
