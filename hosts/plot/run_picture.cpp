#include "hosts/plot/run_picture.h"

#include "hosts/plot/chart_drawing.h"
#include "hosts/session/unit_prefix.h"

#include <algorithm>
#include <cmath>

namespace orvane {

SampleStretch StretchIn(const AcquisitionRecording& recording, size_t count, AxisRange timeSec) {
    const double origin = PointTime(recording, 0);
    const auto index = [&](double time) {
        const double point = std::floor((time - origin) / recording.PeriodSec);
        return static_cast<size_t>(std::clamp(point, 0.0, static_cast<double>(count)));
    };
    return {index(timeSec.From), std::min(index(timeSec.To) + 2, count)};
}

namespace {

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

constexpr double pixelsOfDots = 4.0; // from so many for each point on, points get dots

/// A curve in the look of its channel, without points.
ChartCurve CurveOf(const ChannelInfo& channel) {
    const auto number = static_cast<size_t>(channel.Index);
    return {.Ink = {number},
            .Line = CurveDashOf(number),
            .EndLabel = std::to_string(channel.Index + 1)};
}

std::string LaneLabel(const ChannelInfo& channel, bool isAlone) {
    const std::string unit = ToldUnitOf(channel).Name;
    const std::string quantity =
        unit.empty() ? channel.Quantity : channel.Quantity + " (" + unit + ")";
    return isAlone ? std::to_string(channel.Index + 1) + " " + channel.Name + ": " + quantity
                   : quantity;
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

std::vector<size_t> LanesOf(const std::vector<ChannelInfo>& channels, bool oneEach) {
    std::vector<size_t> lanes;
    std::vector<std::string> units;
    for (const ChannelInfo& channel : channels) {
        const auto same = oneEach ? units.end() : std::ranges::find(units, channel.Unit);
        lanes.push_back(static_cast<size_t>(same - units.begin()));
        if (same == units.end()) {
            units.push_back(channel.Unit);
        }
    }
    return lanes;
}

std::vector<ChartLane> LanesFor(const std::vector<ChannelInfo>& channels, const LaneView& view) {
    constexpr double weightOfSeveral = 1.5;
    std::vector<ChartLane> lanes;
    const std::vector<size_t> numbers = LanesOf(channels, view.OneEach);
    for (size_t i = 0; i < channels.size(); ++i) {
        const ChannelInfo& channel = channels[i];
        const ToldUnit told = ToldUnitOf(channel);
        if (numbers[i] == lanes.size()) {
            ChartLane lane;
            lane.Fallback = {channel.Min, channel.Max};
            lane.Label = LaneLabel(channel, view.OneEach);
            lane.Unit = told.Factor;
            lanes.push_back(std::move(lane));
            continue;
        }
        ChartLane& lane = lanes[numbers[i]];
        lane.Weight = weightOfSeveral;
        lane.Fallback = {std::min(lane.Fallback.From, channel.Min),
                         std::max(lane.Fallback.To, channel.Max)};
        if (told.Factor > lane.Unit) {
            lane.Unit = told.Factor;
            lane.Label = LaneLabel(channel, view.OneEach);
        }
    }
    for (ChartLane& lane : lanes) {
        if (view.WholeRange && lane.Fallback.From < lane.Fallback.To) {
            lane.Value = lane.Fallback;
        }
    }
    return lanes;
}

Chart ChartOf(const RunCurves& run, AxisRange timeSec, size_t steps, const LaneView& view) {
    Chart chart;
    chart.X = timeSec;
    chart.XUnit = TimeUnitOf(timeSec).Seconds;
    chart.Lanes = LanesFor(run.Channels, view);
    const std::vector<size_t> lanes = LanesOf(run.Channels, view.OneEach);
    for (size_t i = 0; i < run.Channels.size(); ++i) {
        ChartCurve curve = CurveOf(run.Channels[i]);
        curve.Points = PointsIn(run.Recording, run.Values[i], run.Outlines[i], timeSec, steps);
        const double points = static_cast<double>(curve.Points.Y.size());
        curve.DotWidth = points * pixelsOfDots < static_cast<double>(steps) ? 4.0 : 0.0;
        chart.Lanes[lanes[i]].Curves.push_back(std::move(curve));
    }
    for (ChartLane& lane : chart.Lanes) {
        lane.Shades.push_back({.Range = {std::min(timeSec.From, 0.0), 0.0}});
    }
    return chart;
}

void AddFormer(Chart& chart, const std::vector<ChannelInfo>& channels, const RunCurves& former,
               size_t age, size_t steps, const LaneView& view) {
    constexpr double width = 1.1;
    constexpr double fading = 0.8;
    const std::vector<size_t> lanes = LanesOf(channels, view.OneEach);
    for (size_t i = 0; i < former.Channels.size(); ++i) {
        const auto same = std::ranges::find(channels, former.Channels[i]);
        if (same == channels.end()) {
            continue;
        }
        ChartCurve curve = CurveOf(*same);
        curve.Points =
            PointsIn(former.Recording, former.Values[i], former.Outlines[i], chart.X, steps);
        curve.LineWidth = width;
        curve.Pale = true;
        curve.Opacity = std::pow(fading, static_cast<double>(age) - 1.0);
        curve.EndLabel.clear();
        auto& curves = chart.Lanes[lanes[static_cast<size_t>(same - channels.begin())]].Curves;
        curves.insert(curves.begin(), std::move(curve));
    }
}

Chart ChartOf(const StripCurves& strip, AxisRange timeSec, const LaneView& view) {
    Chart chart;
    chart.X = timeSec;
    chart.Lanes = LanesFor(strip.Channels, view);
    const std::vector<size_t> lanes = LanesOf(strip.Channels, view.OneEach);
    for (size_t i = 0; i < strip.Channels.size(); ++i) {
        if (strip.Values[i] != nullptr) {
            ChartCurve curve = CurveOf(strip.Channels[i]);
            curve.Points = {strip.TimesSec, *strip.Values[i]};
            chart.Lanes[lanes[i]].Curves.push_back(std::move(curve));
        }
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
