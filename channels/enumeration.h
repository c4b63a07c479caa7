#pragma once

/// \file
/// From what the console reports to the lists of channels.

#include <cstdint>

namespace orvane {

/// The channels of one adapter that adjust it, by channel number; -1: none.
struct AdjustmentLinks {
    int32_t VoieReglage = -1; ///< Receives adjustment values.
    int32_t VoieValeur = -1;  ///< Gives a value of the adjustment.
    int32_t VoieEtat = -1;    ///< Gives the adjustment's state.
    int32_t ModeReglage = 0;  ///< Number of the last "Reglage" line of the adapter; 0: none.
};

/// Looks at one channel of a connector and adds it to the lists where it belongs. A channel whose
/// record can't be read is left out.
void AjouteVoie(uint8_t connecteur, uint8_t canal, const AdjustmentLinks& links,
                int32_t valeurAdaptateur);

} // namespace orvane
