#include "hosts/panel/curves.h"

#include "hosts/plot/run_picture.h"
#include "hosts/session/translation.h"

#include <algorithm>
#include <cmath>

namespace orvane {

namespace {

// A picture of many panels has fewer points in each, so that it takes no longer than one panel.
constexpr size_t minSteps = 100;

} // namespace

void Append(StripChart& chart, double timeSec, const std::vector<double>& values) {
    chart.Values.resize(values.size());
    chart.TimesSec.push_back(timeSec);
    for (size_t i = 0; i < values.size(); ++i) {
        chart.Values[i].push_back(values[i]);
    }
    const auto old = std::ranges::lower_bound(chart.TimesSec, timeSec - StripChart::LengthSec) -
                     chart.TimesSec.begin();
    chart.TimesSec.erase(chart.TimesSec.begin(), chart.TimesSec.begin() + old);
    for (Samples& one : chart.Values) {
        one.erase(one.begin(), one.begin() + old);
    }
}

Chart PictureOf(const StripChart& chart, const std::vector<ChannelInfo>& channels,
                const std::vector<int>& shown) {
    Chart picture;
    picture.X = {-StripChart::LengthSec, 0.0};
    picture.XLabel = Translated("Time before now (s)");
    std::vector<double> times = chart.TimesSec;
    for (double& time : times) {
        time -= chart.TimesSec.back();
    }
    for (const int channel : shown) {
        const auto index = static_cast<size_t>(channel);
        ChartLane lane = EmptyLane(channels[index]);
        if (index < chart.Values.size()) {
            lane.Curves.push_back({.Points = {times, chart.Values[index]}, .Ink = {0}});
        }
        picture.Lanes.push_back(std::move(lane));
    }
    return picture;
}

std::optional<CursorPoint> PointAt(const StripChart& chart, const std::vector<int>& shown,
                                   double timeSec) {
    if (chart.TimesSec.empty()) {
        return std::nullopt;
    }
    const double now = chart.TimesSec.back();
    const auto next = std::ranges::lower_bound(chart.TimesSec, now + timeSec);
    const auto point =
        std::min(static_cast<size_t>(next - chart.TimesSec.begin()), chart.TimesSec.size() - 1);
    CursorPoint at{chart.TimesSec[point] - now, {}};
    for (const int channel : shown) {
        at.Values.push_back(chart.Values[static_cast<size_t>(channel)][point]);
    }
    return at;
}

size_t Step(ShownRun& run, size_t samples) {
    const size_t read = StepRun(run.Followed, samples);
    for (size_t i = 0; i < run.Channels.size(); ++i) {
        Extend(run.Live[i], run.Followed.Recording.Live[i]);
        Extend(run.Fetched[i], run.Followed.Recording.Fetched[i]);
    }
    return read;
}

AxisRange WholeTime(const ShownRun& run) {
    return {PointTime(run.Followed.Recording, 0),
            PointTime(run.Followed.Recording, run.Followed.Points)};
}

Chart PictureOf(const ShownRun& run, std::optional<AxisRange> zoom, size_t steps) {
    Chart picture =
        PictureOf({run.Channels, run.Followed.Recording, run.Live, run.Fetched},
                  zoom.value_or(WholeTime(run)), std::max(steps / run.Channels.size(), minSteps));
    picture.XLabel = Translated("Time (%s)", {TimeUnitOf(picture.X).Name});
    picture.Legend = {{{1}, "• " + Translated("live")}, {{0}, "— " + Translated("read back")}};
    return picture;
}

std::optional<CursorPoint> PointAt(const ShownRun& run, double timeSec) {
    const AcquisitionRecording& recording = run.Followed.Recording;
    const std::vector<Samples>& samples = KeptSamples(recording);
    // Until the end of the run these are the samples read back, none at first.
    if (samples.front().empty()) {
        return std::nullopt;
    }
    const double point = std::round((timeSec - PointTime(recording, 0)) / recording.PeriodSec);
    const auto last = static_cast<double>(samples.front().size() - 1);
    const auto index = static_cast<size_t>(std::clamp(point, 0.0, last));
    CursorPoint at{PointTime(recording, index), {}};
    for (const Samples& one : samples) {
        at.Values.push_back(one[index]);
    }
    return at;
}

} // namespace orvane
