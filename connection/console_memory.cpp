#include "connection/console_memory.h"

#include "console/console_port.h"
#include "platform/user_message.h"

#include <string>

namespace orvane {

namespace {

constexpr uint8_t consoleConnector = 0;
constexpr int identityArea = 2;

/// Bytes of the text at the start of the block, terminator not counted.
std::size_t TextLength(std::span<const uint8_t> block) {
    std::size_t length = 0;
    while (length + 1 < block.size() && (block[length] != 0 || block[length + 1] != 0)) {
        length += 2;
    }
    return length;
}

/// A character of 16 bits, or 0 beyond the end.
uint32_t UnitAt(std::span<const uint8_t> text, std::size_t at) {
    return at + 1 < text.size() ? text[at] | uint32_t{text[at + 1]} << 8 : 0;
}

/// The toolkit's conversion fails for the whole text where one character is half a surrogate pair;
/// here only that character is replaced.
wxString FromUtf16(std::span<const uint8_t> text) {
    constexpr uint32_t half = 0xFC00; // The bits that mark which half of a pair it is.
    constexpr uint32_t high = 0xD800;
    constexpr uint32_t low = 0xDC00;
    constexpr uint32_t replacement = 0xFFFD;
    std::wstring characters;
    for (std::size_t at = 0; at < text.size(); at += 2) {
        uint32_t character = UnitAt(text, at);
        const uint32_t next = UnitAt(text, at + 2);
        if ((character & half) == high && (next & half) == low) {
            character = 0x10000 + ((character & ~half) << 10) + (next & ~half);
            at += 2;
        } else if ((character & half) == high || (character & half) == low) {
            character = replacement;
        }
        characters += static_cast<wchar_t>(character);
    }
    return characters;
}

} // namespace

bool LoadConsoleMemory() {
    if (ConsoleMemoryLoaded) {
        return true;
    }
    OVSelectMemory(consoleConnector);
    uint32_t size = 0;
    if (!OVGetMemorySize(consoleConnector, identityArea, &size)) {
        return false;
    }
    if (size != ConsoleMemorySize) {
        ShowUserMessage(L"Erreur pendant la lecture dans la mémoire de la console !!!");
        return false;
    }
    OVSelectMemory(consoleConnector);
    ConsoleMemoryLoaded = OVReadMemory(consoleConnector, identityArea, ConsoleMemory.data(), size);
    return ConsoleMemoryLoaded;
}

wxString TextAt(std::span<const uint8_t> block, unsigned position) {
    std::size_t length = TextLength(block);
    for (; position > 0 && length + 2 <= block.size(); --position) {
        block = block.subspan(length + 2);
        length = TextLength(block);
    }
    if (position > 0 || length == 0) {
        return {};
    }
    return FromUtf16(block.first(length));
}

wxString TextOfConsole(TexteConsole text) {
    return TextAt(std::span(ConsoleMemory).subspan(TextesConsoleOffset),
                  static_cast<unsigned>(text));
}

} // namespace orvane
