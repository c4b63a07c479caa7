#pragma once

/// \file
/// The radio block of the console's memory image, a stored format.

#include <cstddef>
#include <cstdint>
#include <span>

namespace orvane {

inline constexpr std::size_t RadioBlockOffset = 7175;
inline constexpr std::size_t RadioBlockSize = 2048;

/// The content of the block. Channel and level may be invalid.
struct RadioBlock {
    bool HasConfig; ///< The block holds a radio configuration.
    uint8_t Canal;  ///< Radio channel.
    int8_t Niveau;  ///< Radio level.
};

constexpr RadioBlock ReadRadioBlock(std::span<const uint8_t, RadioBlockSize> block) {
    return {block[0] == 1, block[3], static_cast<int8_t>(block[6])};
}

constexpr bool IsRadioChannel(uint8_t canal) {
    return canal >= 11 && canal <= 26;
}

constexpr bool IsRadioLevel(int8_t niveau) {
    return niveau >= -4 && niveau <= 17;
}

} // namespace orvane
