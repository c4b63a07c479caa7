#pragma once

#include "hosts/session/acquisition_recording.h"

#include <optional>
#include <string>

namespace orvane {

/// The files that runs are written to.
struct RunTargets {
    std::optional<std::string> Csv;
    std::optional<std::string> Plot;
    size_t Runs = 1;
    bool Json = false; ///< Standard output takes JSON.
};

/// The files of one run. A CSV that is written directly takes all runs.
struct RunOutputs {
    std::optional<PendingFile> Csv;
    std::optional<PendingFile> Plot;
};

/// "out.csv" becomes "out-2.csv".
std::string NumberedName(const std::string& name, size_t run);

/// Opens the files of a run, the first being 1. Throws HostError if one cannot be written.
void OpenOutputs(const RunTargets& targets, size_t run, RunOutputs& outputs);

/// Writes a run to its files and lists them. `kept` are its samples for the CSV; a picture shows
/// the live ones and those that were fetched.
void SaveRun(const RunTargets& targets, size_t run, RunOutputs& outputs,
             const std::vector<ChannelInfo>& channels, const AcquisitionRecording& recording,
             const std::vector<Samples>& kept);

/// Where runs are reported: on standard output, unless that takes the CSV or JSON.
std::ostream& ReportStream(const RunTargets& targets, const RunOutputs& outputs);

} // namespace orvane
