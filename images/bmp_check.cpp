// The toolkit's BMP decoder looks colours up beyond a short colour table, and writes the runs of a
// compressed picture beyond the end of a line.

#include "images/byte_reader.h"
#include "images/image_checks.h"

namespace orvane {

namespace {

enum class Compression : uint32_t { None = 0, Runs8Bit = 1, Runs4Bit = 2, Masks = 3 };

constexpr uint32_t oldInfoSize = 12;
constexpr uint32_t commonInfoSize = 40; // Later ones are larger and hold the masks.

struct BmpHeader {
    uint64_t Size = 0; ///< Bytes up to the end of the colour table or of the colour masks.
    uint32_t PixelOffset = 0;
    uint32_t InfoSize = 0;
    uint32_t Width = 0;
    uint32_t Height = 0;
    uint32_t BitsPerPixel = 0;
    Compression Packing = Compression::None;
    uint32_t Colours = 0; ///< Entries of the colour table, which true colours may have too.
};

BmpHeader ReadHeader(ByteReader& in) {
    BmpHeader header;
    in.Skip(10); // Signature, size of the file, reserved.
    header.PixelOffset = in.LittleEndian(4);
    header.InfoSize = in.LittleEndian(4);
    const bool old = header.InfoSize == oldInfoSize;
    header.Width = in.LittleEndian(old ? 2 : 4);
    header.Height = in.LittleEndian(old ? 2 : 4);
    if (header.Height > INT32_MAX) {
        header.Height = 0U - header.Height; // Negative: from top to bottom.
    }
    in.Skip(2); // Planes
    header.BitsPerPixel = in.LittleEndian(2);
    if (!old) {
        header.Packing = static_cast<Compression>(in.LittleEndian(4));
        in.Skip(12); // Size of the pixels, resolution.
        header.Colours = in.LittleEndian(4);
    }
    if (header.Colours == 0 && header.BitsPerPixel <= 8) {
        header.Colours = 1U << header.BitsPerPixel;
    }
    const bool masksFollow =
        header.Packing == Compression::Masks && header.InfoSize == commonInfoSize;
    header.Size = 14 + uint64_t{header.InfoSize} + (masksFollow ? 12 : 0) +
                  uint64_t{header.Colours} * (old ? 3 : 4);
    return header;
}

bool IsValid(const BmpHeader& header) {
    constexpr uint32_t longestSide = 32767; // As in the decoder.
    constexpr uint32_t maxColours = 256;    // As in the decoder, however many bits a pixel has.
    const uint32_t bits = header.BitsPerPixel;
    const bool knownBits =
        bits == 1 || bits == 4 || bits == 8 || bits == 16 || bits == 24 || bits == 32;
    // The decoder misses the pixels after an information block of another size.
    const bool knownInfo = header.InfoSize == oldInfoSize || header.InfoSize >= commonInfoSize;
    return knownInfo && header.Width <= longestSide && header.Height <= longestSide &&
           IsReasonableSize(header.Width, header.Height) && knownBits &&
           header.Colours <= maxColours;
}

/// Whether all pixels of a byte are in the colour table.
bool ColoursInTable(const BmpHeader& header, uint8_t byte, uint32_t pixels) {
    const uint32_t bits = header.BitsPerPixel;
    for (uint32_t pixel = 0; pixel < pixels; ++pixel) {
        const uint32_t colour = uint32_t{byte} >> (8 - bits * (pixel + 1)) & ((1U << bits) - 1);
        if (colour >= header.Colours) {
            return false;
        }
    }
    return true;
}

/// Reads that many pixels of one line, from one byte boundary to another.
bool ReadPixels(ByteReader& in, const BmpHeader& header, uint32_t pixels) {
    const uint32_t bits = header.BitsPerPixel;
    if (bits > 8 || header.Colours >= 1U << bits) {
        in.Skip((uint64_t{pixels} * bits + 7) / 8);
        return true;
    }
    bool known = true;
    for (const uint32_t perByte = 8 / bits; known && pixels > 0;) {
        const uint32_t here = std::min(pixels, perByte);
        known = ColoursInTable(header, in.Byte(), here);
        pixels -= here;
    }
    return known;
}

bool ReadLines(ByteReader& in, const BmpHeader& header) {
    const uint64_t lineBytes = (uint64_t{header.Width} * header.BitsPerPixel + 7) / 8;
    bool known = ReadPixels(in, header, header.Width);
    for (uint32_t line = 1; known && line < header.Height; ++line) {
        in.Skip((4 - lineBytes % 4) % 4); // Padding of the line before; the last line may lack it.
        known = ReadPixels(in, header, header.Width);
    }
    return known;
}

/// Reads that many uncompressed pixels, padded to an even number of bytes.
bool ReadSinglePixels(ByteReader& in, const BmpHeader& header, uint32_t pixels) {
    const std::size_t start = in.Position;
    const bool known = ReadPixels(in, header, pixels);
    in.Skip((in.Position - start) % 2);
    return known;
}

/// Reads the runs of a picture. No run may leave its line, and no move the picture.
bool ReadRuns(ByteReader& in, const BmpHeader& header) {
    enum : uint8_t { EndOfLine = 0, EndOfPicture = 1, Move = 2 };
    const uint32_t pixelsInByte = 8 / header.BitsPerPixel;
    uint32_t column = 0;
    for (uint32_t line = 0; line < header.Height;) {
        const uint8_t count = in.Byte();
        const uint8_t value = in.Byte();
        bool known = true;
        if (count > 0) {
            known = ColoursInTable(header, value, std::min<uint32_t>(count, pixelsInByte));
            column += count;
        } else if (value == EndOfPicture) {
            return true;
        } else if (value == EndOfLine) {
            line += column > 0 ? 1 : 0; // A full line ends by itself.
            column = 0;
        } else if (value == Move) {
            column += in.Byte();
            line += in.Byte();
            known = line < header.Height;
        } else {
            known = ReadSinglePixels(in, header, value);
            column += value;
        }
        if (!known || column > header.Width || in.Beyond) {
            return false;
        }
        line += column / header.Width;
        column %= header.Width;
    }
    return true;
}

} // namespace

ImageBytes ValidBmp(ImageBytes file) {
    ByteReader headerReader{file};
    const BmpHeader header = ReadHeader(headerReader);
    if (!IsValid(header)) {
        return {};
    }
    ByteReader in{file};
    in.Skip(std::max<uint64_t>(header.PixelOffset, header.Size)); // It may be 0.
    const uint32_t bits = header.BitsPerPixel;
    bool valid = false;
    switch (header.Packing) {
    case Compression::None:
        valid = ReadLines(in, header);
        break;
    case Compression::Runs8Bit:
        valid = bits == 8 && ReadRuns(in, header);
        break;
    case Compression::Runs4Bit:
        valid = bits == 4 && ReadRuns(in, header);
        break;
    case Compression::Masks:
        valid = (bits == 16 || bits == 32) && ReadLines(in, header);
        break;
    }
    return valid ? in.Read() : ImageBytes();
}

} // namespace orvane
