#include "hosts/session/series_measures.h"

#include <algorithm>
#include <cmath>

namespace orvane {

namespace {

constexpr size_t blockSize = SeriesOutline::BlockSize;

/// The places where a series rises through its middle, as fractions of an index. It has to fall
/// well below before it can rise again, so that noise doesn't count.
std::vector<double> RisesOf(std::span<const double> samples, double low, double high) {
    constexpr double play = 0.25; // of the height
    const double middle = (low + high) / 2.0;
    const double armed = middle - play * (high - low);
    const double passed = middle + play * (high - low);
    std::vector<double> rises;
    std::optional<double> crossing;
    bool isLow = false;
    for (size_t i = 0; i < samples.size(); ++i) {
        if (samples[i] <= armed) {
            isLow = true;
            crossing.reset();
        } else if (isLow && !crossing && samples[i] >= middle) {
            const double before = samples[i - 1];
            crossing = static_cast<double>(i) - (samples[i] - middle) / (samples[i] - before);
        }
        if (isLow && crossing && samples[i] >= passed) {
            rises.push_back(*crossing);
            isLow = false;
            crossing.reset();
        }
    }
    return rises;
}

/// The mean distance of rises, if they are about equally far from each other.
std::optional<double> RegularDistance(const std::vector<double>& rises) {
    constexpr double irregular = 0.25;
    if (rises.size() < 2) {
        return std::nullopt;
    }
    const double mean = (rises.back() - rises.front()) / static_cast<double>(rises.size() - 1);
    for (size_t i = 1; i < rises.size(); ++i) {
        if (std::abs(rises[i] - rises[i - 1] - mean) > irregular * mean) {
            return std::nullopt;
        }
    }
    return mean;
}

/// The means of the blocks of a stretch: a slow signal keeps its shape.
std::vector<double> BlockMeans(const SeriesOutline& outline, SampleStretch stretch) {
    std::vector<double> means;
    const size_t end = std::min(stretch.End / blockSize, outline.BlockSums.size());
    for (size_t block = (stretch.First + blockSize - 1) / blockSize; block < end; ++block) {
        means.push_back(outline.BlockSums[block].Values / static_cast<double>(blockSize));
    }
    return means;
}

std::optional<double> FrequencyOf(std::span<const double> samples, const SeriesOutline& outline,
                                  SampleStretch stretch, double low, double high,
                                  double periodSec) {
    constexpr size_t most = 1U << 18U; // enough periods of a fast signal
    if (!(high > low)) {
        return std::nullopt;
    }
    double stepSec = periodSec;
    std::optional<double> distance;
    const size_t count = stretch.End - stretch.First;
    if (count > most) {
        stepSec = periodSec * static_cast<double>(blockSize);
        distance = RegularDistance(RisesOf(BlockMeans(outline, stretch), low, high));
    }
    if (!distance) {
        stepSec = periodSec;
        distance = RegularDistance(
            RisesOf(samples.subspan(stretch.First, std::min(count, most)), low, high));
    }
    return distance ? std::optional(1.0 / (*distance * stepSec)) : std::nullopt;
}

} // namespace

SeriesMeasures MeasuresOf(std::span<const double> samples, const SeriesOutline& outline,
                          SampleStretch stretch, double periodSec) {
    SeriesMeasures measures;
    if (stretch.First >= stretch.End || stretch.End > samples.size()) {
        return measures;
    }
    measures.Min = measures.Max = samples[stretch.First];
    SeriesOutline::Sums sums{};
    const auto take = [&](double low, double high, double sum, double squares) {
        measures.Min = std::min(measures.Min, low);
        measures.Max = std::max(measures.Max, high);
        sums.Values += sum;
        sums.Squares += squares;
    };
    for (size_t i = stretch.First; i < stretch.End;) {
        const size_t block = i / blockSize;
        if (i % blockSize == 0 && i + blockSize <= stretch.End && block < outline.Blocks.size()) {
            take(outline.Blocks[block].Low, outline.Blocks[block].High,
                 outline.BlockSums[block].Values, outline.BlockSums[block].Squares);
            i += blockSize;
        } else {
            take(samples[i], samples[i], samples[i], samples[i] * samples[i]);
            ++i;
        }
    }
    const auto count = static_cast<double>(stretch.End - stretch.First);
    measures.Mean = sums.Values / count;
    measures.Rms = std::sqrt(sums.Squares / count);
    measures.FrequencyHz =
        FrequencyOf(samples, outline, stretch, measures.Min, measures.Max, periodSec);
    return measures;
}

} // namespace orvane
