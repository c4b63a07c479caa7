#pragma once

#include "hosts/session/sample_series.h"

#include <optional>

namespace orvane {

/// What a scope tells of a stretch of a series. All zero for an empty one.
struct SeriesMeasures {
    double Min = 0.0;
    double Max = 0.0;
    double Mean = 0.0;
    double Rms = 0.0;
    std::optional<double> FrequencyHz = {}; ///< Nothing unless it repeats regularly.
};

/// The measures of a stretch. With an outline of the series they take a fraction of its length.
SeriesMeasures MeasuresOf(std::span<const double> samples, const SeriesOutline& outline,
                          SampleStretch stretch, double periodSec);

} // namespace orvane
