#pragma once

/// \file
/// The elementary functions that signals are made of. They consist of basic operations only: so
/// they give the same bits on every machine, which those of the C library don't (it picks a variant
/// by the processor), and a compiler can compute several samples at once. Errors are a few units in
/// the last place.

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>

namespace orvane::laboratory {

/// The terms of a polynomial in x whose powers are First, First + Step, and so on, over x^First.
/// Even and odd powers apart, which takes fewer steps after one another than Horner's order.
template <size_t First, size_t Step, size_t Count>
constexpr double Part(const std::array<double, Count>& coefficients, double x) {
    if constexpr (First + Step >= Count) {
        return coefficients[First];
    } else {
        return Part<First, 2 * Step>(coefficients, x * x) +
               x * Part<First + Step, 2 * Step>(coefficients, x * x);
    }
}

template <size_t Count>
constexpr double Polynomial(const std::array<double, Count>& coefficients, double x) {
    return Part<0, 1>(coefficients, x);
}

/// The coefficients of (e^(root x) - 1) / x.
template <size_t Count> constexpr std::array<double, Count> ExponentialSeries(double root) {
    std::array<double, Count> coefficients{root};
    for (size_t i = 1; i < Count; ++i) {
        coefficients[i] = coefficients[i - 1] * root / static_cast<double>(i + 1);
    }
    return coefficients;
}

/// Added and subtracted again, it rounds numbers below 2^51 to integers; meanwhile these stand in
/// the low bits.
constexpr double roundingShift = 0x1.8p52;

/// The nearest integer, of a number below 2^51.
inline double Nearest(double x) {
    return (x + roundingShift) - roundingShift;
}

/// The integer below, of such a number.
inline double Floor(double x) {
    const double nearest = Nearest(x);
    return nearest > x ? nearest - 1.0 : nearest;
}

/// e^x - 1 = (Scale - 1) + Scale Rest: a power of two, and a rest between -0.3 and 0.42.
struct ExponentialParts {
    double Scale;
    double Rest;
};

/// Arguments beyond +-700 count as that: what is left is as good as nothing.
inline ExponentialParts SplitExponential(double x) {
    constexpr auto series = ExponentialSeries<12>(0x1.62e42fefa39efp-1);
    x = x > -700.0 ? x : -700.0;
    x = x < 700.0 ? x : 700.0;
    const double powers = x * 0x1.71547652b82fep0; // of two
    const double shifted = powers + roundingShift;
    const double rest = powers - (shifted - roundingShift);
    const uint64_t exponent = std::bit_cast<uint64_t>(shifted) << 52U;
    return {.Scale = std::bit_cast<double>(exponent + std::bit_cast<uint64_t>(1.0)),
            .Rest = rest * Polynomial(series, rest)};
}

/// e^x
inline double Exponential(double x) {
    const ExponentialParts parts = SplitExponential(x);
    return parts.Scale + parts.Scale * parts.Rest;
}

/// e^x - 1, exact also near 0.
inline double ExponentialMinusOne(double x) {
    const ExponentialParts parts = SplitExponential(x);
    return (parts.Scale - 1.0) + parts.Scale * parts.Rest;
}

/// sin(2 pi x). From 2^50 turns on, where a double has hardly a phase left, it is only bounded.
inline double SineOfTurns(double x) {
    // sin(pi x) / x in x^2 at Chebyshev's nodes, right to 2e-16.
    constexpr std::array<double, 8> series{
        0x1.921fb54442d17p+1, -0x1.4abbce625bd83p+2, 0x1.466bc677522bdp+1,  -0x1.32d2cce1ea145p-1,
        0x1.5078327046959p-4, -0x1.e30631bdf732dp-8, 0x1.e89f6fe44fe7bp-12, -0x1.62903d02bb153p-16};
    const double halves = x + x;
    const double shifted = halves + roundingShift;
    double rest = halves - (shifted - roundingShift);
    rest = rest > -0.5 ? rest : -0.5;
    rest = rest < 0.5 ? rest : 0.5;
    const uint64_t sign = std::bit_cast<uint64_t>(shifted) << 63U; // of an odd number of halves
    const double sine = rest * Polynomial(series, rest * rest);
    return std::bit_cast<double>(std::bit_cast<uint64_t>(sine) ^ sign);
}

/// ln x of a normal number above 0.
constexpr double Logarithm(double x) {
    constexpr double ln2 = 0x1.62e42fefa39efp-1;
    constexpr uint64_t mantissaOfRootHalf = 0x3fe6a09e667f3bcd;
    constexpr std::array<double, 11> series{1.0,      1.0 / 3,  1.0 / 5,  1.0 / 7,
                                            1.0 / 9,  1.0 / 11, 1.0 / 13, 1.0 / 15,
                                            1.0 / 17, 1.0 / 19, 1.0 / 21};
    const auto bits = std::bit_cast<uint64_t>(x);
    const auto exponent = static_cast<int64_t>(bits - mantissaOfRootHalf) >> 52;
    const auto mantissa = std::bit_cast<double>(bits - (static_cast<uint64_t>(exponent) << 52U));
    const double ratio = (mantissa - 1.0) / (mantissa + 1.0);
    return static_cast<double>(exponent) * ln2 + 2.0 * ratio * Polynomial(series, ratio * ratio);
}

} // namespace orvane::laboratory
