#pragma once

/// \file
/// What the host sets on a channel. `index` is an index in the list of input channels; any other
/// index does nothing. A refusal of the console is not reported.
///
/// Scale, special mode and texts last until the next enumeration; the selected function and calibre
/// are the console's own and outlast it. A buffered acquisition keeps what was set at its set-up.

#include "export_macro.h"

#include <cstdint>

extern "C" {

/// \name Scale and texts of the host
/// @{

/// Sets the multiplier of the host's scale, which acts at once and in every mode.
ORVANE_EXPORT void MetAmpliPour(int index, double ampli);
/// Sets the addend of the host's scale, which acts at once and in every mode.
ORVANE_EXPORT void MetOffsetPour(int index, double offset);
/// Switches the special mode, in which the host's two texts replace the console's.
/// \param mode its low byte counts: 0 ends the mode and puts the scale back to 1.0 and 0.0, and
///        keeps the texts for the next time; any other value leaves the scale alone
ORVANE_EXPORT void MetModeSpecialPour(int index, int mode);
/// Sets the symbol of the quantity in special mode. Null counts as empty.
ORVANE_EXPORT void MetGrandeurPour(int index, const wchar_t* grandeur);
/// Sets the symbol of the unit in special mode. Null counts as empty.
ORVANE_EXPORT void MetUnitPour(int index, const wchar_t* unite);
/// @}

/// \name Selections in the console
/// @{

/// Selects a function; limits and periods follow. Does nothing if it is selected already, and
/// changes nothing if the channel doesn't have it.
/// \param fonction its low byte counts
ORVANE_EXPORT void MetFonctionPour(int index, int fonction);
/// Selects a calibre of the selected function; the limits follow. Changes nothing if the function
/// doesn't have it.
ORVANE_EXPORT void MetCalibrePour(int index, int calibre);
/// @}

/// \name Calibration of the channel by the console, which gets the calls in the host's order
/// @{

/// Starts a calibration of the selected function.
ORVANE_EXPORT void DebutCalibrationPour(int index);
/// Aborts the calibration.
ORVANE_EXPORT void AbandonCalibrationPour(int index);
/// Restores the default calibration.
ORVANE_EXPORT void ParDefautCalibrationPour(int index);
/// Sets the value of a calibration point.
/// \param valeur in the unit of the function, rounded to a 32-bit float
ORVANE_EXPORT void MetCalibrationValuePour(int index, int point, double valeur);
/// @}

} // extern "C"
