// Where the lanes of a chart lie. Needs no drawing.

#include "hosts/plot/chart.h"
#include "hosts/session/number_text.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>

namespace orvane {

namespace {

constexpr double marginLeft = 66.0;
constexpr double marginRight = 60.0;
constexpr double marginTop = 36.0;
constexpr double marginBottom = 54.0;
constexpr double laneGap = 30.0; // with the label of the lane below

bool Spans(AxisRange range) {
    return range.From < range.To && std::isfinite(range.To - range.From);
}

/// What the curves and marks of a lane need, with a margin.
AxisRange NeededBy(const ChartLane& lane) {
    constexpr double margin = 0.08;
    AxisRange range{std::numeric_limits<double>::infinity(),
                    -std::numeric_limits<double>::infinity()};
    const auto take = [&](double value) { // Comparisons that a NaN fails.
        range.From = value < range.From ? value : range.From;
        range.To = value > range.To ? value : range.To;
    };
    for (const ChartCurve& curve : lane.Curves) {
        std::ranges::for_each(curve.Points.Y, take);
    }
    for (const ChartMark& mark : lane.Marks) {
        take(mark.Y);
    }
    if (!Spans(range)) {
        range = Spans(lane.Fallback) ? lane.Fallback : AxisRange{-1.0, 1.0};
    }
    const double around = margin * (range.To - range.From);
    return {range.From - around, range.To + around};
}

/// Makes the vertical unit as long as so many horizontal ones, by more room on one of the axes.
void LockUnits(ChartArea& area, double units) {
    const double pixelsX = (area.Right - area.Left) / (area.X.To - area.X.From);
    const double pixelsValue = (area.Bottom - area.Top) / (area.Value.To - area.Value.From) * units;
    const auto widen = [](AxisRange& range, double factor) {
        const double middle = std::midpoint(range.From, range.To);
        const double half = (range.To - range.From) / 2.0 * factor;
        range = {middle - half, middle + half};
    };
    if (pixelsX > pixelsValue) {
        widen(area.X, pixelsX / pixelsValue);
    } else {
        widen(area.Value, pixelsValue / pixelsX);
    }
}

/// Names of rows may need more than numbers do.
double LeftMarginOf(const Chart& chart) {
    constexpr double widthOfCharacter = 7.0;
    constexpr double around = 20.0;
    size_t longest = 0;
    for (const ChartLane& lane : chart.Lanes) {
        for (const std::string& name : lane.Rows) {
            longest = std::max(longest, CharacterCount(name));
        }
    }
    return std::max(marginLeft, widthOfCharacter * static_cast<double>(longest) + around);
}

AxisRange ValuesOf(const ChartLane& lane) {
    return lane.Rows.empty() ? lane.Value.value_or(NeededBy(lane))
                             : AxisRange{static_cast<double>(lane.Rows.size()), 0.0};
}

} // namespace

std::vector<ChartArea> AreasOf(const Chart& chart) {
    const double scale = chart.Scale;
    const double left = LeftMarginOf(chart) * scale;
    const double right = std::max(chart.Width - marginRight * scale, left + 1.0);
    const double gaps = laneGap * scale * (static_cast<double>(chart.Lanes.size()) - 1.0);
    const double height = chart.Height - (marginTop + marginBottom) * scale - gaps;
    double weights = 0.0;
    for (const ChartLane& lane : chart.Lanes) {
        weights += lane.Weight;
    }
    std::vector<ChartArea> areas;
    double top = marginTop * scale;
    for (const ChartLane& lane : chart.Lanes) {
        // A chart that is too small for its margins keeps a pixel for each lane.
        const double bottom = top + std::max(height * lane.Weight / weights, 1.0);
        ChartArea area{left, right, top, bottom, chart.X, ValuesOf(lane)};
        if (!Spans(area.X)) {
            area.X = {area.X.From - 1.0, area.X.From + 1.0};
        }
        if (chart.LockedUnits > 0.0) {
            LockUnits(area, chart.LockedUnits);
        }
        areas.push_back(area);
        top = bottom + laneGap * scale;
    }
    return areas;
}

void UseDecimalPoint(Chart& chart, char point) {
    chart.DecimalPoint = point;
    for (ChartLane& lane : chart.Lanes) {
        for (ChartMark& mark : lane.Marks) {
            std::ranges::replace(mark.Text, '.', point);
        }
    }
}

double PixelX(const ChartArea& area, double x) {
    return area.Left + (x - area.X.From) / (area.X.To - area.X.From) * (area.Right - area.Left);
}

double PixelY(const ChartArea& area, double value) {
    return area.Bottom -
           (value - area.Value.From) / (area.Value.To - area.Value.From) * (area.Bottom - area.Top);
}

double XAt(const ChartArea& area, double pixel) {
    return area.X.From + (pixel - area.Left) / (area.Right - area.Left) * (area.X.To - area.X.From);
}

double ValueAt(const ChartArea& area, double pixel) {
    return area.Value.From +
           (area.Bottom - pixel) / (area.Bottom - area.Top) * (area.Value.To - area.Value.From);
}

TimeUnit TimeUnitOf(AxisRange timeSec) {
    constexpr double fits = 1.5; // from so many of a unit on
    const double longest = std::max(std::abs(timeSec.From), std::abs(timeSec.To));
    if (longest >= fits) {
        return {1.0, "s"};
    }
    return longest >= fits * 1e-3 ? TimeUnit{1e-3, "ms"} : TimeUnit{1e-6, "µs"};
}

} // namespace orvane
