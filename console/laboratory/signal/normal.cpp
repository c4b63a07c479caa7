// The table is made by the compiler: so its bits are the same on every machine.

#include "console/laboratory/signal/normal.h"

#include "console/laboratory/signal/elementary.h"

namespace orvane::laboratory {

namespace {

constexpr double SquareRoot(double x) {
    double root = x > 1.0 ? x : 1.0;
    double next = (root + x / root) / 2.0;
    while (next < root) {
        root = next;
        next = (root + x / root) / 2.0;
    }
    return root;
}

/// What a standard normal deviate exceeds with probability p, up to 1/2: PPND7 of algorithm AS 241
/// (Wichura, Applied Statistics 37, 1988), right to 1 part in 10^7. Its third range begins below
/// 2^-33.
constexpr double ExceededBy(double p) {
    const double q = 0.5 - p;
    if (q <= 0.425) {
        constexpr std::array<double, 4> above{3.3871327179e+00, 5.0434271938e+01, 1.5929113202e+02,
                                              5.9109374720e+01};
        constexpr std::array<double, 4> below{1.0, 1.7895169469e+01, 7.8757757664e+01,
                                              6.7187563600e+01};
        const double r = 0.180625 - q * q;
        return q * Polynomial(above, r) / Polynomial(below, r);
    }
    constexpr std::array<double, 4> above{1.4234372777e+00, 2.7568153900e+00, 1.3067284816e+00,
                                          1.7023821103e-01};
    constexpr std::array<double, 3> below{1.0, 7.3700164250e-01, 1.2021132975e-01};
    const double r = SquareRoot(-Logarithm(p)) - 1.6;
    return Polynomial(above, r) / Polynomial(below, r);
}

/// The cubic through four points of a cell, which begins at p = `from` and is `width` wide. Its
/// argument is 0 at the start and 1/16 at the end.
constexpr std::array<double, 4> CubicOf(double from, double width) {
    const double y0 = ExceededBy(from);
    const double y1 = ExceededBy(from + width / 3.0);
    const double y2 = ExceededBy(from + width * 2.0 / 3.0);
    const double y3 = ExceededBy(from + width);
    const double first = y1 - y0;
    const double second = y2 - 2.0 * y1 + y0;
    const double third = y3 - 3.0 * (y2 - y1) - y0;
    const double scale = 3.0 * NormalTable::PerOctave;
    return {y0, (first - second / 2.0 + third / 3.0) * scale,
            (second - third) / 2.0 * (scale * scale), third / 6.0 * (scale * scale * scale)};
}

constexpr NormalTable MakeTable() {
    NormalTable table{};
    double octave = 0x1p-33;
    for (size_t i = 0; i < NormalTable::Octaves; ++i) {
        for (size_t j = 0; j < NormalTable::PerOctave; ++j) {
            const double width = octave / NormalTable::PerOctave;
            table.Cubics[i * NormalTable::PerOctave + j] =
                CubicOf(octave + static_cast<double>(j) * width, width);
        }
        octave *= 2.0;
    }
    return table;
}

} // namespace

constexpr NormalTable Normals = MakeTable();

} // namespace orvane::laboratory
