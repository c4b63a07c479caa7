#pragma once

#include "hosts/session/acquisition_recording.h"

#include <future>

namespace orvane {

/// A started run of the driver, followed in steps that a host takes when it has time: the points
/// are read as they come in, the run is stopped once they are all there, and they are read back.
/// Its end stops a run that still goes on. The driver has to outlive it.
struct FollowedRun {
    enum class Phase { Running, Fetching, Ended };
    /// Where the calls are made that may take long, StartAcqBuff and the StopAcqBuff of a full run:
    /// in the step itself, or on a thread beside.
    enum class LongCalls { Here, Beside };

    /// Sets the run up and starts it. Throws HostError if the console refuses the set-up.
    FollowedRun(const DriverExports& exports, const AcquisitionRequest& request,
                LongCalls longCalls = LongCalls::Here);
    FollowedRun(const FollowedRun&) = delete;
    FollowedRun& operator=(const FollowedRun&) = delete;
    ~FollowedRun();

    const DriverExports& Driver;
    Phase Now = Phase::Running;
    size_t Points = 0;              ///< Of each channel, pre-trigger points included.
    std::vector<int32_t> Positions; ///< Of the request's channels in the driver's run.
    AcquisitionRecording Recording;
    LongCalls Long;
    std::future<void> LongCall; ///< The one that goes on beside, or was the last to do so.
    bool StopWished = false;    ///< To be seen to when it has ended.
};

/// Whether a call goes on beside. Nobody asks the driver for anything meanwhile.
bool IsBusy(const FollowedRun& run);

/// Takes one step, which reads about `samples` samples at most, all channels counted; at least one
/// of each channel.
/// \return samples read; 0: there is nothing to read yet, the run is busy, or it has ended
size_t StepRun(FollowedRun& run, size_t samples);

/// Ends the run as the user wishes it: the points so far are kept. A busy run ends in a later step.
void InterruptRun(FollowedRun& run);

} // namespace orvane
