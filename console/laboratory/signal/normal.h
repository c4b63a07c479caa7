#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>

namespace orvane::laboratory {

/// The inverse of the upper half of the normal distribution, in cubics. Each octave of the
/// probability, from 2^-33 up to 1/2, has sixteen of them.
struct NormalTable {
    static constexpr size_t Octaves = 32;
    static constexpr size_t PerOctave = 16;
    std::array<std::array<double, 4>, Octaves * PerOctave> Cubics;
};

extern const NormalTable Normals;

/// The standard normal deviate of a random word, odd in it and right to 2 parts in 10^7; its
/// largest is 6.34. No step of it depends on a comparison, as with other inverses that are as
/// precise.
inline double NormalDeviate(uint32_t word) {
    constexpr unsigned cellBits = 48;
    constexpr uint64_t withinCell = (uint64_t{1} << cellBits) - 1;
    constexpr auto ofOne = std::bit_cast<uint64_t>(1.0);
    const int64_t number = (int64_t{word & 0x7fffffffU} << 1) | 1; // of 2^33 equal parts
    const auto bits = std::bit_cast<uint64_t>(static_cast<double>(number));
    const auto& cubic = Normals.Cubics[(bits - ofOne) >> cellBits];
    const double x = std::bit_cast<double>((bits & withinCell) | ofOne) - 1.0;
    const double deviate = (cubic[0] + cubic[1] * x) + x * x * (cubic[2] + cubic[3] * x);
    const uint64_t sign = uint64_t{word >> 31U} << 63U;
    return std::bit_cast<double>(std::bit_cast<uint64_t>(deviate) ^ sign);
}

} // namespace orvane::laboratory
