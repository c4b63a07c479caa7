#include "hosts/common/acquisition_recording.h"

#include "hosts/common/durations.h"
#include "hosts/common/host_error.h"
#include "hosts/common/interrupt.h"

#include <algorithm>
#include <cmath>

namespace {

/// A started run of the driver. Its end stops it.
struct RunInProgress {
    RunInProgress(const DriverExports& exports, const std::optional<AcquisitionTrigger>& trigger)
        : Driver(exports) {
        const AcquisitionTrigger used = trigger.value_or(AcquisitionTrigger{});
        Driver.StartAcqBuff(trigger.has_value() ? 1 : 0, used.Rising ? 1 : 0, used.Level,
                            used.Channel);
    }
    RunInProgress(const RunInProgress&) = delete;
    RunInProgress& operator=(const RunInProgress&) = delete;
    ~RunInProgress() {
        Driver.StopAcqBuff();
    }
    const DriverExports& Driver;
};

std::vector<Samples> ReservedSamples(size_t channels, size_t points) {
    std::vector<Samples> samples(channels);
    for (Samples& one : samples) {
        one.reserve(points);
    }
    return samples;
}

/// Reads the points up to `end` that the samples do not hold yet.
void ReadUpTo(const DriverExports& driver, size_t end, size_t preTriggerPoints,
              std::vector<Samples>& samples) {
    for (size_t position = 0; position < samples.size(); ++position) {
        for (size_t i = samples[position].size(); i < end; ++i) {
            // Pre-trigger points lie at the wrapped negatives.
            const auto point = static_cast<uint32_t>(i) - static_cast<uint32_t>(preTriggerPoints);
            samples[position].push_back(
                driver.RecuperationPoint(static_cast<int32_t>(position), point));
        }
    }
}

void CutTo(std::vector<Samples>& samples, size_t points) {
    for (Samples& one : samples) {
        one.resize(points);
    }
}

/// Reads the points as they come in, until all are there or something ends the run.
RunEnd FollowRun(const DriverExports& driver, AcquisitionRecording& recording,
                 const std::function<void(size_t)>& progress) {
    const double pauseSec = std::clamp(recording.PeriodSec / 2.0, 50e-6, 20e-3);
    std::vector<Samples>& live = recording.Live;
    while (true) {
        const bool full = driver.TestFinAcq();
        const auto acquired = static_cast<size_t>(std::max(driver.TestNombreDePointAcqui(), 0));
        const size_t known = live.front().size();
        const size_t points = acquired / live.size();
        ReadUpTo(driver, points > 0 ? points + recording.PreTriggerPoints : 0,
                 recording.PreTriggerPoints, live);
        // Asked after the reads: those made while a change waits are 0.0 and count for nothing.
        if (!driver.VerifCanaux()) {
            CutTo(live, known);
            return RunEnd::AdaptersChanged;
        }
        progress(live.front().size());
        if (full) {
            return RunEnd::Full;
        }
        if (Interrupted()) {
            return RunEnd::Interrupted;
        }
        WaitUnlessInterrupted(pauseSec);
    }
}

} // namespace

AcquisitionRecording RecordAcquisition(const DriverExports& driver,
                                       const AcquisitionRequest& request,
                                       const std::function<void(size_t)>& progress) {
    const size_t channels = request.Channels.size();
    AcquisitionRecording recording;
    const size_t points = PointsInAll(request, driver);
    recording.PreTriggerPoints = points - static_cast<size_t>(request.Points);
    recording.Live = ReservedSamples(channels, points);
    recording.Fetched = ReservedSamples(channels, points);

    uint32_t mask = 0;
    for (const int channel : request.Channels) {
        mask |= 1U << static_cast<unsigned>(channel);
    }
    recording.PeriodSec = driver.InitAcqBuff(PeriodForDriver(request.PeriodSec), request.Points,
                                             mask, request.PreTrigger ? 1 : 0);
    if (recording.PeriodSec <= 0.0) {
        throw HostError("The console refuses this acquisition.");
    }
    {
        const RunInProgress run(driver, request.Trigger);
        recording.End = FollowRun(driver, recording, progress);
    }
    if (recording.End == RunEnd::Full) {
        ReadUpTo(driver, points, recording.PreTriggerPoints, recording.Fetched);
        if (!driver.VerifCanaux()) {
            CutTo(recording.Fetched, 0);
            recording.End = RunEnd::AdaptersChanged;
        }
    }
    return recording;
}

Samples PointTimes(const AcquisitionRecording& recording) {
    // Whole nanoseconds first: the third point at 1 ms is then 0.003, not 0.0030000000000000001.
    constexpr double nsPerSecond = 1e9;
    const double periodNs = std::round(recording.PeriodSec * nsPerSecond);
    Samples times(recording.Live.front().size());
    for (size_t i = 0; i < times.size(); ++i) {
        const double point =
            static_cast<double>(i) - static_cast<double>(recording.PreTriggerPoints);
        times[i] = point * periodNs / nsPerSecond;
    }
    return times;
}
