#pragma once

/// \file
/// The image of the console's memory: a stored format of the console. Bytes 0 to 6 are not read,
/// the identity texts begin at byte 7, the radio block lies at byte 7175.

#include <wx/string.h>

#include <array>
#include <cstdint>
#include <span>

namespace orvane {

inline constexpr std::size_t ConsoleMemorySize = 32768;
inline constexpr std::size_t TextesConsoleOffset = 7;

/// The identity texts, in the order in which they follow one another.
enum class TexteConsole : unsigned {
    SerialNumber,
    ConsoleType,
    EtablissementNumber,
    InfoPerso1,
    InfoPerso2
};

/// The image, and whether it was read. Both written by LoadConsoleMemory only, on the host's
/// thread; once read it stays for the life of the library.
inline std::array<uint8_t, ConsoleMemorySize> ConsoleMemory{};
inline bool ConsoleMemoryLoaded = false;

/// Reads the console's memory unless it has been read. Shows a message if its size is wrong.
/// \return whether the image has been read
bool LoadConsoleMemory();

/// One of several 16-bit texts in a row, each ended by a 16-bit zero. The block may begin at any
/// address. A text that the block does not hold is empty; one without terminator ends with the
/// block. Half a surrogate pair reads as U+FFFD.
wxString TextAt(std::span<const uint8_t> block, unsigned position);

/// An identity text of the image as it stands.
wxString TextOfConsole(TexteConsole text);

} // namespace orvane
