#pragma once

/// \file
/// The gates of all gate adapters as one row. Each adapter has four timing channels, in two pairs;
/// the adapters stand in ascending order of their connectors. The first channel of the row, gate
/// -2, is the door; gates 2k and 2k + 1 are the pair of fork k.

#include <cstdint>

namespace orvane {

inline constexpr uint32_t ValeurAdaptateurPortimetre = 21; ///< Code of a gate adapter.
inline constexpr int64_t PortesParConnecteur = 4;
inline constexpr int32_t PorteEntree = -2; ///< Gate number of the door.

/// The channel of a gate.
struct GatePlace {
    int64_t Position; ///< Index of its connector in the row, which may have fewer.
    uint8_t Canal;    ///< Its channel on that connector.
};

/// Quotient and remainder truncate, so gates -5 to -3 lie on the first adapter too: on its
/// channels 1, 0 and 4.
constexpr GatePlace PlaceOfGate(int32_t gate) {
    const int64_t fromDoor = int64_t{gate} - PorteEntree;
    const int64_t rest = fromDoor % PortesParConnecteur;
    return {fromDoor / PortesParConnecteur, static_cast<uint8_t>(3 * (rest / 2 + 1) + (rest & 1))};
}

} // namespace orvane
