#pragma once

/// \file
/// What stands in for a converter.

#include <cstdint>

namespace virtual_console {

/// The value of a calibre for one draw of the generator: between 20 % of the range below its middle
/// and 39 % above it, in steps of 1 %.
inline double SimulatedValue(float min, float max, uint32_t draw) {
    const double etendue = static_cast<double>(max) - min;
    const double milieu = etendue * 0.5 + min;
    const uint32_t r = draw % 40;
    const double ecart = etendue * r / 100.0;
    return r > 20 ? milieu + ecart : milieu - ecart;
}

} // namespace virtual_console
