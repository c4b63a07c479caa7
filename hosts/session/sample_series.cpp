#include "hosts/session/sample_series.h"

#include <algorithm>
#include <numeric>

namespace orvane {

namespace {

SeriesOutline::Extremes ExtremesOf(std::span<const double> samples, const SeriesOutline& outline,
                                   SampleStretch stretch) {
    constexpr size_t size = SeriesOutline::BlockSize;
    const double start = samples[stretch.First];
    SeriesOutline::Extremes found{stretch.First, stretch.First, start, start};
    const auto take = [&](const SeriesOutline::Extremes& other) {
        if (other.Low < found.Low) {
            found.Low = other.Low;
            found.Lowest = other.Lowest;
        }
        if (other.High > found.High) {
            found.High = other.High;
            found.Highest = other.Highest;
        }
    };
    for (size_t i = stretch.First; i < stretch.End;) {
        const size_t block = i / size;
        if (i % size == 0 && i + size <= stretch.End && block < outline.Blocks.size()) {
            take(outline.Blocks[block]);
            i += size;
        } else {
            take({i, i, samples[i], samples[i]});
            ++i;
        }
    }
    return found;
}

SeriesOutline::Sums SumsOf(std::span<const double> samples) {
    SeriesOutline::Sums sums{};
    for (const double sample : samples) {
        sums.Values += sample;
        sums.Squares += sample * sample;
    }
    return sums;
}

} // namespace

SeriesSummary Summarise(std::span<const double> samples) {
    if (samples.empty()) {
        return {};
    }
    const auto [min, max] = std::ranges::minmax(samples);
    const double sum = std::accumulate(samples.begin(), samples.end(), 0.0);
    return {samples.size(), min, sum / static_cast<double>(samples.size()), max};
}

void Extend(SeriesOutline& outline, std::span<const double> samples) {
    constexpr size_t size = SeriesOutline::BlockSize;
    for (size_t first = outline.Blocks.size() * size; first + size <= samples.size();
         first += size) {
        outline.Blocks.push_back(ExtremesOf(samples, {}, {first, first + size}));
        outline.BlockSums.push_back(SumsOf(samples.subspan(first, size)));
    }
}

std::vector<size_t> SamplesToDraw(std::span<const double> samples, const SeriesOutline& outline,
                                  SampleStretch stretch, size_t steps) {
    std::vector<size_t> drawn;
    const size_t count = stretch.End - stretch.First;
    if (count <= 2 * steps) {
        drawn.resize(count);
        std::iota(drawn.begin(), drawn.end(), stretch.First);
        return drawn;
    }
    drawn.reserve(2 * steps);
    // Long steps begin with a block, so that no block is read sample by sample.
    constexpr size_t blocksOfLongStep = 4;
    const bool isLong = count / steps >= blocksOfLongStep * SeriesOutline::BlockSize;
    const auto startOf = [&](size_t step) {
        const size_t start = stretch.First + count * step / steps;
        return isLong && step > 0 && step < steps ? start - start % SeriesOutline::BlockSize
                                                  : start;
    };
    for (size_t step = 0; step < steps; ++step) {
        const SeriesOutline::Extremes found =
            ExtremesOf(samples, outline, {startOf(step), startOf(step + 1)});
        const auto [lowest, highest] = std::minmax(found.Lowest, found.Highest);
        drawn.push_back(lowest);
        if (lowest != highest) {
            drawn.push_back(highest);
        }
    }
    return drawn;
}

std::vector<size_t> SamplesToDraw(std::span<const double> samples, size_t steps) {
    return SamplesToDraw(samples, {}, {0, samples.size()}, steps);
}

} // namespace orvane
