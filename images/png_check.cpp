#include "images/byte_reader.h"
#include "images/image_checks.h"

namespace orvane {

ImageBytes ValidPng(ImageBytes file) {
    constexpr std::size_t signatureSize = 8;
    constexpr uint32_t chunkIend = 0x49454E44;
    // The first chunk is the header, and its content begins with the size of the picture.
    ByteReader header{file};
    header.Skip(signatureSize + 8);
    const uint32_t width = header.BigEndian(4);
    const uint32_t height = header.BigEndian(4);
    if (!IsReasonableSize(width, height)) {
        return {};
    }
    // A chunk: length, type, content, checksum.
    ByteReader chunks{file};
    chunks.Skip(signatureSize);
    uint32_t type = 0;
    while (type != chunkIend && !chunks.Beyond) {
        const uint64_t length = chunks.BigEndian(4);
        type = chunks.BigEndian(4);
        chunks.Skip(length + 4);
    }
    return chunks.Read();
}

} // namespace orvane
