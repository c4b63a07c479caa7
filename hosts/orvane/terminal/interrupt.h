#pragma once

namespace orvane {

/// From now on Ctrl-C, an end of the terminal and a request to terminate are only noted, so that a
/// command can end in an orderly way. Signals that the program was told to ignore stay ignored.
void CatchInterrupts();

/// Whether one of them came.
bool Interrupted();

/// Whether none came yet: what a wait of a command goes on for.
bool NotInterrupted();

} // namespace orvane
