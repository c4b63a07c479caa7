#include "console/laboratory/signal/signal.h"

#include "console/laboratory/signal/elementary.h"
#include "console/laboratory/signal/terms.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace orvane::laboratory {

namespace {

// Noise comes before the terms: so a processor can compute these while it draws.

/// Within the limits, what isn't a number at the lower one. A converter knows multiples of its step
/// above that.
double Converted(double value, const PreparedSignal& signal) {
    const double min = signal.Limits.Min;
    const double max = signal.Limits.Max;
    const double atLeast = value > min ? value : min;
    const double held = atLeast < max ? atLeast : max;
    if (signal.StepsPerUnit == 0.0) {
        return held;
    }
    const double steps = (held - min) * signal.StepsPerUnit;
    const double rounded = min + Nearest(steps) * signal.Step;
    return rounded < max ? rounded : max;
}

double ComputeSample(const PreparedSignal& signal, const Correction& correction,
                     const OutputHistories& outputs, const SampleGrid& grid) {
    const Instant at = InstantOf(grid, 0);
    double value = NoiseAt(signal.Added, signal.Keys, grid.Stream, grid.FirstNumber, at.ClockNs);
    for (const Term& term : signal.Terms) {
        value += ValueAt(term, outputs, at);
    }
    if (signal.Breathed) {
        value += FlowAt(*signal.Breathed, at.Seconds);
    }
    return Converted(value * correction.Gain + correction.Shift, signal);
}

/// Computes samples from number `first` of the grid on, as many as a block takes at most.
void ComputeBlock(const PreparedSignal& signal, const Correction& correction,
                  const OutputHistories& outputs, const SampleGrid& grid, uint64_t first,
                  std::span<double> samples) {
    Instants at;
    for (size_t i = 0; i < samples.size(); ++i) {
        const Instant instant = InstantOf(grid, first + i);
        at.ClockNs[i] = instant.ClockNs;
        at.Ns[i] = instant.Ns;
        at.Seconds[i] = instant.Seconds;
    }
    std::ranges::fill(samples, 0.0);
    AddNoise(signal.Added, signal.Keys, grid.Stream, grid.FirstNumber + first,
             std::span(at.ClockNs).first(samples.size()), samples);
    for (const Term& term : signal.Terms) {
        AddTerm(term, outputs, at, samples);
    }
    if (signal.Breathed) {
        AddFlow(*signal.Breathed, at, samples);
    }
    for (double& sample : samples) {
        sample = Converted(sample * correction.Gain + correction.Shift, signal);
    }
}

/// Whether an edge comes with a sample.
bool Crosses(const Edge& edge, double before, double sample) {
    return edge.Rising ? before < edge.Level && sample >= edge.Level
                       : before > edge.Level && sample <= edge.Level;
}

} // namespace

PreparedSignal PrepareSignal(const Function& function, const Calibre& calibre, uint64_t seed,
                             uint32_t channelKey) {
    const Range& limits = calibre.Limits;
    const auto bits = static_cast<int>(function.Added.Bits);
    const double width = limits.Max - limits.Min;
    return {.Terms = function.Signal,
            .Added = function.Added,
            .Keys = MakeNoiseKeys(seed, channelKey),
            .Limits = limits,
            .Step = bits > 0 ? std::ldexp(width, -bits) : 0.0,
            .StepsPerUnit = bits > 0 ? std::ldexp(1.0 / width, bits) : 0.0,
            .Breathed = {}};
}

void ComputeSamples(const PreparedSignal& signal, const Correction& correction,
                    const OutputHistories& outputs, const SampleGrid& grid,
                    std::span<double> samples) {
    if (samples.size() == 1) {
        samples[0] = ComputeSample(signal, correction, outputs, grid);
        return;
    }
    for (uint64_t first = 0; first < samples.size(); first += samplesPerBlock) {
        const size_t count = std::min<size_t>(samples.size() - first, samplesPerBlock);
        ComputeBlock(signal, correction, outputs, grid, first, samples.subspan(first, count));
    }
}

std::optional<uint64_t> FirstCrossing(const PreparedSignal& signal, const Correction& correction,
                                      const OutputHistories& outputs, const SampleGrid& grid,
                                      const Edge& edge, uint64_t from, uint64_t to) {
    std::array<double, samplesPerBlock> block;
    from = std::max<uint64_t>(from, 1);
    while (from < to) { // The first of a block is the last of the one before.
        const size_t count = std::min<uint64_t>(to - from + 1, samplesPerBlock);
        const std::span samples(block.data(), count);
        ComputeBlock(signal, correction, outputs, grid, from - 1, samples);
        const auto crossing = std::ranges::adjacent_find(
            samples, [&](double before, double sample) { return Crosses(edge, before, sample); });
        if (crossing != samples.end()) {
            return from + static_cast<uint64_t>(crossing - samples.begin());
        }
        from += count - 1;
    }
    return std::nullopt;
}

} // namespace orvane::laboratory
