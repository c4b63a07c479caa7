#include "hosts/plot/gate_charts.h"

#include "hosts/session/number_text.h"
#include "hosts/session/translation.h"

#include <algorithm>
#include <functional>

namespace orvane {

namespace {

constexpr double dotWidth = 10.0;

double EndOf(const GateFall& fall) {
    return std::ranges::max(fall.TimesSec);
}

ChartCurve Dot(double x, double y, ChartInk ink) {
    return {.Points = {{x}, {y}}, .Ink = ink, .LineWidth = 0.0, .DotWidth = dotWidth};
}

Chart OverTime(AxisRange timeSec) {
    Chart chart;
    chart.X = timeSec;
    const TimeUnit unit = TimeUnitOf(timeSec);
    chart.XUnit = unit.Seconds;
    chart.XLabel = Translated("Time after the door (%s)", {unit.Name});
    return chart;
}

ChartCurve Fitted(double endSec, const std::function<double(double)>& at) {
    constexpr int steps = 100;
    ChartCurve curve{.Line = Dash::Dashed};
    for (int i = 0; i <= steps; ++i) {
        const double time = endSec * i / steps;
        curve.Points.X.push_back(time);
        curve.Points.Y.push_back(at(time));
    }
    return curve;
}

/// A lane with the fall that fits, over the values from 0 on.
Chart FallChart(const GateFall& fall, const std::string& label,
                const std::function<double(double)>& fitted) {
    constexpr double air = 1.07;
    constexpr double airBefore = 0.04;
    const double end = EndOf(fall) * air;
    Chart chart = OverTime({-airBefore * end, end});
    ChartLane lane;
    lane.Label = label;
    lane.Value = AxisRange{std::min(fitted(0.0), 0.0) - airBefore * fitted(end), fitted(end) * air};
    lane.Curves.push_back(Fitted(end, fitted));
    chart.Lanes.push_back(std::move(lane));
    return chart;
}

} // namespace

Chart PassageChart(const GateFall& fall, const std::vector<std::string>& rows) {
    constexpr double airBefore = 0.06;
    constexpr double airAfter = 0.15; // with a number beside the last stroke
    constexpr double half = 0.36;     // of a row
    constexpr double msPerSecond = 1e3;
    constexpr int decimals = 4; // to 0.1 µs
    const double end = EndOf(fall);
    Chart chart = OverTime({-airBefore * end, (1.0 + airAfter) * end});
    chart.XUnit = 1.0 / msPerSecond;
    chart.XLabel = Translated("Time after the door (%s)", {"ms"});
    ChartLane lane;
    lane.Rows = rows;
    for (size_t row = 0; row < rows.size() && row <= fall.TimesSec.size(); ++row) {
        const double time = row == 0 ? 0.0 : fall.TimesSec[row - 1];
        const double middle = static_cast<double>(row) + 0.5;
        const ChartInk ink = row == 0 ? ChartInk{} : ChartInk{(row - 1) / 2};
        lane.Curves.push_back({.Points = {{time, time}, {middle - half, middle + half}},
                               .Ink = ink,
                               .LineWidth = 3.0});
        lane.Marks.push_back({.X = time,
                              .Y = middle,
                              .Text = FixedText(time * msPerSecond, decimals),
                              .TextOnly = true});
    }
    chart.Lanes.push_back(std::move(lane));
    return chart;
}

Chart SpeedChart(const GateFall& fall) {
    constexpr int decimals = 3;
    constexpr double textAt = 0.3;
    constexpr double textHeight = 0.2;
    const FallLine line = *fall.Line;
    const auto speed = [&](double time) { return line.DoorSpeed + line.Acceleration * time; };
    Chart chart = FallChart(fall, Translated("Speed: v (m/s)"), speed);
    ChartLane& lane = chart.Lanes[0];
    for (size_t fork = 0; fork < fall.Forks.size(); ++fork) {
        lane.Curves.push_back(Dot(fall.Forks[fork].MidSec, *fall.Forks[fork].Speed, {fork}));
    }
    if (fall.Forks.size() == 1) { // What its line goes through besides.
        const size_t first = fall.Positions[0] < fall.Positions[1] ? 0 : 1;
        const double time = fall.TimesSec[first];
        lane.Curves.push_back(Dot(time / 2.0, fall.Positions[first] / time, {}));
    }
    lane.Marks.push_back({.X = textAt * chart.X.To,
                          .Y = lane.Value->To * textHeight,
                          .Text = "v = " + FixedText(line.DoorSpeed, decimals) + " m/s + " +
                                  FixedText(line.Acceleration, decimals) + " m/s² · t",
                          .TextOnly = true});
    return chart;
}

Chart PositionChart(const GateFall& fall) {
    const FallLine line = *fall.Line;
    Chart chart = FallChart(fall, Translated("Position below the door: x (m)"), [&](double time) {
        return line.DoorSpeed * time + line.Acceleration * time * time / 2.0;
    });
    ChartLane& lane = chart.Lanes[0];
    lane.Curves.push_back(Dot(0.0, 0.0, {}));
    for (size_t gate = 0; gate < fall.TimesSec.size(); ++gate) {
        lane.Curves.push_back(Dot(fall.TimesSec[gate], fall.Positions[gate], {gate / 2}));
    }
    return chart;
}

} // namespace orvane
