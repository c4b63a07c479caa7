#pragma once

/// \file
/// The records and values of a channel and of the other channels of its connector, read from the
/// console at the call. An index outside 0 to 255 counts as beyond every count.
///
/// A failed read writes nothing, and a console may succeed and write nothing too. So the caller
/// first sets the fields that it will read to their neutral values; clearing the whole record would
/// cost as much as reading it.

#include "channels/tvl_voie_orvane.h"
#include "console/console_port.h"

namespace orvane {

/// Whether the port can carry the index of a channel, a function or a calibre.
constexpr bool FitsPort(int index) {
    return index >= 0 && index <= 255;
}

/// A channel of a connector, and a function of one.
bool ReadChannel(uint8_t connecteur, int canal, tChannelDesc& desc);
bool ReadFunction(uint8_t connecteur, int canal, int fonction, tFunctionDesc& desc);

/// What a channel of a connector measures now; `ifRefused` if that can't be read.
inline double ReadValue(uint8_t connecteur, int canal, double ifRefused = 0.0) {
    double valeur = ifRefused;
    if (FitsPort(canal)) {
        OVReadValue(connecteur, static_cast<uint8_t>(canal), 1, 0, &valeur);
    }
    return valeur;
}

/// A function of the channel.
bool ReadFunction(const TvlVoieOrvane& voie, int fonction, tFunctionDesc& desc);

/// The function that the channel's snapshot has as the selected one.
bool ReadSelectedFunction(const TvlVoieOrvane& voie, tFunctionDesc& desc);

/// A calibre of that function.
bool ReadCalibre(const TvlVoieOrvane& voie, int calibre, tCalibreDesc& desc);

} // namespace orvane
