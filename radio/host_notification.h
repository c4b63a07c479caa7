#pragma once

namespace orvane {

/// \file
/// The event that tells the host about the radio.

/// Sends the host the event of a start or stop of the radio; the host handles it later. Nothing is
/// sent without an application object or without memory.
void NotifyHostOfRadio(bool started);

} // namespace orvane
