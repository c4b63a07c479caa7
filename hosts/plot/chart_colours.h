#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace orvane {

struct Colour {
    uint8_t Red = 0;
    uint8_t Green = 0;
    uint8_t Blue = 0;
};

/// The colours of charts, on a light or a dark ground. Those of curves can be told apart without
/// seeing all colours, and have a contrast of at least 3:1 with the ground.
struct ChartColours {
    Colour Ground;
    Colour Shade; ///< Of stretches that are set apart.
    Colour Grid;
    Colour Ink;  ///< Axes and texts.
    Colour Mark; ///< Cursors, marks and what is fitted.
    std::array<Colour, 6> Curves;
};

constexpr ChartColours LightColours{.Ground = {0xff, 0xff, 0xff},
                                    .Shade = {0xf2, 0xf0, 0xee},
                                    .Grid = {0xe4, 0xe4, 0xe4},
                                    .Ink = {0x4a, 0x4f, 0x52},
                                    .Mark = {0x2e, 0x34, 0x36},
                                    .Curves = {{{0x00, 0x72, 0xb2},
                                                {0xd5, 0x5e, 0x00},
                                                {0x00, 0x9e, 0x73},
                                                {0xcc, 0x79, 0xa7},
                                                {0x00, 0x00, 0x00},
                                                {0x6b, 0x5b, 0x00}}}};

constexpr ChartColours DarkColours{.Ground = {0x1e, 0x1e, 0x1e},
                                   .Shade = {0x26, 0x26, 0x26},
                                   .Grid = {0x34, 0x34, 0x34},
                                   .Ink = {0xb6, 0xb6, 0xb2},
                                   .Mark = {0xee, 0xee, 0xec},
                                   .Curves = {{{0x56, 0xb4, 0xe9},
                                               {0xe6, 0x9f, 0x00},
                                               {0x00, 0x9e, 0x73},
                                               {0xcc, 0x79, 0xa7},
                                               {0xff, 0xff, 0xff},
                                               {0xf0, 0xe4, 0x42}}}};

enum class Dash { Solid, Dashed, Dotted };

/// The look of curve number n, from 0: six colours, then the same dashed, then dotted.
constexpr size_t CurveColourOf(size_t number) {
    return number % 6;
}
constexpr Dash CurveDashOf(size_t number) {
    constexpr std::array<Dash, 3> dashes{Dash::Solid, Dash::Dashed, Dash::Dotted};
    return dashes[number / 6 % dashes.size()];
}

} // namespace orvane
