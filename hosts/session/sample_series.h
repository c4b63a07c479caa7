#pragma once

#include <cstddef>
#include <span>
#include <vector>

namespace orvane {

/// The statistics of a series of samples. All zero for an empty one.
struct SeriesSummary {
    size_t Count = 0;
    double Min = 0.0;
    double Mean = 0.0;
    double Max = 0.0;
};

SeriesSummary Summarise(std::span<const double> samples);

/// The lowest and the highest sample of each block of a growing series and its sums, so that a
/// picture or the measures of a long one need not read every sample.
struct SeriesOutline {
    struct Extremes {
        size_t Lowest; ///< Indexes in the series.
        size_t Highest;
        double Low;
        double High;
    };
    struct Sums {
        double Values;
        double Squares;
    };
    static constexpr size_t BlockSize = 256;

    std::vector<Extremes> Blocks;
    std::vector<Sums> BlockSums;
};

/// Adds the blocks that the series has filled since the last call.
void Extend(SeriesOutline& outline, std::span<const double> samples);

/// Samples from one index up to another, that one left out.
struct SampleStretch {
    size_t First;
    size_t End;
};

/// Indexes of the samples that a picture of a stretch needs: all of a short one; of a long one the
/// lowest and the highest of each of `steps` parts, in their order.
std::vector<size_t> SamplesToDraw(std::span<const double> samples, const SeriesOutline& outline,
                                  SampleStretch stretch, size_t steps);

/// The same for a whole series without an outline.
std::vector<size_t> SamplesToDraw(std::span<const double> samples, size_t steps);

} // namespace orvane
