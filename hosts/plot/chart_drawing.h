#pragma once

#include "hosts/plot/chart.h"

#include <filesystem>
#include <span>

using cairo_t = struct _cairo; // NOLINT(bugprone-reserved-identifier): of the drawing library

namespace orvane {

/// Draws a chart with its ground, Width by Height pixels from the origin of the context.
void DrawChart(cairo_t* context, const Chart& chart);

/// Fails unless a file of this name can hold a chart: .png or .svg. Throws HostError.
void CheckChartFile(const std::string& fileName);

/// Draws charts side by side to a file, by the suffix of `name`. Throws HostError, which calls the
/// file `name`, if it could not be written in full.
void DrawToFile(std::span<const Chart> row, const std::filesystem::path& file,
                const std::string& name);

} // namespace orvane
