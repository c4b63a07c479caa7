#include "hosts/plot/reading_picture.h"

#include "hosts/plot/run_picture.h"
#include "hosts/session/translation.h"

namespace orvane {

Chart PictureOf(const RecentReadings& readings, const ChannelInfo& channel) {
    const auto number = static_cast<size_t>(channel.Index);
    Chart chart;
    chart.X = {-RecentReadings::LengthSec, 0.0};
    chart.XLabel = Translated("Time before now (s)");
    ChartLane lane = EmptyLane(channel);
    ChartCurve curve{.Points = {readings.TimesSec, readings.Values},
                     .Ink = {number},
                     .Line = CurveDashOf(number),
                     .EndLabel = std::to_string(number + 1)};
    for (double& time : curve.Points.X) {
        time -= readings.TimesSec.back();
    }
    if (!readings.Values.empty()) {
        lane.Marks.push_back(
            {.X = 0.0, .Y = readings.Values.back(), .Ink = {number}, .Filled = true});
    }
    lane.Curves.push_back(std::move(curve));
    chart.Lanes.push_back(std::move(lane));
    return chart;
}

} // namespace orvane
