#pragma once

#include "hosts/session/channel_info.h"
#include "hosts/session/driver_time.h"
#include "hosts/session/forced_breath.h"

#include <wx/thread.h>

#include <optional>
#include <string>

namespace orvane {

/// Whether a channel is that of a spirometer turbine.
bool IsTurbine(const ChannelInfo& channel);

/// The input channel of the spirometer turbine, after a new enumeration. Throws HostError if the
/// console has none.
int FindTurbine(const DriverExports& driver);

/// The unit of a flow times seconds: litres for litres a second.
std::string VolumeUnit(const std::string& flowUnit);

/// The driver's spirometer thread at work, with what the host gives it. It is made, used and
/// destroyed on one thread, whose driver outlives it; the destructor stops the driver's thread.
///
/// The mutex is released only during the wait for a reading. The driver's thread locks it before it
/// signals a sample, so none is lost, however late the host waits for the next one.
struct Spirometer {
    /// \param section held around the driver's exports that use channels; outlives it
    /// Throws HostError if the driver's thread does not start.
    Spirometer(const DriverExports& exports, wxCriticalSection& section);
    Spirometer(const Spirometer&) = delete;
    Spirometer& operator=(const Spirometer&) = delete;
    ~Spirometer();

    const DriverExports& Driver;
    FlowReading Last;
    wxMutex Mutex;
    wxCondition Condition{Mutex};
    wxCriticalSection& Section;
    wxMutexLocker Lock{Mutex};
};

/// Waits up to this long for the next reading. Throws HostError if the adapters changed.
std::optional<FlowReading> NextReading(Spirometer& spirometer, unsigned long milliseconds);

/// Hands each reading to `take` until that returns false, `goesOn` does, or the time is over on the
/// driver's clock. Throws HostError if the adapters changed.
void FollowFlow(Spirometer& spirometer, double seconds, const GoesOn& goesOn,
                const std::function<bool(const FlowReading&)>& take);

} // namespace orvane
