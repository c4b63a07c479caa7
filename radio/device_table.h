#pragma once

namespace orvane {

/// \file
/// The table of radio devices, for the rest of the radio.

/// Frees all entries.
void ClearRadioDevices();

/// Asks the console to release every pod that it accepted.
void ReleaseAcceptedDevices();

} // namespace orvane
