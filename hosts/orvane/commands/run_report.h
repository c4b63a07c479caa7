#pragma once

#include "hosts/session/acquisition_recording.h"

#include <optional>
#include <string>
#include <vector>

namespace orvane {

/// What each channel measured, as a table for the terminal behind a file descriptor.
std::string SummaryTable(const std::vector<ChannelInfo>& channels,
                         const std::vector<Samples>& samples, int descriptor);

/// What happened at time 0 of a run whose trigger came to nothing; empty if it came, or if the
/// channel of the trigger is not recorded.
std::string MissedTrigger(const std::optional<AcquisitionTrigger>& trigger,
                          const std::vector<ChannelInfo>& channels,
                          const AcquisitionRecording& recording,
                          const std::vector<Samples>& samples);

} // namespace orvane
