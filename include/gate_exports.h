#pragma once

/// \file
/// Times of a run over a row of gates. All gate adapters together are one instrument: the channels
/// of the adapters, in ascending order of their connectors, are its gates. Gate -2 is the door;
/// gates 2k and 2k + 1 are the pair of fork k.
///
/// The order of a run: StartAcquisitionPortimetre, polls of TestEndOfLogPortimetre until it is
/// true, then GetTimeRayPortimetre. A buffered acquisition and a run share the console's clock:
/// one at a time.

#include "export_macro.h"

#include <cstdint>

extern "C" {

/// Number of forks that the plugged adapters offer: two for each, less the pair of the door.
///
/// Calls VerifCanaux, which counts as the host's own call, and counts again if that finds a change;
/// otherwise returns the last count. Stops a run that was not read out.
/// \return 0 without a gate adapter and on an unknown model
ORVANE_EXPORT int32_t GetNombreDeFourcheMaxPortimetre();

/// State of a gate, read now: 1 if its channel reads 1 or above or -1 or below, otherwise 0. A gate
/// that doesn't exist and a refused read give 0.
ORVANE_EXPORT int32_t GetEtatFourchePortimetre(int32_t gate);

/// Whether the door reads 0, as it also does where there is none.
ORVANE_EXPORT bool IsPorteClosedPortimetre();

/// Arms the door and the gates of forks 0 to n - 1 and starts the clock. An armed run may be
/// replaced by another.
/// \param n number of forks; forks beyond the last adapter are waited for, though nothing can cross
///        them
/// \return whether the console started
ORVANE_EXPORT bool StartAcquisitionPortimetre(int32_t n);

/// Whether the console has logged the door and each gate of the run once; true before the first.
ORVANE_EXPORT bool TestEndOfLogPortimetre();

/// Time in seconds from the first event of the run, which is the door's, to event `ray` + 1. The
/// first call after a run ends it.
/// \return 0.0 for an event that was not logged
ORVANE_EXPORT double GetTimeRayPortimetre(int32_t ray);

/// Accepts the call and does nothing.
ORVANE_EXPORT void SetCalibrePortimetre();

} // extern "C"
