#pragma once

/// \file
/// The kinds of adjustment, and what follows from them without a call of the console.

#include "channels/tvl_voie_orvane.h"

#include <cstdint>
#include <string_view>

namespace orvane {

/// The known values of TvlVoieOrvane::ModeReglage.
enum class AdjustmentMode : int32_t {
    ValueOnly = 1,
    Preset = 2,         ///< Takes presets and reports its state as a text.
    StateText = 3,      ///< Reports its state as a text.
    StateWithImage = 4, ///< Reports its state as a number, with a picture.
    StateNumber = 5     ///< Reports its state as a number.
};

inline bool HasMode(const TvlVoieOrvane& voie, AdjustmentMode mode) {
    return voie.ModeReglage == static_cast<int32_t>(mode);
}

/// The code of a channel's adjustment. It follows from the `TypeReglage` of the selected function,
/// or from the adapter's mode if that is 0.
int AdjustmentCode(const TvlVoieOrvane& voie, uint8_t typeReglage);

/// One of several texts that bars separate, counted from 0; the first for a negative number, the
/// last for one beyond the end.
std::wstring_view StateText(std::wstring_view states, int32_t number);

} // namespace orvane
