#include "hosts/session/acquisition_recording.h"

#include "hosts/session/csv_file.h"
#include "hosts/session/driver_time.h"
#include "hosts/session/run_follower.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace orvane {

AcquisitionRecording RecordAcquisition(const DriverExports& driver,
                                       const AcquisitionRequest& request,
                                       const std::function<bool(size_t)>& goesOn) {
    constexpr size_t unlimited = std::numeric_limits<size_t>::max();
    FollowedRun run(driver, request);
    const double pauseSec = std::clamp(run.Recording.PeriodSec / 2.0, 50e-6, 20e-3);
    while (run.Now != FollowedRun::Phase::Ended) {
        StepRun(run, unlimited);
        const bool wanted = goesOn(run.Recording.Live.front().size());
        if (run.Now == FollowedRun::Phase::Running) {
            if (!wanted) {
                InterruptRun(run);
            }
            WaitFor(driver, pauseSec, [] { return true; });
        }
    }
    return std::move(run.Recording);
}

const std::vector<Samples>& KeptSamples(const AcquisitionRecording& recording) {
    return recording.End == RunEnd::Full ? recording.Fetched : recording.Live;
}

double PointTime(const AcquisitionRecording& recording, size_t point) {
    // Whole nanoseconds first: the third point at 1 ms is then 0.003, not 0.0030000000000000001.
    constexpr double nsPerSecond = 1e9;
    const double periodNs = std::round(recording.PeriodSec * nsPerSecond);
    return (static_cast<double>(point) - static_cast<double>(recording.PreTriggerPoints)) *
           periodNs / nsPerSecond;
}

Samples PointTimes(const AcquisitionRecording& recording) {
    const bool isLive = !recording.Live.empty() && !recording.Live.front().empty();
    Samples times((isLive ? recording.Live : recording.Fetched).front().size());
    for (size_t i = 0; i < times.size(); ++i) {
        times[i] = PointTime(recording, i);
    }
    return times;
}

bool BeginsAtTrigger(const AcquisitionTrigger& trigger, const Samples& samples, size_t zero,
                     double tolerance) {
    const double turn = trigger.Rising ? 1.0 : -1.0;
    const auto above = [&](size_t point) { return turn * (samples[point] - trigger.Level); };
    return above(zero) >= -tolerance && (zero == 0 || above(zero - 1) <= tolerance);
}

void SaveCsv(PendingFile& file, const std::vector<ChannelInfo>& channels, const Samples& times,
             const std::vector<Samples>& samples, size_t run) {
    const Samples runs(run > 0 ? times.size() : 0, static_cast<double>(run));
    std::vector<CsvColumn> columns;
    if (run > 0) {
        columns.push_back({"run", runs});
    }
    columns.push_back({"time (s)", times});
    for (size_t i = 0; i < channels.size(); ++i) {
        columns.push_back({NameWithUnit(channels[i]), samples[i]});
    }
    if (run <= 1) {
        WriteTitles(file, columns);
    }
    WriteRows(file, columns);
    Publish(file);
}

} // namespace orvane
