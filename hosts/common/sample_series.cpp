#include "hosts/common/sample_series.h"

#include <algorithm>
#include <numeric>

SeriesSummary Summarise(std::span<const double> samples) {
    if (samples.empty()) {
        return {};
    }
    const auto [min, max] = std::ranges::minmax(samples);
    const double sum = std::accumulate(samples.begin(), samples.end(), 0.0);
    return {samples.size(), min, sum / static_cast<double>(samples.size()), max};
}

std::vector<size_t> SamplesToDraw(std::span<const double> samples, size_t steps) {
    std::vector<size_t> drawn;
    if (samples.size() <= 2 * steps) {
        drawn.resize(samples.size());
        std::iota(drawn.begin(), drawn.end(), size_t{0});
        return drawn;
    }
    drawn.reserve(2 * steps);
    for (size_t step = 0; step < steps; ++step) {
        const size_t first = samples.size() * step / steps;
        const size_t last = samples.size() * (step + 1) / steps;
        const auto stretch = samples.subspan(first, last - first);
        const auto [low, high] = std::ranges::minmax_element(stretch);
        const auto lowest = first + static_cast<size_t>(low - stretch.begin());
        const auto highest = first + static_cast<size_t>(high - stretch.begin());
        drawn.push_back(std::min(lowest, highest));
        if (lowest != highest) {
            drawn.push_back(std::max(lowest, highest));
        }
    }
    return drawn;
}
