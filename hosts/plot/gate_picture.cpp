#include "hosts/plot/gate_picture.h"

#include "hosts/session/number_text.h"

#include <functional>

namespace orvane {

namespace {

constexpr ChartInk fit{0};
constexpr ChartInk measured{1};

ChartLane LaneOf(const std::string& label, const ChartPoints& dots, double endSec,
                 const std::function<double(double)>& fitted) {
    constexpr int steps = 200;
    ChartCurve curve{.Ink = fit};
    for (int i = 0; i <= steps; ++i) {
        const double time = endSec * i / steps;
        curve.Points.X.push_back(time);
        curve.Points.Y.push_back(fitted(time));
    }
    ChartLane lane{.Label = label};
    lane.Curves = {curve, {.Points = dots, .Ink = measured, .LineWidth = 0.0, .DotWidth = 8.0}};
    return lane;
}

} // namespace

Chart PictureOf(const GateMotion& motion) {
    constexpr double air = 0.03; // of the time, before and after
    const double end = motion.TimesSec.back();
    const double speed = motion.DoorSpeed;
    const double acceleration = motion.Acceleration;
    Chart chart;
    chart.X = {-air * end, end * (1.0 + air)};
    const TimeUnit unit = TimeUnitOf(chart.X);
    chart.XUnit = unit.Seconds;
    chart.XLabel = std::string("Time since the door (") + unit.Name + ")";
    chart.Legend = {{measured, "• measured"},
                    {fit, "— g = " + FixedText(acceleration, 2) + " m/s²"}};
    chart.Lanes = {LaneOf("Position below the door: s (m)", {motion.TimesSec, motion.Positions},
                          end, [&](double t) { return speed * t + acceleration * t * t / 2.0; }),
                   LaneOf("Speed at mid-times: v (m/s)", {motion.MidTimesSec, motion.Speeds}, end,
                          [&](double t) { return speed + acceleration * t; })};
    return chart;
}

} // namespace orvane
