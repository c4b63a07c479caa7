// The texts that stand one after the other in a block: what the lines of a channel say, and the
// texts of the console's memory.

#include "channels/channel_text.h"
#include "connection/console_memory.h"
#include "tests/fuzz/fuzz_process.h"

using namespace orvane;

extern "C" int LLVMFuzzerInitialize(int* /*argc*/, char*** /*argv*/) {
    BeFuzzedHost();
    Console.Connectors[0].Channels.emplace_back();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    // A block of any length at any address, with nothing behind it.
    for (unsigned position = 0; position < 6; ++position) {
        Expect(TextAt({data, size}, position).length() <= size / 2);
    }
    if (size == 0) {
        return 0;
    }
    // The first byte is the size that the console tells, more or less than the text's.
    std::string& block = Console.Connectors[0].Channels[0].Text;
    block.assign(reinterpret_cast<const char*>(data) + 1, size - 1);
    const auto text = FetchChannelText(0, 0, data[0]);
    Expect(text && text->find('\0') == std::string::npos && block.starts_with(*text));
    for (const std::string key : {"Reglage", "Etiquette"}) {
        Expect(FirstNumber(*text, key).has_value() == LastNumber(*text, key).has_value());
        // A line set before or behind all others is the first or the last one.
        const std::string line = key + "=77\n";
        Expect(FirstNumber(line + *text, key) == 77 && LastNumber(*text + "\n" + line, key) == 77);
    }
    return 0;
}
