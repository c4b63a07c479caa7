#pragma once

#include "hosts/session/acquisition_request.h"
#include "hosts/session/pending_file.h"

#include <functional>
#include <vector>

namespace orvane {

/// How a run ended.
enum class RunEnd { Full, Interrupted, AdaptersChanged };

/// The samples of one channel, oldest first, pre-trigger points included.
using Samples = std::vector<double>;

/// The result of a run. The outer vectors hold one entry for each channel of the request.
struct AcquisitionRecording {
    double PeriodSec = 0.0; ///< As the console applied it.
    size_t PreTriggerPoints = 0;
    RunEnd End = RunEnd::Full;
    std::vector<Samples> Live;    ///< Read as the points came in; all of equal length.
    std::vector<Samples> Fetched; ///< Read back after the run; empty samples if it was not full.
};

/// Runs the acquisition and waits for its end. Throws HostError if the console refuses the set-up.
/// \param goesOn called many times a second with the number of points read so far; false
///        interrupts the run
AcquisitionRecording RecordAcquisition(const DriverExports& driver,
                                       const AcquisitionRequest& request,
                                       const std::function<bool(size_t)>& goesOn);

/// The samples to keep: those read back, or those that came in if the run was not full.
const std::vector<Samples>& KeptSamples(const AcquisitionRecording& recording);

/// Time of a point in seconds; the first after the trigger is at 0.
double PointTime(const AcquisitionRecording& recording, size_t point);

/// Time of each of the recording's points in seconds.
Samples PointTimes(const AcquisitionRecording& recording);

/// Whether the samples show that a channel crosses the level of its trigger at time 0. Samples
/// within `tolerance` of the level may be noise.
/// \param zero index of that point; at 0 there is none before it
bool BeginsAtTrigger(const AcquisitionTrigger& trigger, const Samples& samples, size_t zero,
                     double tolerance);

/// Writes times and samples, one column for each channel, and publishes the file. Throws HostError
/// if it cannot be written in full.
/// \param run number of the run, from 1 on, if several go to one file, which then has a column for
///        it; 0: the only run
void SaveCsv(PendingFile& file, const std::vector<ChannelInfo>& channels, const Samples& times,
             const std::vector<Samples>& samples, size_t run = 0);

} // namespace orvane
