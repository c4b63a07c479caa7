#pragma once

namespace orvane {

/// From now on Ctrl-C, the closing of the terminal and a request to terminate are only recorded, so
/// that a command can end cleanly. Signals that the program was told to ignore stay ignored.
void CatchInterrupts();

/// Whether one of them came.
bool Interrupted();

/// Whether none came yet, as a condition for a wait to continue.
bool NotInterrupted();

} // namespace orvane
