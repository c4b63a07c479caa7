#include "connection/console_memory.h"

#include "console/console_port.h"
#include "platform/user_message.h"

#include <wx/strconv.h>

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
    return {reinterpret_cast<const char*>(block.data()), wxMBConvUTF16LE(), length};
}

wxString TextOfConsole(TexteConsole text) {
    return TextAt(std::span(ConsoleMemory).subspan(TextesConsoleOffset),
                  static_cast<unsigned>(text));
}
