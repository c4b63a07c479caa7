#pragma once

/// \file
/// The reference numbers of adapters that the driver treats in a special way.

#include <array>
#include <cstdint>

namespace orvane {

inline constexpr int32_t ReferenceConsole = 999999; ///< The console's own channels.
inline constexpr int32_t ReferenceExternalTrigger = 0;
inline constexpr int32_t ReferenceVoltmeter = 482201;
inline constexpr int32_t ReferenceThermometer = 482101;
inline constexpr int32_t ReferenceTurbine = 482109; ///< Of the spirometer.
/// Has a name for its second channel, too.
inline constexpr int32_t ReferenceTwoChannels = 482070;
/// Adjusts its function 1 only, and gives the value on a channel of its own.
inline constexpr int32_t ReferenceOneAdjustedFunction = 482049;
/// On some models the function of its channel 0 is selected once more at the enumeration.
inline constexpr int32_t ReferenceReselected = 482080;
/// Its channel 1 shows whole numbers.
inline constexpr int32_t ReferenceWithoutDecimals = 482091;

/// The adapters that have a name for channel 0. One has a second row, directly after its first.
inline constexpr std::array<int32_t, 38> NamedReferences{
    482034, 482035, 482036, 482037, 482038, 482039, 482043, 482044, 482045, 482046,
    482047, 482048, 482049, 482050, 482051, 482052, 482053, 482054, 482055, 482056,
    482061, 482068, 482070, 482070, 482080, 482085, 482101, 482102, 482103, 482104,
    482105, 482106, 482107, 482109, 482201, 482202, 482203, 482204};

} // namespace orvane
