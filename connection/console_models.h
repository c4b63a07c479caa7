#pragma once

/// \file
/// The console models that the driver knows.

#include <cstdint>

inline constexpr int32_t ModelOrvane310 = 12304;
inline constexpr int32_t ModelOrvane310B = 12306;
inline constexpr int32_t ModelOrvane150 = 12336;
inline constexpr int32_t ModelOrvane3600 = 12368;

/// Whether the driver knows the model.
constexpr bool IsKnownModel(int32_t model) {
    return model == ModelOrvane310 || model == ModelOrvane310B || model == ModelOrvane150 ||
           model == ModelOrvane3600;
}

/// What an analog output can give, in output units.
struct OutputRange {
    double ValMin;
    double ValMax;
};

constexpr OutputRange OutputRangeOf(int32_t model) {
    const double limit = model == ModelOrvane3600 ? 10.0 : 1.0;
    return {-limit, limit};
}
