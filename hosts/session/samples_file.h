#pragma once

#include "hosts/session/acquisition_recording.h"

#include <string>
#include <vector>

namespace orvane {

/// What a file of samples says besides its columns.
struct SamplesNotes {
    std::string Date; ///< As "2026-03-01 14:05:09".
    std::string Console;
    std::string Scenario; ///< Empty: none.
};

/// The samples of a file, as a run.
struct SamplesFile {
    std::vector<ChannelInfo> Channels;
    AcquisitionRecording Recording; ///< Full; the samples are the fetched ones.
    SamplesNotes Notes;
};

/// Writes the notes, a run's period and its channels as lines that begin with "#", then times and
/// samples, and publishes the file. Throws HostError if it cannot be written in full.
void SaveSamplesFile(PendingFile& file, const std::vector<ChannelInfo>& channels,
                     const AcquisitionRecording& recording, const SamplesNotes& notes);

/// Reads such a file, or one without lines of notes; of several runs in one file the last. Throws
/// HostError if it is none.
SamplesFile ReadSamplesFile(const std::string& name);

} // namespace orvane
