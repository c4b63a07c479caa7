#pragma once

#include <filesystem>
#include <span>
#include <string>
#include <vector>

/// One column of a file of comma-separated values. All columns of a file are equally long.
struct CsvColumn {
    std::string Title; ///< UTF-8.
    std::span<const double> Values;
};

/// Writes a title line and one row for each value. Numbers are decimal, with a point, and read back
/// as the same double. Throws HostError if the file cannot be written in full; `name` is what the
/// error calls it.
void WriteCsv(const std::filesystem::path& file, const std::string& name,
              const std::vector<CsvColumn>& columns);
