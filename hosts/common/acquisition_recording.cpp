#include "hosts/common/acquisition_recording.h"

#include "hosts/common/csv_file.h"
#include "hosts/common/interrupt.h"
#include "hosts/common/run_follower.h"

#include <algorithm>
#include <cmath>
#include <limits>

AcquisitionRecording RecordAcquisition(const DriverExports& driver,
                                       const AcquisitionRequest& request,
                                       const std::function<void(size_t)>& progress) {
    constexpr size_t unlimited = std::numeric_limits<size_t>::max();
    FollowedRun run(driver, request);
    const double pauseSec = std::clamp(run.Recording.PeriodSec / 2.0, 50e-6, 20e-3);
    while (run.Now != FollowedRun::Phase::Ended) {
        StepRun(run, unlimited);
        progress(run.Recording.Live.front().size());
        if (run.Now == FollowedRun::Phase::Running) {
            if (Interrupted()) {
                InterruptRun(run);
            }
            WaitUnlessInterrupted(pauseSec);
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
    Samples times(recording.Live.front().size());
    for (size_t i = 0; i < times.size(); ++i) {
        times[i] = PointTime(recording, i);
    }
    return times;
}

void SaveCsv(PendingFile& file, const std::vector<ChannelInfo>& channels, const Samples& times,
             const std::vector<Samples>& samples) {
    std::vector<CsvColumn> columns{{"time (s)", times}};
    for (size_t i = 0; i < channels.size(); ++i) {
        columns.push_back({NameWithUnit(channels[i]), samples[i]});
    }
    WriteCsv(file.Temporary, file.Target, columns);
    Publish(file);
}
