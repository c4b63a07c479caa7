#pragma once

/// \file
/// A chart as plain values: lanes one below the other over a common horizontal axis. Texts are
/// UTF-8, sizes pixels at scale 1.

#include "hosts/plot/chart_colours.h"

#include <optional>
#include <string>
#include <vector>

namespace orvane {

/// A stretch of an axis.
struct AxisRange {
    double From = 0.0;
    double To = 0.0;
};

/// Points in the order in which a curve joins them. Both equally long; a value that is no number
/// interrupts the curve.
struct ChartPoints {
    std::vector<double> X = {};
    std::vector<double> Y = {};
};

/// Which of the colours something is drawn in: a curve's, or that of cursors and fits.
struct ChartInk {
    static constexpr size_t Mark = SIZE_MAX;
    size_t Curve = Mark;
};

struct ChartCurve {
    ChartPoints Points = {};
    ChartInk Ink = {};
    Dash Line = Dash::Solid;
    double LineWidth = 1.6;    ///< 0: no line.
    double DotWidth = 0.0;     ///< 0: no dots.
    bool Steps = false;        ///< Each value is held until the next.
    bool Pale = false;         ///< A former run's.
    double Opacity = 1.0;      ///< The older, the less.
    std::string EndLabel = {}; ///< In bold beside its last point.
};

/// A ring or disc at a point, with a text beside it.
struct ChartMark {
    double X = 0.0;
    double Y = 0.0;
    ChartInk Ink = {};
    bool Filled = false;
    std::string Text = {};
    bool TextOnly = false; ///< Plain, without ring or disc.
};

/// A straight line across a lane.
struct ChartRule {
    double At = 0.0;
    bool Horizontal = false; ///< At a value; else at a place of the common axis.
    ChartInk Ink = {};
    Dash Line = Dash::Dashed;
    std::string Text = {}; ///< At its right or upper end, inside the lane.
};

/// A shaded stretch of a lane.
struct ChartShade {
    AxisRange Range = {};
    bool Horizontal = false; ///< Of values; else of the common axis.
};

struct ChartLane {
    double Weight = 1.0;                 ///< Its share of the height.
    std::string Label = {};              ///< Such as "u (V)".
    std::optional<AxisRange> Value = {}; ///< Nothing: what its curves need, with a margin.
    AxisRange Fallback{-1.0, 1.0};       ///< Of a lane whose curves are flat or missing.
    double Unit = 1.0; ///< What the numbers of its axis count in: 1e-3 for mA over A.
    std::vector<ChartCurve> Curves = {};
    std::vector<ChartMark> Marks = {};
    std::vector<ChartRule> Rules = {};
    std::vector<ChartShade> Shades = {};
    /// Names in place of the numbers: row i has the values from i to i + 1, downwards.
    std::vector<std::string> Rows = {};
};

/// A text in the colour of what it names.
struct ChartLegend {
    ChartInk Ink = {};
    std::string Text = {};
};

/// A triangle on the common axis.
struct ChartAxisMark {
    double X = 0.0;
    ChartInk Ink = {};
};

struct Chart {
    std::vector<ChartLane> Lanes = {};
    AxisRange X = {};
    std::string XLabel = {};
    double XUnit = 1.0; ///< What the numbers of the axis count in: 1e-3 for ms over s.
    std::vector<ChartAxisMark> AxisMarks = {};
    std::vector<ChartLegend> Legend = {}; ///< At the upper right, from left to right.
    std::string Empty = {};               ///< In the middle of a chart without lanes.
    /// Vertical units that are as long as one horizontal unit; 0: whatever fits.
    double LockedUnits = 0.0;
    ChartColours Colours = LightColours;
    char DecimalPoint = '.';
    double Scale = 1.0; ///< Of texts, lines and margins.
    int Width = 0;
    int Height = 0;
};

/// The drawing area of a lane in pixels from the top left corner, and what lies at its edges.
struct ChartArea {
    double Left = 0.0;
    double Right = 0.0;
    double Top = 0.0;
    double Bottom = 0.0;
    AxisRange X;
    AxisRange Value;
};

/// The areas of the lanes, in their order.
std::vector<ChartArea> AreasOf(const Chart& chart);

/// Has the numbers of a chart's axes and texts written with this point.
void UseDecimalPoint(Chart& chart, char point);

/// \name Between values and pixels
/// @{
double PixelX(const ChartArea& area, double x);
double PixelY(const ChartArea& area, double value);
double XAt(const ChartArea& area, double pixel);
double ValueAt(const ChartArea& area, double pixel);
/// @}

/// The unit in which the times of a stretch are told: "s", "ms" or "µs".
struct TimeUnit {
    double Seconds;
    const char* Name;
};
TimeUnit TimeUnitOf(AxisRange timeSec);

} // namespace orvane
