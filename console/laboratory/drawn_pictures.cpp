#include "console/laboratory/drawn_pictures.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace orvane::laboratory {

namespace {

constexpr size_t side = 32;
constexpr size_t pixelBytes = 3;
constexpr size_t headerBytes = 54;

using Colour = std::array<uint8_t, pixelBytes>; // blue, green, red
constexpr Colour transparent{255, 0, 255};
constexpr Colour axis{96, 96, 96};
constexpr Colour curve{176, 96, 16};

/// A Windows bitmap without compression, all transparent.
Picture BlankBitmap() {
    Picture picture{.Format = "bmp", .Bytes = std::vector<uint8_t>(headerBytes)};
    const auto put = [&picture](size_t at, size_t bytes, size_t value) {
        for (size_t i = 0; i < bytes; ++i) {
            picture.Bytes[at + i] = static_cast<uint8_t>(value >> (8 * i));
        }
    };
    put(0, 2, 0x4D42); // "BM"
    put(2, 4, headerBytes + side * side * pixelBytes);
    put(10, 4, headerBytes);
    put(14, 4, 40);             // bytes of the information block
    put(18, 4, side);           // width
    put(22, 4, side);           // height
    put(26, 2, 1);              // planes
    put(28, 2, 8 * pixelBytes); // bits of a pixel
    for (size_t pixel = 0; pixel < side * side; ++pixel) {
        picture.Bytes.insert(picture.Bytes.end(), transparent.begin(), transparent.end());
    }
    return picture;
}

/// \param y from the bottom up, as the lines of the bitmap
void SetPixel(Picture& picture, size_t x, size_t y, const Colour& colour) {
    std::ranges::copy(colour,
                      picture.Bytes.begin() +
                          static_cast<std::ptrdiff_t>(headerBytes + (y * side + x) * pixelBytes));
}

} // namespace

Picture DrawFunction() {
    Picture picture = BlankBitmap();
    constexpr size_t left = 3;
    constexpr size_t middle = side / 2;
    for (size_t i = 2; i < side - 2; ++i) {
        SetPixel(picture, i, middle, axis);
        SetPixel(picture, left, i, axis);
    }
    for (size_t x = left; x < side - 2; ++x) {
        const auto t = static_cast<double>(x - left);
        const double height = 12.0 * std::cos(t / 2.2) * std::exp(-t / 14.0);
        const auto y = static_cast<size_t>(static_cast<double>(middle) + std::round(height));
        SetPixel(picture, x, y, curve);
        SetPixel(picture, x, y - 1, curve);
    }
    return picture;
}

Picture DrawState(size_t number) {
    Picture picture = BlankBitmap();
    constexpr size_t most = 8;
    constexpr size_t width = 3;
    for (size_t bar = 0; bar < std::min(number + 1, most); ++bar) {
        for (size_t x = bar * (width + 1); x < bar * (width + 1) + width; ++x) {
            for (size_t y = 4; y < 8 + 2 * bar; ++y) {
                SetPixel(picture, x, y, curve);
            }
        }
    }
    return picture;
}

} // namespace orvane::laboratory
