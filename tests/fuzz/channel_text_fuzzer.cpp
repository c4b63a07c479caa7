// The text block of a channel: what its lines say, whatever stands in it.

#include "channels/channel_text.h"
#include "tests/fuzz/fuzz_process.h"

#include <cstdlib>

using namespace orvane;

extern "C" int LLVMFuzzerInitialize(int* /*argc*/, char*** /*argv*/) {
    BeFuzzedHost();
    Console.Connectors[0].Channels.emplace_back();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size == 0) {
        return 0;
    }
    // The first byte is the size that the console tells, more or less than the text's.
    std::string& block = Console.Connectors[0].Channels[0].Text;
    block.assign(reinterpret_cast<const char*>(data) + 1, size - 1);
    const auto text = FetchChannelText(0, 0, data[0]);
    if (!text || text->find('\0') != std::string::npos || !block.starts_with(*text)) {
        std::abort();
    }
    for (const char* key : {"Reglage", "Etiquette"}) {
        const auto first = FirstNumber(*text, key);
        const auto last = LastNumber(*text, key);
        // A line set before or behind all others is the first or the last one.
        const std::string line = std::string(key) + "=77\n";
        if (first.has_value() != last.has_value() || FirstNumber(line + *text, key) != 77 ||
            LastNumber(*text + "\n" + line, key) != 77) {
            std::abort();
        }
    }
    return 0;
}
