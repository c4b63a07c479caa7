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
