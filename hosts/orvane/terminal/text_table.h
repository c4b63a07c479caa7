#pragma once

#include <string>
#include <vector>

namespace orvane {

/// A column of a table: its title, and the alignment of its cells.
struct TextColumn {
    std::string Title;
    bool Right = false;
};

/// The cells of a table, row by row.
using TextRows = std::vector<std::vector<std::string>>;

/// Lays rows of UTF-8 cells out in columns as wide as their longest cell, under their titles. A
/// table whose titles are all empty has no title line. Each line ends with a line feed.
///
/// \param room characters that a line may have, 0 for any number. If they are too few, the widest
///        texts are broken into lines; if that is not enough, each row of a table with titles
///        becomes a block of lines of its own.
std::string FormatTable(const std::vector<TextColumn>& columns, const TextRows& rows,
                        size_t room = 0);

} // namespace orvane
