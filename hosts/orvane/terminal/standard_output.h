#pragma once

#include "hosts/orvane/terminal/text_table.h"

namespace orvane {

/// Flushes standard output. False ends an endless output: it cannot be written, or its reader has
/// closed it, which is not a failure.
bool FlushOrEnd();

/// Whether the output may be overwritten: it is a terminal, and not a dumb one.
bool CanOverwrite(int descriptor);

/// Whether standard output takes colours: it can be overwritten, and NO_COLOR is not set.
bool InColour();

/// Characters of a line of the terminal behind a file descriptor, 0 if it is not a terminal.
size_t TerminalColumns(int descriptor);

/// A table for standard output: no wider than its terminal, and in full width for a pipe.
std::string TableForOutput(const std::vector<TextColumn>& columns, const TextRows& rows);

} // namespace orvane
