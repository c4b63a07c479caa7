#pragma once

#include <cstddef>
#include <span>
#include <vector>

/// What a series of samples holds. All zero for an empty one.
struct SeriesSummary {
    size_t Count = 0;
    double Min = 0.0;
    double Mean = 0.0;
    double Max = 0.0;
};

SeriesSummary Summarise(std::span<const double> samples);

/// Indexes of the samples that a picture needs: all of a short series; of a long one the lowest and
/// the highest of each of `steps` stretches, in their order.
std::vector<size_t> SamplesToDraw(std::span<const double> samples, size_t steps);
