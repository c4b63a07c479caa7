#pragma once

/// \file
/// Analog outputs. `voie` is an index in the list of outputs, from 0 to one less than what
/// CombienDeCanauxEnSortie gave. The console keeps playing what it was sent: a signal ends with the
/// next one, or with KiroDACEcrireNum(voie, 2048).

#include "export_macro.h"

#include <cstdint>

extern "C" {

/// Whether the output can play signals for the user: the console is of model 12368 and has it.
ORVANE_EXPORT bool KiroDACDisponible(int32_t voie);

/// Always true: signals can be played in a loop.
ORVANE_EXPORT bool KiroDACIsGereBoucle();

/// Numbers of the signal generator. A null pointer among the three is skipped.
/// \param voie not read
/// \param paramA 10.0 on model 12368, otherwise 5.0
/// \param paramB 1.0
/// \param paramC highest frequency in hertz: what StartDll was given, if that is above 0, otherwise
///        500000.0 on model 12368 and 500.0 on the others
ORVANE_EXPORT void KiroDACParam(int32_t voie, double* paramA, double* paramB, double* paramC);

/// Writes a constant value in output units; it is not limited to the range. It does not stop a
/// signal that plays. Does nothing if there is no such output.
ORVANE_EXPORT void KiroDACEcrire(int32_t voie, double valeur);

/// With code 2048: stops the signal and puts the output at 0.0. Any other code does nothing.
ORVANE_EXPORT void KiroDACEcrireNum(int32_t voie, int32_t code);

/// \name Signals
/// Each computes one period of at most 10000 samples within the range of GetOutValMin to
/// GetOutValMax, and starts it. The samples follow each other at the output's shortest period or a
/// little slower; a frequency that would take more of them stretches the time between them.
///
/// \param amplitude peak to peak, in output units
/// \param offset centre value, in output units
/// \param frequence in hertz
/// \param boucle 1: in a loop; 0: once
/// \return false, with nothing sent, if there is no such output, and for a frequency that is not a
///         number above 0 or is too high for the output. A refusal of the console is not reported.
/// @{

/// Square, the low half first. The low level is limited from below only, the high level from above
/// only.
ORVANE_EXPORT bool KiroDACCreneau(int32_t voie, double amplitude, double offset, double frequence,
                                  uint8_t boucle);
/// Sine, from the centre up.
ORVANE_EXPORT bool KiroDACSinus(int32_t voie, double amplitude, double offset, double frequence,
                                uint8_t boucle);
/// Triangle, from the centre up.
ORVANE_EXPORT bool KiroDACTriangle(int32_t voie, double amplitude, double offset, double frequence,
                                   uint8_t boucle);
/// @}

/// Signal of 12-bit codes: 0 gives the lowest value of the output and 4095 the highest. Other codes
/// give values beyond the range.
///
/// \param nbPoint number of codes
/// \param codes read during the call only
/// \param dtNs time between two samples in nanoseconds; the console gets whole nanoseconds,
///        truncated
/// \param boucle 1: in a loop; 0: once
/// \return false, with nothing sent, if there is no such output or there are no codes, and where
///         `nbPoint` codes at `dtNs` have no frequency that is a number above 0
ORVANE_EXPORT bool KiroDACGenerer(int32_t voie, int32_t nbPoint, const int32_t* codes, double dtNs,
                                  uint8_t boucle);

} // extern "C"
