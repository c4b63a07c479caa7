#include "hosts/panel/curves.h"

#include "hosts/plot/run_picture.h"
#include "hosts/session/translation.h"

#include <algorithm>
#include <cmath>

namespace orvane {

namespace {

// A picture of many panels has fewer points in each, so that all take the time of one.
constexpr size_t leastSteps = 100;

} // namespace

void Append(RunningCurve& curve, double timeSec, const std::vector<double>& values) {
    curve.Values.resize(values.size());
    curve.TimesSec.push_back(timeSec);
    for (size_t i = 0; i < values.size(); ++i) {
        curve.Values[i].push_back(values[i]);
    }
    const auto old = std::ranges::lower_bound(curve.TimesSec, timeSec - RunningCurve::LengthSec) -
                     curve.TimesSec.begin();
    curve.TimesSec.erase(curve.TimesSec.begin(), curve.TimesSec.begin() + old);
    for (Samples& one : curve.Values) {
        one.erase(one.begin(), one.begin() + old);
    }
}

PlotPicture PictureOf(const RunningCurve& curve, const std::vector<ChannelInfo>& channels,
                      const std::vector<int>& shown) {
    PlotPicture picture;
    picture.TimeSec = {-RunningCurve::LengthSec, 0.0};
    picture.TimeLabel = Translated("Time before now (s)");
    std::vector<double> times = curve.TimesSec;
    for (double& time : times) {
        time -= curve.TimesSec.back();
    }
    for (const int channel : shown) {
        const auto index = static_cast<size_t>(channel);
        PlotPanel panel = EmptyPanel(channels[index]);
        if (index < curve.Values.size()) {
            panel.Curve = {times, curve.Values[index]};
        }
        picture.Panels.push_back(std::move(panel));
    }
    return picture;
}

std::optional<CursorPoint> PointAt(const RunningCurve& curve, const std::vector<int>& shown,
                                   double timeSec) {
    if (curve.TimesSec.empty()) {
        return std::nullopt;
    }
    const double now = curve.TimesSec.back();
    const auto next = std::ranges::lower_bound(curve.TimesSec, now + timeSec);
    const auto point =
        std::min(static_cast<size_t>(next - curve.TimesSec.begin()), curve.TimesSec.size() - 1);
    CursorPoint at{curve.TimesSec[point] - now, {}};
    for (const int channel : shown) {
        at.Values.push_back(curve.Values[static_cast<size_t>(channel)][point]);
    }
    return at;
}

size_t Step(ShownRun& run, size_t samples) {
    const size_t read = StepRun(run.Run, samples);
    for (size_t i = 0; i < run.Channels.size(); ++i) {
        Extend(run.Live[i], run.Run.Recording.Live[i]);
        Extend(run.Fetched[i], run.Run.Recording.Fetched[i]);
    }
    return read;
}

PlotRange WholeTime(const ShownRun& run) {
    return {PointTime(run.Run.Recording, 0), PointTime(run.Run.Recording, run.Run.Points)};
}

PlotPicture PictureOf(const ShownRun& run, std::optional<PlotRange> zoom, size_t steps) {
    PlotPicture picture =
        PictureOf({run.Channels, run.Run.Recording, run.Live, run.Fetched},
                  zoom.value_or(WholeTime(run)), std::max(steps / run.Channels.size(), leastSteps));
    picture.TimeLabel = Translated("Time (s)");
    picture.DotsLegend = "• " + Translated("live");
    picture.CurveLegend = "— " + Translated("read back");
    return picture;
}

std::optional<CursorPoint> PointAt(const ShownRun& run, double timeSec) {
    const AcquisitionRecording& recording = run.Run.Recording;
    const std::vector<Samples>& samples = KeptSamples(recording);
    // The samples read back come in while the live ones are all there.
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
