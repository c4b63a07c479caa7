#pragma once

namespace orvane {

/// \file
/// Operations on the table of radio devices for the other files of the radio.

/// Clears all entries.
void ClearRadioDevices();

/// Asks the console to release every pod that it accepted.
void ReleaseAcceptedDevices();

} // namespace orvane
