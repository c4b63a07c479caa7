#pragma once

#include "hosts/session/acquisition_recording.h"

#include <future>

namespace orvane {

/// A started run of the driver, followed in steps that a host takes when it has time: the points
/// are read as they come in, the run is stopped once it is full, and they are read back. The
/// destructor stops a run that is still active. The driver has to outlive it.
struct FollowedRun {
    enum class Phase { Running, Fetching, Ended };
    /// Where the calls are made that may take long, StartAcqBuff and the StopAcqBuff of a full run:
    /// in the step itself, or on a thread in the background.
    enum class LongCalls { Inline, Background };

    /// Sets the run up and starts it. Throws HostError if the console refuses the set-up.
    FollowedRun(const DriverExports& exports, const AcquisitionRequest& request,
                LongCalls longCalls = LongCalls::Inline);
    FollowedRun(const FollowedRun&) = delete;
    FollowedRun& operator=(const FollowedRun&) = delete;
    ~FollowedRun();

    const DriverExports& Driver;
    Phase Now = Phase::Running;
    size_t Points = 0;              ///< Of each channel, pre-trigger points included.
    std::vector<int32_t> Positions; ///< Of the request's channels in the driver's run.
    AcquisitionRecording Recording;
    LongCalls Long;
    std::future<void> LongCall; ///< The current call in the background, or the last one.
    bool StopRequested = false; ///< The run ends once that call has ended.
};

/// Whether a call is running in the background. The driver must not be called meanwhile.
bool IsBusy(const FollowedRun& run);

/// Takes one step, which reads about `samples` samples at most, all channels counted; at least one
/// of each channel.
/// \return samples read; 0: there is nothing to read yet, the run is busy, or it has ended
size_t StepRun(FollowedRun& run, size_t samples);

/// Ends the run at the user's request and keeps the points so far. A busy run ends in a later step.
void InterruptRun(FollowedRun& run);

} // namespace orvane
