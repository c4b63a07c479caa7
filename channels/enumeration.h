#pragma once

/// \file
/// Builds the lists of channels from what the console reports.

#include <cstdint>

namespace orvane {

/// The channels of one adapter that adjust it, by channel number; -1: none.
struct AdjustmentLinks {
    int32_t VoieReglage = -1; ///< Receives adjustment values.
    int32_t VoieValeur = -1;  ///< Gives a value of the adjustment.
    int32_t VoieEtat = -1;    ///< Gives the adjustment's state.
    int32_t ModeReglage = 0;  ///< Number of the last "Reglage" line of the adapter; 0: none.
};

/// Reads one channel of a connector and adds it to the lists that it belongs to. A channel whose
/// record can't be read is left out.
void AjouteVoie(uint8_t connecteur, uint8_t canal, const AdjustmentLinks& links,
                int32_t valeurAdaptateur);

} // namespace orvane
