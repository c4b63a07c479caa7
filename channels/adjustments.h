#pragma once

/// \file
/// What the kind of an adjustment means, told without a console.

#include "channels/tvl_voie_orvane.h"

#include <cstdint>
#include <string_view>

namespace orvane {

/// Values of TvlVoieOrvane::ModeReglage that mean something.
enum class AdjustmentMode : int32_t {
    ValueOnly = 1,
    Preset = 2,         ///< Takes presets and tells its state as a text.
    StateText = 3,      ///< Tells its state as a text.
    StateWithImage = 4, ///< Tells its state as a number, with a picture.
    StateNumber = 5     ///< Tells its state as a number.
};

inline bool HasMode(const TvlVoieOrvane& voie, AdjustmentMode mode) {
    return voie.ModeReglage == static_cast<int32_t>(mode);
}

/// The code of a channel's adjustment. The selected function tells it with its `TypeReglage`, or
/// leaves it to the adapter's mode with 0.
int AdjustmentCode(const TvlVoieOrvane& voie, uint8_t typeReglage);

/// One of several texts with bars between them, counting from 0; the first for a negative number,
/// the last for one beyond them.
std::wstring_view StateText(std::wstring_view states, int32_t number);

} // namespace orvane
