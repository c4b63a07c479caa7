// The toolkit's BMP decoder looks colours up beyond a short colour table, and writes the runs of a
// compressed picture beyond the end of a line.

#include "channels/byte_reader.h"
#include "channels/image_checks.h"

namespace {

enum class Compression : uint32_t { None = 0, Runs8Bit = 1, Runs4Bit = 2, Masks = 3 };

struct BmpHeader {
    uint64_t Size = 0; ///< Bytes up to the end of the colour table or of the colour masks.
    uint32_t PixelOffset = 0;
    uint32_t Width = 0;
    uint32_t Height = 0;
    uint32_t BitsPerPixel = 0;
    Compression Packing = Compression::None;
    uint32_t Colours = 0; ///< Entries of the colour table; 0: pixels are colours.
};

BmpHeader ReadHeader(ByteReader& in) {
    constexpr uint32_t oldSize = 12;
    constexpr uint32_t commonSize = 40; // Later ones are larger and hold the masks.
    BmpHeader header;
    in.Skip(10); // Signature, size of the file, reserved.
    header.PixelOffset = in.LittleEndian(4);
    const uint32_t infoSize = in.LittleEndian(4);
    const bool old = infoSize == oldSize;
    header.Width = in.LittleEndian(old ? 2 : 4);
    header.Height = in.LittleEndian(old ? 2 : 4);
    if (header.Height > INT32_MAX) {
        header.Height = 0U - header.Height; // Negative: from top to bottom.
    }
    in.Skip(2); // Planes
    header.BitsPerPixel = in.LittleEndian(2);
    uint32_t colours = 0;
    if (!old) {
        header.Packing = static_cast<Compression>(in.LittleEndian(4));
        in.Skip(12); // Size of the pixels, resolution.
        colours = in.LittleEndian(4);
    }
    if (header.BitsPerPixel <= 8) {
        header.Colours = colours == 0 ? 1U << header.BitsPerPixel : colours;
    }
    const bool masksFollow = header.Packing == Compression::Masks && infoSize == commonSize;
    header.Size =
        14 + uint64_t{infoSize} + (masksFollow ? 12 : 0) + uint64_t{header.Colours} * (old ? 3 : 4);
    return header;
}

bool IsSound(const BmpHeader& header) {
    constexpr uint32_t longestSide = 32767; // The decoder's, too.
    const uint32_t bits = header.BitsPerPixel;
    const bool table = bits == 1 || bits == 4 || bits == 8;
    const bool knownBits = table || bits == 16 || bits == 24 || bits == 32;
    return header.Width <= longestSide && header.Height <= longestSide &&
           IsReasonableSize(header.Width, header.Height) && knownBits &&
           header.Colours <= (table ? 1U << bits : 0U) && header.Size <= header.PixelOffset;
}

/// Whether all pixels of a byte are in the colour table.
bool KnowsColours(const BmpHeader& header, uint8_t byte, uint32_t pixels) {
    const uint32_t bits = header.BitsPerPixel;
    for (uint32_t pixel = 0; pixel < pixels; ++pixel) {
        const uint32_t colour = uint32_t{byte} >> (8 - bits * (pixel + 1)) & ((1U << bits) - 1);
        if (colour >= header.Colours) {
            return false;
        }
    }
    return true;
}

/// Reads so many pixels of one line, which begin and end with a byte.
bool ReadPixels(ByteReader& in, const BmpHeader& header, uint32_t pixels) {
    const uint32_t bits = header.BitsPerPixel;
    if (header.Colours == 0 || header.Colours == 1U << bits) {
        in.Skip((uint64_t{pixels} * bits + 7) / 8);
        return true;
    }
    bool known = true;
    for (const uint32_t perByte = 8 / bits; known && pixels > 0;) {
        const uint32_t here = std::min(pixels, perByte);
        known = KnowsColours(header, in.Byte(), here);
        pixels -= here;
    }
    return known;
}

bool ReadLines(ByteReader& in, const BmpHeader& header) {
    const uint64_t lineBytes = (uint64_t{header.Width} * header.BitsPerPixel + 7) / 8;
    bool known = true;
    for (uint32_t line = 0; known && line < header.Height; ++line) {
        known = ReadPixels(in, header, header.Width);
        in.Skip((4 - lineBytes % 4) % 4);
    }
    return known;
}

/// Reads runs up to the end of the picture; none may leave its line. Moves are not taken, since the
/// decoder moves the other way, out of the picture.
bool ReadRuns(ByteReader& in, const BmpHeader& header) {
    enum : uint8_t { EndOfLine = 0, EndOfPicture = 1, Move = 2 };
    uint32_t column = 0;
    for (uint32_t line = 0; line < header.Height && !in.Beyond;) {
        const uint8_t count = in.Byte();
        const uint8_t value = in.Byte();
        bool known = true;
        if (count > 0) {
            column += count;
            known = KnowsColours(header, value, std::min<uint32_t>(count, 8 / header.BitsPerPixel));
        } else if (value > Move) {
            const std::size_t start = in.Position;
            column += value;
            known = ReadPixels(in, header, value);
            in.Skip((in.Position - start) % 2);
        } else if (value == EndOfLine) {
            column = 0; // A line that is full has ended by itself.
        } else {
            return value == EndOfPicture;
        }
        if (!known || column > header.Width) {
            return false;
        }
        line += column / header.Width;
        column %= header.Width;
    }
    return true;
}

} // namespace

ImageBytes SoundBmp(ImageBytes file) {
    ByteReader headerReader{file};
    const BmpHeader header = ReadHeader(headerReader);
    if (!IsSound(header)) {
        return {};
    }
    ByteReader in{file};
    in.Skip(header.PixelOffset);
    const uint32_t bits = header.BitsPerPixel;
    bool sound = false;
    switch (header.Packing) {
    case Compression::None:
        sound = ReadLines(in, header);
        break;
    case Compression::Runs8Bit:
        sound = bits == 8 && ReadRuns(in, header);
        break;
    case Compression::Runs4Bit:
        sound = bits == 4 && ReadRuns(in, header);
        break;
    case Compression::Masks:
        sound = (bits == 16 || bits == 32) && ReadLines(in, header);
        break;
    }
    return sound ? in.Read() : ImageBytes();
}
