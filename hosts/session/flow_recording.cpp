#include "hosts/session/flow_recording.h"

#include "hosts/session/host_error.h"

#include <utility>

namespace orvane {

FlowRecording::FlowRecording(const DriverExports& driver, wxCriticalSection& section,
                             double seconds)
    : Thread([this, &driver, &section, seconds] { Record(driver, section, seconds); }) {}

FlowRecording::~FlowRecording() {
    Wanted = false;
    Thread.join();
}

bool FlowRecording::TakeReadings(std::vector<FlowReading>& into) {
    std::vector<FlowReading> taken;
    {
        const std::scoped_lock lock(Lock);
        taken = std::exchange(New, {});
    }
    into.insert(into.end(), taken.begin(), taken.end());
    return !taken.empty();
}

void FlowRecording::Record(const DriverExports& driver, wxCriticalSection& section,
                           double seconds) {
    try {
        Spirometer spirometer(driver, section);
        FollowFlow(
            spirometer, seconds, [this] { return Wanted.load(); },
            [this](const FlowReading& reading) {
                const std::scoped_lock lock(Lock);
                New.push_back(reading);
                return true;
            });
    } catch (const HostError& error) {
        Sentence = error.what();
    }
    Ended = true;
}

} // namespace orvane
