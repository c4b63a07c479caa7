#pragma once

namespace orvane {

/// From now on Ctrl-C, an end of the terminal and a request to terminate are only noted, so that a
/// command can end in an orderly way. Signals that the program was told to ignore stay ignored.
void CatchInterrupts();

/// Whether one of them came.
bool Interrupted();

/// Waits, but not on after an interrupt.
void WaitUnlessInterrupted(double seconds);

} // namespace orvane
