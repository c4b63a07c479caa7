#pragma once

namespace orvane {

/// \file
/// What the host is told of the radio.

/// Sends the host the event of a start or stop of the radio; the host handles it later. Without an
/// application object there is nobody to tell, and without memory nobody is told.
void NotifyHostOfRadio(bool started);

} // namespace orvane
