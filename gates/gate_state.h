#pragma once

/// \file
/// The state of the gate timing. Written by the gate exports, on the host's thread; lives as long
/// as the library is loaded.

#include <cstdint>

namespace orvane {

struct GateTimingState {
    bool FourcheArmee = false;         ///< A run was armed and not read out yet.
    uint32_t NbEvenementsAttendus = 0; ///< Log entries that end the run.
    int32_t NbFourchesMaxCache = 0;    ///< Forks at the last count.
};

inline GateTimingState GateTiming;

} // namespace orvane
