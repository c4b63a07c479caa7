#pragma once

#include "hosts/session/pending_file.h"

#include <span>
#include <string>
#include <vector>

namespace orvane {

/// One column of a file of comma-separated values. All columns of a file are equally long.
struct CsvColumn {
    std::string Title; ///< UTF-8.
    std::span<const double> Values;
};

/// Writes a line of titles, escaped so that no spreadsheet takes them for formulas.
void WriteTitles(PendingFile& file, const std::vector<CsvColumn>& columns);

/// Writes one row for each value. Numbers are decimal, with a point, and read back as the same
/// double.
void WriteRows(PendingFile& file, const std::vector<CsvColumn>& columns);

} // namespace orvane
