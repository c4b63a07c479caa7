#pragma once

/// \file
/// Reading numbers from bytes that may end too early.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>

namespace orvane {

/// Reads from the start. Beyond the end every byte is 0, and Beyond is set.
struct ByteReader {
    std::span<const uint8_t> Bytes;
    std::size_t Position = 0;
    bool Beyond = false;

    uint8_t Byte() {
        Beyond = Beyond || Position == Bytes.size();
        return Beyond ? uint8_t{0} : Bytes[Position++];
    }

    void Skip(uint64_t count) {
        Beyond = Beyond || count > Bytes.size() - Position;
        Position += static_cast<std::size_t>(Beyond ? 0 : count);
    }

    uint32_t LittleEndian(unsigned bytes) {
        uint32_t number = 0;
        for (unsigned i = 0; i < bytes; ++i) {
            number |= uint32_t{Byte()} << (8 * i);
        }
        return number;
    }

    uint32_t BigEndian(unsigned bytes) {
        uint32_t number = 0;
        for (unsigned i = 0; i < bytes; ++i) {
            number = number << 8 | Byte();
        }
        return number;
    }

    /// The bytes before the position; none if the bytes ended too early.
    [[nodiscard]] std::span<const uint8_t> Read() const {
        return Beyond ? std::span<const uint8_t>() : Bytes.first(Position);
    }
};

} // namespace orvane
