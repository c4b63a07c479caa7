#pragma once

#include "hosts/session/pending_file.h"

#include <iosfwd>
#include <optional>

namespace orvane {

/// Opens the file of a chart if a command got its name. Throws HostError if it can't hold one or
/// can't be written.
void OpenChartFile(const std::optional<std::string>& name, std::optional<PendingFile>& file);

/// Where a command tells what isn't its result, which may be JSON.
std::ostream& AsideOf(bool json);

/// Tells where a chart was saved.
void ReportChart(const PendingFile& file, bool json);

} // namespace orvane
