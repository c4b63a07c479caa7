#include "console/laboratory/console_memory.h"

#include "console/console_port.h"

#include <algorithm>

namespace orvane::laboratory {

namespace {

// The layout is that of the consoles.
constexpr size_t textsOffset = 7;
constexpr size_t radioOffset = 7175;
constexpr size_t radioChannelOffset = radioOffset + 3;
constexpr size_t radioLevelOffset = radioOffset + 6;

} // namespace

ConsoleMemory ConsoleMemoryOf(const Scenario& scenario) {
    ConsoleMemory memory{};
    size_t at = textsOffset;
    const ConsoleIdentity& identity = scenario.Console;
    for (const std::string& text : {identity.Serial, identity.Type, identity.Establishment,
                                    identity.Lines[0], identity.Lines[1]}) {
        // Two bytes a character, without a byte order mark, and a terminator that is zero already.
        const wxCharBuffer utf16 = wxString::FromUTF8(text).mb_str(wxMBConvUTF16LE());
        const size_t room = radioOffset - 2 - std::min(at, radioOffset - 2);
        at += 2 + static_cast<size_t>(
                      std::copy_n(utf16.data(), std::min(utf16.length(), room), &memory[at]) -
                      &memory[at]);
    }
    memory[radioOffset] = 1;
    memory[radioChannelOffset] = scenario.Network.Channel;
    memory[radioLevelOffset] = static_cast<uint8_t>(scenario.Network.Level);
    return memory;
}

} // namespace orvane::laboratory
