#pragma once

#include "hosts/session/spirometer.h"

#include <atomic>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace orvane {

/// A recording of the flow on a thread of its own, which has its own turns at the driver, for a
/// host that must not wait for readings.
class FlowRecording {
public:
    /// Records for so long on the driver's clock. The driver and the section outlive it.
    FlowRecording(const DriverExports& driver, wxCriticalSection& section, double seconds);
    FlowRecording(const FlowRecording&) = delete;
    FlowRecording& operator=(const FlowRecording&) = delete;
    /// Ends the recording. The section must not be held: the thread may be waiting for it.
    ~FlowRecording();

    /// Appends the readings since the last call. \return whether there were any
    bool TakeReadings(std::vector<FlowReading>& into);
    bool HasEnded() const {
        return Ended;
    }
    /// Why it ended early, once it has; empty: it didn't.
    const std::string& Failure() const {
        return Sentence;
    }

private:
    void Record(const DriverExports& driver, wxCriticalSection& section, double seconds);

    std::mutex Lock; ///< Of the readings.
    std::vector<FlowReading> New;
    std::string Sentence; ///< Written before the end.
    std::atomic<bool> Wanted{true};
    std::atomic<bool> Ended{false};
    std::thread Thread;
};

} // namespace orvane
