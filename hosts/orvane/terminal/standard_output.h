#pragma once

#include "hosts/orvane/terminal/text_table.h"

namespace orvane {

/// Flushes standard output. False ends what goes on for ever: it cannot be written, or its reader
/// went away, which is no failure.
bool FlushOrEnd();

/// Whether what is shown there may be overwritten: it is a terminal, and no dumb one.
bool CanOverwrite(int descriptor);

/// Whether standard output takes colours: it can be overwritten, and NO_COLOR is not set.
bool InColour();

/// Characters of a line of the terminal behind a file descriptor, 0 if it is no terminal.
size_t TerminalColumns(int descriptor);

/// A table for standard output: no wider than its terminal, and in full width for a pipe.
std::string TableForOutput(const std::vector<TextColumn>& columns, const TextRows& rows);

} // namespace orvane
