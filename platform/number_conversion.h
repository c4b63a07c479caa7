#pragma once

/// \file
/// Conversions between number types that have a defined result for every input.

#include <cstdint>
#include <limits>

namespace orvane {

/// A double as a 32-bit unsigned number, truncated toward zero. A value of -1 or below, one of
/// 2^32 or above, and not-a-number give 4294967295.
constexpr uint32_t ToUint32(double value) {
    return value > -1.0 && value < 4294967296.0 ? static_cast<uint32_t>(static_cast<int64_t>(value))
                                                : std::numeric_limits<uint32_t>::max();
}

/// A double as a 32-bit signed number, truncated toward zero. A value beyond either end gives that
/// end, not-a-number gives 0.
constexpr int32_t ToInt32(double value) {
    if (value >= 2147483648.0) {
        return std::numeric_limits<int32_t>::max();
    }
    if (value <= -2147483649.0) {
        return std::numeric_limits<int32_t>::min();
    }
    return value == value ? static_cast<int32_t>(value) : 0;
}

} // namespace orvane
