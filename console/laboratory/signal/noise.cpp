// The noise of a channel. The order of additions to a sample is the same whatever is computed
// beside it, so that it has the same bits in a block of any cut.

#include "console/laboratory/signal/noise.h"

#include "console/laboratory/signal/instants.h"
#include "console/laboratory/signal/normal.h"

#include <Random123/philox.h>

#include <algorithm>
#include <cmath>

namespace orvane::laboratory {

namespace {

constexpr uint64_t numbersPerCall = 4; // halves of two words

using Words = r123::Philox2x64::ctr_type;

Words Draw(NoiseKey key, uint64_t stream, uint64_t call) {
    return r123::Philox2x64_R<7>()({{call, stream}}, {{key}});
}

/// The random half word of a number, of the call that serves it.
uint32_t HalfWord(const Words& words, uint64_t number) {
    return static_cast<uint32_t>(words[(number >> 1U) & 1U] >> ((number & 1U) * 32U));
}

uint32_t HalfWord(NoiseKey key, uint64_t stream, uint64_t number) {
    return HalfWord(Draw(key, stream, number / numbersPerCall), number);
}

double Deviate(NoiseKey key, uint64_t stream, uint64_t number) {
    return NormalDeviate(HalfWord(key, stream, number));
}

/// The deviates of successive numbers.
void FillDeviates(NoiseKey key, uint64_t stream, uint64_t first, std::span<double> deviates) {
    size_t filled = 0;
    for (; filled < deviates.size() && (first + filled) % numbersPerCall != 0; ++filled) {
        deviates[filled] = Deviate(key, stream, first + filled);
    }
    for (; filled + numbersPerCall <= deviates.size(); filled += numbersPerCall) {
        const Words words = Draw(key, stream, (first + filled) / numbersPerCall);
        for (size_t i = 0; i < numbersPerCall; ++i) {
            deviates[filled + i] = NormalDeviate(HalfWord(words, i));
        }
    }
    for (; filled < deviates.size(); ++filled) {
        deviates[filled] = Deviate(key, stream, first + filled);
    }
}

void AddWhite(double sigma, NoiseKey key, uint64_t stream, uint64_t first,
              std::span<double> samples) {
    std::array<double, samplesPerBlock> deviates;
    FillDeviates(key, stream, first, std::span(deviates).first(samples.size()));
    for (size_t i = 0; i < samples.size(); ++i) {
        samples[i] += sigma * deviates[i];
    }
}

/// Octave k of the flicker holds each of its deviates for 2^k samples (Voss's method): the sum has
/// the same power in each octave of frequencies, from half the sample rate down to its 2^17th part.
double FlickerAt(const std::array<NoiseKey, flickerOctaves>& keys, uint64_t stream,
                 uint64_t number) {
    double sum = 0.0;
    for (size_t k = 0; k < flickerOctaves; ++k) {
        sum += Deviate(keys[k], stream, number >> k);
    }
    return sum / std::sqrt(static_cast<double>(flickerOctaves));
}

void AddFlicker(double sigma, const std::array<NoiseKey, flickerOctaves>& keys, uint64_t stream,
                uint64_t first, std::span<double> samples) {
    std::array<double, samplesPerBlock> sums{};
    std::array<double, samplesPerBlock> deviates;
    for (size_t k = 0; k < flickerOctaves; ++k) {
        const uint64_t past = first & ((uint64_t{1} << k) - 1); // samples that share the first one
        const size_t held = static_cast<size_t>((past + samples.size() - 1) >> k) + 1;
        FillDeviates(keys[k], stream, first >> k, std::span(deviates).first(held));
        for (size_t i = 0; i < samples.size(); ++i) {
            sums[i] += deviates[static_cast<size_t>((past + i) >> k)];
        }
    }
    for (size_t i = 0; i < samples.size(); ++i) {
        samples[i] += sigma * (sums[i] / std::sqrt(static_cast<double>(flickerOctaves)));
    }
}

/// The drift between two of its knots.
struct DriftPiece {
    double First; ///< The number of the piece.
    std::array<double, 4> Knots;
};

/// The knots around a piece, evenly distributed between -1 and 1.
DriftPiece DriftPieceAt(NoiseKey key, double first) {
    DriftPiece piece{first, {}};
    auto number = static_cast<uint64_t>(static_cast<int64_t>(first));
    for (double& knot : piece.Knots) {
        knot = (static_cast<double>(HalfWord(key, 0, number)) + 0.5) * 0x1p-31 - 1.0;
        ++number;
    }
    return piece;
}

/// A time in knots.
double KnotsUntil(double knotTime, int64_t clockNs) {
    constexpr double farthest = 0x1p52;
    return std::clamp(static_cast<double>(clockNs) * 1e-9 / knotTime, -farthest, farthest);
}

/// A cubic B-spline over the knots. Its mean square over time is 151/315 of that of a knot, 1/3,
/// which gives the factor for an RMS of 1; it stays within 2.51 times that.
double DriftAt(const DriftPiece& piece, double knots) {
    const double u = knots - piece.First;
    const double v = 1.0 - u;
    const double first = v * v * v;
    const double second = (3.0 * u - 6.0) * u * u + 4.0;
    const double third = (3.0 * v - 6.0) * v * v + 4.0;
    const double fourth = u * u * u;
    const double factor = std::sqrt(3.0 * 315.0 / 151.0) / 6.0;
    return factor * (first * piece.Knots[0] + second * piece.Knots[1] + third * piece.Knots[2] +
                     fourth * piece.Knots[3]);
}

void AddDrift(const Noise& noise, NoiseKey key, std::span<const int64_t> clockNs,
              std::span<double> samples) {
    DriftPiece piece = DriftPieceAt(key, std::floor(KnotsUntil(noise.DriftTime, clockNs[0])));
    for (size_t i = 0; i < samples.size(); ++i) {
        const double knots = KnotsUntil(noise.DriftTime, clockNs[i]);
        if (const double first = std::floor(knots); first != piece.First) {
            piece = DriftPieceAt(key, first);
        }
        samples[i] += noise.DriftRms * DriftAt(piece, knots);
    }
}

} // namespace

NoiseKeys MakeNoiseKeys(uint64_t seed, uint32_t channelKey) {
    uint64_t number = 0;
    const auto next = [&]() -> NoiseKey {
        ++number;
        return Draw(seed, channelKey, number)[0];
    };
    NoiseKeys keys{};
    keys.White = next();
    keys.Drift = next();
    std::ranges::generate(keys.Flicker, next);
    return keys;
}

double NoiseAt(const Noise& noise, const NoiseKeys& keys, uint64_t stream, uint64_t number,
               int64_t clockNs) {
    double value = 0.0;
    if (noise.White > 0.0) {
        value += noise.White * Deviate(keys.White, stream, number);
    }
    if (noise.Flicker > 0.0) {
        value += noise.Flicker * FlickerAt(keys.Flicker, stream, number);
    }
    if (noise.DriftRms > 0.0) {
        const double knots = KnotsUntil(noise.DriftTime, clockNs);
        value += noise.DriftRms * DriftAt(DriftPieceAt(keys.Drift, std::floor(knots)), knots);
    }
    return value;
}

void AddNoise(const Noise& noise, const NoiseKeys& keys, uint64_t stream, uint64_t first,
              std::span<const int64_t> clockNs, std::span<double> samples) {
    if (noise.White > 0.0) {
        AddWhite(noise.White, keys.White, stream, first, samples);
    }
    if (noise.Flicker > 0.0) {
        AddFlicker(noise.Flicker, keys.Flicker, stream, first, samples);
    }
    if (noise.DriftRms > 0.0) {
        AddDrift(noise, keys.Drift, clockNs, samples);
    }
}

} // namespace orvane::laboratory
