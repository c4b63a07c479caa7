// The toolkit's GIF decoder relies on codes that are no wider than its table of 4096 entries and
// never name an entry that doesn't exist yet: others crash it. It also shows uninitialised memory
// where colours or pixels are missing.

#include "images/byte_reader.h"
#include "images/image_checks.h"

#include <array>
#include <string_view>

namespace orvane {

namespace {

constexpr unsigned tableSize = 4096;
constexpr unsigned widestCode = 12;

/// The codes of a picture, which come from data blocks of up to 255 bytes, lowest bit first.
struct CodeReader {
    ByteReader& In;
    unsigned BytesInBlock = 0;
    uint32_t Bits = 0;
    unsigned BitCount = 0;
    bool Ended = false;

    unsigned Next(unsigned width) {
        while (BitCount < width && !Ended) {
            if (BytesInBlock == 0) {
                BytesInBlock = In.Byte();
                Ended = BytesInBlock == 0;
            } else {
                Bits |= uint32_t{In.Byte()} << BitCount;
                BitCount += 8;
                --BytesInBlock;
            }
        }
        const unsigned code = Bits & ((1U << width) - 1);
        Bits >>= width;
        BitCount -= Ended ? BitCount : width;
        return code;
    }
};

/// Whether the codes fill a picture of that many pixels without naming a string that doesn't exist.
/// Leaves the reader after the data block in which the picture is complete.
bool CodesFillPicture(ByteReader& in, uint64_t pixels, unsigned firstWidth, unsigned colours) {
    const unsigned clear = 1U << firstWidth;
    std::array<uint16_t, tableSize> length{}; // Of the string of each code, in pixels.
    std::fill_n(length.begin(), clear, uint16_t{1});
    unsigned width = firstWidth + 1;
    unsigned free = clear + 2; // The string that the next code creates.
    unsigned previous = 0;     // Length of the last string; 0 after a clear.
    CodeReader codes{in};
    while (pixels > 0) {
        const unsigned code = codes.Next(width);
        if (codes.Ended || code == clear + 1) {
            return false;
        }
        if (code == clear) {
            width = firstWidth + 1;
            free = clear + 2;
            previous = 0;
            continue;
        }
        const bool isColour = code < clear;
        const bool isKnown = isColour ? code < colours : code < free;
        const bool isNextEntry = code == free && previous > 0;
        if ((!isKnown && !isNextEntry) || free == tableSize) {
            return false;
        }
        if (previous > 0) {
            length[free] = static_cast<uint16_t>(previous + 1);
            ++free;
            width += free == (1U << width) && width < widestCode ? 1 : 0;
        }
        previous = length[code];
        pixels -= std::min<uint64_t>(pixels, previous);
    }
    in.Skip(codes.BytesInBlock);
    return true;
}

void SkipBlocks(ByteReader& in) {
    while (const uint8_t size = in.Byte()) {
        in.Skip(size);
    }
}

/// The number of colours in the table that the flags of a screen or picture announce; 0: no table.
unsigned SkipColours(ByteReader& in, uint8_t flags) {
    const unsigned colours = (flags & 0x80U) != 0 ? 2U << (flags & 7U) : 0;
    in.Skip(3 * uint64_t{colours});
    return colours;
}

bool SkipPicture(ByteReader& in, unsigned coloursOfScreen) {
    in.Skip(4); // Its place on the screen.
    const uint32_t width = in.LittleEndian(2);
    const uint32_t height = in.LittleEndian(2);
    const unsigned ownColours = SkipColours(in, in.Byte());
    const uint8_t codeWidth = in.Byte();
    return IsReasonableSize(width, height) && codeWidth >= 2 && codeWidth <= 8 &&
           CodesFillPicture(in, uint64_t{width} * height, codeWidth,
                            ownColours != 0 ? ownColours : coloursOfScreen);
}

} // namespace

ImageBytes ValidGif(ImageBytes file) {
    ByteReader in{file};
    in.Skip(10); // Signature, version and size of the screen.
    const uint8_t flags = in.Byte();
    in.Skip(2); // Background colour and aspect ratio.
    const unsigned colours = SkipColours(in, flags);
    uint8_t block = in.Byte();
    while (block == 0x21) { // Extension
        constexpr uint8_t graphicsControl = 0xF9;
        const uint8_t label = in.Byte();
        if (label == graphicsControl) {
            in.Skip(6); // Its one data block, whose size the decoder doesn't check.
        } else {
            SkipBlocks(in);
        }
        block = in.Byte();
    }
    return block == 0x2C && SkipPicture(in, colours) ? in.Read() : ImageBytes();
}

} // namespace orvane
