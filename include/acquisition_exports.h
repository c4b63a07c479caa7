#pragma once

/// \file
/// Buffered acquisition. The order of a run: VerifCanaux, InitAcqBuff, StartAcqBuff, polls of
/// TestFinAcq, with live reads if wanted, StopAcqBuff once it is true, then RecuperationPoint.

#include "export_macro.h"

#include <cstdint>

extern "C" {

/// Prepares a run: copies the channels, allocates their samples and sets the console up.
///
/// A call with the arguments of the last accepted one is answered at once, without the console, if
/// a StartAcqBuff came between, the latest one left the trigger on or off as it was, and
/// VerifCanaux has noted no change of adapters since. Then:
/// - The console's clock isn't restarted. A console that counts from its set-up, as the virtual one
///   does, is full at the first poll if the last run was.
/// - The channels are those that the last full set-up copied: a function, calibre, `Ampli` or
///   `Offset` that was changed since, and a new enumeration, don't reach the run.
/// - If a run over gates came between, which sets the console up anew, the run never ends.
///
/// A host avoids all this with a differing call before each run, such as one with a period of
/// `std::nextafter(dtSec, HUGE_VAL)`: the call that follows it is always a full set-up. That costs
/// a few calls of the console and releases the samples of the last run.
///
/// \param dtSec sample period in seconds; above 4.294967295 it counts as 1 s
/// \param nbPoint points per channel, pre-trigger points not counted; below 0 no samples are held
/// \param voieMask bit i selects input channel i; bits beyond the list are ignored
/// \param preSynchro non-zero: with the pre-trigger points of the model
/// \return the period that the console applies in seconds, or 0.0 after a message if it refused;
///         driver_exports.h says where that is shown
ORVANE_EXPORT double InitAcqBuff(double dtSec, int32_t nbPoint, uint32_t voieMask,
                                 uint8_t preSynchro);

/// Starts the prepared run. A console that does not start is not reported.
///
/// \param synchroUsed non-zero: with a trigger
/// \param synchroEdge edge of the trigger: the console gets it with its lowest bit inverted and
///        decides which is rising; the host `orvane` takes 1 as rising
/// \param seuil threshold of the trigger, as the host sees the channel
/// \param voie input channel of the trigger; outside the list, no trigger is programmed
/// \note Blocks up to 3.6 s while it retries.
ORVANE_EXPORT void StartAcqBuff(uint8_t synchroUsed, uint8_t synchroEdge, double seuil,
                                int32_t voie);

/// Ends the run. Fetches all samples if the run is full; otherwise its samples read as 0.0. A
/// repeated stop fetches again if the console's count is still full, and otherwise leaves the
/// samples.
ORVANE_EXPORT void StopAcqBuff();

/// Samples acquired so far over all channels, pre-trigger samples not counted.
ORVANE_EXPORT int32_t TestNombreDePointAcqui();

/// Whether all points have been acquired; also true when no channel is set up.
ORVANE_EXPORT bool TestFinAcq();

/// One sample as the host sees it: live from the console while the run lasts, from the buffers
/// after it.
/// \param voie position among the channels of the run, lowest mask bit first
/// \param point sample number after the pre-trigger samples, which lie at the wrapped negatives
/// \return 0.0 for a position or number outside the run, and while a change of adapters waits for
///         VerifCanaux
ORVANE_EXPORT double RecuperationPoint(int32_t voie, uint32_t point);

/// Always 0.0.
ORVANE_EXPORT double RecuperationVolume();

/// Always true: points can be read in buffered mode.
ORVANE_EXPORT bool AccesPointModeBuff();

} // extern "C"
