#include "hosts/plot/output_picture.h"

#include "hosts/session/durations.h"
#include "hosts/session/number_text.h"
#include "hosts/session/translation.h"

#include <algorithm>

namespace orvane {

namespace {

constexpr size_t fewPoints = 400;  // in two periods: their steps can be seen
constexpr size_t mostDrawn = 4000; // of a long list of codes
constexpr double air = 0.1;        // of the values, above and below
constexpr size_t firstPoints = 8;

/// Some of the points, so that the last one is held until the end.
ChartPoints PointsOf(const std::vector<double>& values, double stepSec, size_t count) {
    ChartPoints points;
    const size_t each = count / mostDrawn + 1;
    for (size_t point = 0; point < count; point += each) {
        points.X.push_back(stepSec * static_cast<double>(point));
        points.Y.push_back(values[point % values.size()]);
    }
    points.X.push_back(stepSec * static_cast<double>(count));
    points.Y.push_back(values[(count - 1) % values.size()]);
    return points;
}

void SetTime(Chart& chart, double endSec) {
    chart.X = {0.0, endSec};
    const TimeUnit unit = TimeUnitOf(chart.X);
    chart.XUnit = unit.Seconds;
    chart.XLabel = Translated("Time (%s)", {unit.Name});
}

/// With the limits of the output in view, if the signal comes near.
AxisRange ShownValues(const PlannedSignal& planned) {
    const auto [least, most] = std::ranges::minmax(planned.Asked);
    const double more = most > least ? air * (most - least) : 1.0;
    return {least - more, most + more};
}

void AddLimits(ChartLane& lane, const OutputLimits& limits) {
    const AxisRange shown = *lane.Value;
    if (shown.To > limits.Most) {
        lane.Shades.push_back({.Range = {limits.Most, shown.To}, .Horizontal = true});
        lane.Rules.push_back({.At = limits.Most,
                              .Horizontal = true,
                              .Text = Translated("what the output can give: %s V",
                                                 {RangeText(limits.Least, limits.Most)})});
    }
    if (shown.From < limits.Least) {
        lane.Shades.push_back({.Range = {shown.From, limits.Least}, .Horizontal = true});
        lane.Rules.push_back({.At = limits.Least, .Horizontal = true});
    }
}

} // namespace

Chart PreviewOf(const PlannedSignal& planned, const OutputLimits& limits,
                const std::string& label) {
    const size_t count = 2 * planned.Played.size();
    Chart chart;
    SetTime(chart, 2.0 * planned.PeriodSec());
    ChartLane lane{.Label = label, .Value = ShownValues(planned)};
    const bool steps = count <= fewPoints;
    if (planned.CutPart > 0.0) {
        lane.Curves.push_back({.Points = PointsOf(planned.Asked, planned.StepSec, count),
                               .Line = Dash::Dotted,
                               .LineWidth = 1.1,
                               .Steps = steps});
    }
    lane.Curves.push_back({.Points = PointsOf(planned.Played, planned.StepSec, count),
                           .LineWidth = 2.0,
                           .Steps = steps});
    AddLimits(lane, limits);
    constexpr int digits = 4;
    const double unit = chart.XUnit;
    lane.Rules.push_back(
        {.At = planned.PeriodSec(),
         .Line = Dash::Dotted,
         .Text = Translated("period %s", {NumberText(planned.PeriodSec() / unit, digits) + " " +
                                          TimeUnitOf(chart.X).Name})});
    chart.Lanes.push_back(std::move(lane));
    return chart;
}

Chart FirstPointsOf(const PlannedSignal& planned, const std::string& label) {
    const size_t count = std::min(firstPoints, planned.Played.size());
    Chart chart;
    SetTime(chart, planned.StepSec * static_cast<double>(count));
    ChartLane lane{.Label = label};
    lane.Curves.push_back({.Points = PointsOf(planned.Played, planned.StepSec, count),
                           .LineWidth = 2.0,
                           .Steps = true});
    chart.Lanes.push_back(std::move(lane));
    return chart;
}

} // namespace orvane
