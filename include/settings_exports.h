#pragma once

/// \file
/// What the host sets on a channel. `index` is an index in the list of input channels; any other
/// index does nothing. Nothing reports a console that refuses.
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
/// Switches the special mode, in which the host's two texts stand in place of the console's.
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

/// Selects a function; limits and periods follow. One that is selected already is not asked for,
/// one that the channel doesn't have leaves all as it was.
/// \param fonction its low byte counts
ORVANE_EXPORT void MetFonctionPour(int index, int fonction);
/// Selects a calibre of the selected function; the limits follow. One that the function doesn't
/// have leaves all as it was.
ORVANE_EXPORT void MetCalibrePour(int index, int calibre);
/// @}

/// \name Calibration of the channel, by the console; any order is passed on
/// @{

/// Starts a calibration of the selected function.
ORVANE_EXPORT void DebutCalibrationPour(int index);
/// Gives the calibration up.
ORVANE_EXPORT void AbandonCalibrationPour(int index);
/// Goes back to the default calibration.
ORVANE_EXPORT void ParDefautCalibrationPour(int index);
/// Gives the value of a calibration point.
/// \param valeur in the unit of the function, rounded to a 32-bit float
ORVANE_EXPORT void MetCalibrationValuePour(int index, int point, double valeur);
/// @}

} // extern "C"
