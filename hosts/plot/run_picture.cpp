#include "hosts/plot/run_picture.h"

#include "hosts/plot/chart_drawing.h"

#include <algorithm>
#include <cmath>

namespace orvane {

namespace {

/// The samples that lie in a range of time, with a neighbour on each side.
SampleStretch StretchIn(const AcquisitionRecording& recording, size_t count, AxisRange timeSec) {
    const double origin = PointTime(recording, 0);
    const auto index = [&](double time) {
        const double point = std::floor((time - origin) / recording.PeriodSec);
        return static_cast<size_t>(std::clamp(point, 0.0, static_cast<double>(count)));
    };
    return {index(timeSec.From), std::min(index(timeSec.To) + 2, count)};
}

ChartPoints PointsIn(const AcquisitionRecording& recording, const Samples& samples,
                     const SeriesOutline& outline, AxisRange timeSec, size_t steps) {
    ChartPoints points;
    const SampleStretch stretch = StretchIn(recording, samples.size(), timeSec);
    for (const size_t i : SamplesToDraw(samples, outline, stretch, steps)) {
        points.X.push_back(PointTime(recording, i));
        points.Y.push_back(samples[i]);
    }
    return points;
}

} // namespace

ChartLane EmptyLane(const ChannelInfo& channel) {
    ChartLane lane;
    lane.Label = CurveTitle(channel) + ": " + QuantityWithUnit(channel);
    lane.Fallback = {channel.Min, channel.Max};
    return lane;
}

Chart PictureOf(const PicturedRun& run, AxisRange timeSec, size_t steps) {
    constexpr size_t few = 200; // points, whose dots are larger
    const SeriesOutline none;
    const auto outline = [&](std::span<const SeriesOutline> all, size_t channel) -> const auto& {
        return channel < all.size() ? all[channel] : none;
    };
    const AcquisitionRecording& recording = run.Recording;
    Chart chart;
    chart.X = timeSec;
    const TimeUnit unit = TimeUnitOf(timeSec);
    chart.XUnit = unit.Seconds;
    for (size_t i = 0; i < run.Channels.size(); ++i) {
        ChartLane lane = EmptyLane(run.Channels[i]);
        ChartCurve live{
            .Points = PointsIn(recording, recording.Live[i], outline(run.Live, i), timeSec, steps),
            .Ink = {1},
            .LineWidth = 0.0};
        live.DotWidth = live.Points.Y.size() <= few ? 6.0 : 4.0;
        ChartCurve fetched{.Points = PointsIn(recording, recording.Fetched[i],
                                              outline(run.Fetched, i), timeSec, steps),
                           .Ink = {0}};
        fetched.DotWidth = fetched.Points.Y.size() == 1 ? 6.0 : 0.0;
        lane.Curves = {std::move(live), std::move(fetched)};
        chart.Lanes.push_back(std::move(lane));
    }
    return chart;
}

std::vector<size_t> LanesOf(const std::vector<ChannelInfo>& channels, bool laneEach) {
    std::vector<size_t> lanes;
    std::vector<std::string> units;
    for (const ChannelInfo& channel : channels) {
        const auto same = std::ranges::find(units, channel.Unit);
        lanes.push_back(laneEach || same == units.end()
                            ? units.size()
                            : static_cast<size_t>(same - units.begin()));
        if (lanes.back() == units.size()) {
            units.push_back(channel.Unit);
        }
    }
    return lanes;
}

Chart ChartOf(const RunCurves& run, AxisRange timeSec, size_t steps, bool laneEach) {
    constexpr double pixelsOfDots = 4.0; // from so many for each point on, points get dots
    Chart chart;
    chart.X = timeSec;
    chart.XUnit = TimeUnitOf(timeSec).Seconds;
    const std::vector<size_t> lanes = LanesOf(run.Channels, laneEach);
    for (size_t i = 0; i < run.Channels.size(); ++i) {
        const ChannelInfo& channel = run.Channels[i];
        const auto number = static_cast<size_t>(channel.Index);
        ChartCurve curve{
            .Points = PointsIn(run.Recording, run.Values[i], run.Outlines[i], timeSec, steps),
            .Ink = {number},
            .Line = CurveDashOf(number),
            .EndLabel = std::to_string(number + 1)};
        const double points = static_cast<double>(curve.Points.Y.size());
        curve.DotWidth = points * pixelsOfDots < static_cast<double>(steps) ? 4.0 : 0.0;
        if (lanes[i] == chart.Lanes.size()) {
            ChartLane lane;
            lane.Label = QuantityWithUnit(channel);
            lane.Fallback = {channel.Min, channel.Max};
            lane.Shades.push_back({.Range = {std::min(timeSec.From, 0.0), 0.0}});
            chart.Lanes.push_back(std::move(lane));
        }
        ChartLane& lane = chart.Lanes[lanes[i]];
        lane.Weight = lane.Curves.empty() ? 1.0 : 1.5;
        lane.Curves.push_back(std::move(curve));
    }
    return chart;
}

void SaveChart(Chart chart, PendingFile& file) {
    constexpr double laneHeight = 270.0;
    constexpr double margins = 60.0;
    constexpr double width = 1000.0;
    chart.Scale = 1.6;
    chart.Width = static_cast<int>(width * chart.Scale);
    chart.Height = static_cast<int>(
        (laneHeight * static_cast<double>(chart.Lanes.size()) + margins) * chart.Scale);
    SaveRow({&chart, 1}, file);
}

void SaveRow(std::span<const Chart> row, PendingFile& file) {
    DrawToFile(row, file.Temporary, file.Target);
    Publish(file);
}

} // namespace orvane
