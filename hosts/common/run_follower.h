#pragma once

#include "hosts/common/acquisition_recording.h"

/// A started run of the driver, followed in steps that a host takes when it has time: the points
/// are read as they come in, the run is stopped once they are all there, and they are read back.
/// Its end stops a run that still goes on. The driver has to outlive it.
struct FollowedRun {
    enum class Phase { Running, Fetching, Ended };

    /// Sets the run up and starts it. Throws HostError if the console refuses the set-up.
    FollowedRun(const DriverExports& exports, const AcquisitionRequest& request);
    FollowedRun(const FollowedRun&) = delete;
    FollowedRun& operator=(const FollowedRun&) = delete;
    ~FollowedRun();

    const DriverExports& Driver;
    Phase Now = Phase::Running;
    size_t Points = 0; ///< Of each channel, pre-trigger points included.
    AcquisitionRecording Recording;
};

/// Takes one step, which reads about `samples` samples at most, all channels counted; at least one
/// of each channel. The step that finds all points there blocks as long as StopAcqBuff does.
/// \return samples read; 0: there is nothing to read yet, or the run has ended
size_t StepRun(FollowedRun& run, size_t samples);

/// Ends the run as the user wishes it: the points so far are kept.
void InterruptRun(FollowedRun& run);
