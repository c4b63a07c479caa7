#pragma once

/// \file
/// The checks that a picture file must pass before the toolkit decodes it. A console's bytes
/// are not trusted, and the toolkit's decoders trust them: a small file that claims a huge picture
/// takes all memory, some files make them write beyond their buffers, and a missing part is shown
/// as uninitialised memory.
///
/// Each check gives the bytes up to the end of the first picture, which is all that the decoder
/// needs, or none if the picture is incomplete, too large, or breaks a rule that its decoder relies
/// on. What a decoder checks itself is not checked here.

#include <cstdint>
#include <span>

namespace orvane {

using ImageBytes = std::span<const uint8_t>;

/// A picture of the size of a large screen has 8 million pixels; the decoders take up to 8 bytes
/// for each.
inline constexpr uint64_t MaxPixels = 16'777'216;

constexpr bool IsReasonableSize(uint64_t width, uint64_t height) {
    return width > 0 && height > 0 && width <= MaxPixels / height;
}

ImageBytes ValidPng(ImageBytes file);
ImageBytes ValidBmp(ImageBytes file);
ImageBytes ValidGif(ImageBytes file);

} // namespace orvane
