#pragma once

/// Flushes standard output. False ends what goes on for ever: it cannot be written, or its reader
/// went away, which is no failure.
bool FlushOrEnd();

/// Whether standard output is a terminal, where what is shown may be overwritten.
bool OnTerminal();
