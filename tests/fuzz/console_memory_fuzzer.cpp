// The image of the console's memory: its texts and its radio block, whatever stands in it.

#include "connection/console_memory.h"
#include "lifecycle_exports.h"
#include "radio/radio_block.h"
#include "tests/fuzz/fuzz_process.h"

#include <algorithm>
#include <cstdlib>

using namespace orvane;

namespace {

void Expect(bool held) {
    if (!held) {
        std::abort();
    }
}

/// A block of any length at any address, with nothing behind it.
void ReadTexts(const uint8_t* data, size_t size) {
    const std::vector<uint8_t> block(data, data + size);
    for (unsigned position = 0; position < 6; ++position) {
        Expect(TextAt(block, position).length() <= size / 2);
    }
    Expect(TextAt(block, 0xFFFFFFFF).empty());
}

/// The whole image, the input at its start, at its radio block and at its end.
void ReadImage(const uint8_t* data, size_t size) {
    std::vector<uint8_t>& memory = Console.Memory;
    // Without any terminator now and then only: that is 32 KiB to search for each text.
    std::fill(memory.begin(), memory.end(), data[0] == 0x50 ? uint8_t{0xFF} : uint8_t{0});
    const size_t length = std::min<size_t>(size, 4096);
    for (const size_t offset : {size_t{0}, RadioBlockOffset, memory.size() - length}) {
        std::copy_n(data, length, memory.begin() + static_cast<std::ptrdiff_t>(offset));
    }
    ConsoleMemoryLoaded = false;
    GetInfoPerso2(); // Behind all the others.
    Expect(ConsoleMemoryLoaded);
    const RadioBlock block =
        ReadRadioBlock(std::span(ConsoleMemory).subspan<RadioBlockOffset, RadioBlockSize>());
    Expect(block.HasConfig == (ConsoleMemory[RadioBlockOffset] == 1));
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int* /*argc*/, char*** /*argv*/) {
    BeFuzzedHost();
    Console.Memory.resize(ConsoleMemorySize);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    ReadTexts(data, size);
    if (size > 0 && data[0] % 16 == 0) { // The image is 32 KiB to fill.
        ReadImage(data, size);
    }
    return 0;
}
