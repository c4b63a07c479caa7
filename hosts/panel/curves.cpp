#include "hosts/panel/curves.h"

#include "hosts/session/translation.h"

#include <algorithm>
#include <cmath>

namespace orvane {

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

Chart ChartOf(const StripChart& chart, const std::vector<ChannelInfo>& shown,
              const LaneView& view) {
    std::vector<double> times = chart.TimesSec;
    for (double& time : times) {
        time -= chart.TimesSec.back();
    }
    StripCurves curves{shown, times, {}};
    for (const ChannelInfo& channel : shown) {
        const auto index = static_cast<size_t>(channel.Index);
        curves.Values.push_back(index < chart.Values.size() ? &chart.Values[index] : nullptr);
    }
    Chart picture = ChartOf(curves, {-StripChart::LengthSec, 0.0}, view);
    picture.XLabel = Translated("Time before now (s)");
    return picture;
}

std::optional<CursorPoint> PointAt(const StripChart& chart, const std::vector<ChannelInfo>& shown,
                                   double timeSec) {
    if (chart.TimesSec.empty()) {
        return std::nullopt;
    }
    const double now = chart.TimesSec.back();
    const auto next = std::ranges::lower_bound(chart.TimesSec, now + timeSec);
    const auto point =
        std::min(static_cast<size_t>(next - chart.TimesSec.begin()), chart.TimesSec.size() - 1);
    CursorPoint at{chart.TimesSec[point] - now, {}};
    for (const ChannelInfo& channel : shown) {
        at.Values.push_back(chart.Values.at(static_cast<size_t>(channel.Index))[point]);
    }
    return at;
}

ShownRun::ShownRun(const DriverExports& driver, const AcquisitionRequest& request,
                   std::vector<ChannelInfo> channels)
    : Channels(std::move(channels)),
      Followed(std::in_place, driver, request, FollowedRun::LongCalls::Background),
      Points(Followed->Points), Trigger(request.Trigger), Live(Channels.size()),
      Fetched(Channels.size()) {}

ShownRun::ShownRun(SamplesFile file)
    : Channels(std::move(file.Channels)), Ended(std::move(file.Recording)),
      Points(Ended.Fetched.front().size()), Notes(std::move(file.Notes)), Live(Channels.size()),
      Fetched(Channels.size()) {
    for (size_t i = 0; i < Channels.size(); ++i) {
        Extend(Fetched[i], Ended.Fetched[i]);
    }
}

size_t Step(ShownRun& run, size_t samples) {
    if (!run.Followed) {
        return 0;
    }
    const size_t read = StepRun(*run.Followed, samples);
    AcquisitionRecording& recording = run.Followed->Recording;
    for (size_t i = 0; i < run.Channels.size(); ++i) {
        Extend(run.Live[i], recording.Live[i]);
        Extend(run.Fetched[i], recording.Fetched[i]);
    }
    if (run.Followed->Now == FollowedRun::Phase::Ended) {
        run.Ended = std::move(recording);
        run.Followed.reset();
    }
    return read;
}

const AcquisitionRecording& RecordingOf(const ShownRun& run) {
    return run.Followed ? run.Followed->Recording : run.Ended;
}

const std::vector<Samples>& SamplesOf(const ShownRun& run) {
    return run.Followed ? run.Followed->Recording.Live : KeptSamples(run.Ended);
}

RunCurves CurvesOf(const ShownRun& run) {
    const bool isFetched = !run.Followed && run.Ended.End == RunEnd::Full;
    return {run.Channels, RecordingOf(run), SamplesOf(run), isFetched ? run.Fetched : run.Live};
}

size_t PointsOf(const ShownRun& run) {
    return SamplesOf(run).front().size();
}

AxisRange WholeTime(const ShownRun& run) {
    return {PointTime(RecordingOf(run), 0), PointTime(RecordingOf(run), run.Points)};
}

std::optional<CursorPoint> PointAt(const ShownRun& run, double timeSec) {
    const AcquisitionRecording& recording = RecordingOf(run);
    const std::vector<Samples>& samples = SamplesOf(run);
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

void ReleaseLive(ShownRun& run) {
    if (!run.Followed && run.Ended.End == RunEnd::Full) {
        run.Ended.Live.assign(run.Channels.size(), {});
        run.Live.assign(run.Channels.size(), {});
    }
}

namespace {

constexpr size_t mostFormerSamples = 20'000'000;

size_t SamplesIn(const ShownRun& run) {
    return PointsOf(run) * run.Channels.size();
}

} // namespace

bool MayStay(const ShownRun& run) {
    return SamplesIn(run) <= mostFormerSamples;
}

void AddFormer(FormerRuns& former, std::shared_ptr<ShownRun> run) {
    constexpr size_t mostRuns = 8;
    ReleaseLive(*run);
    former.insert(former.begin(), std::move(run));
    size_t kept = 0;
    size_t samples = 0;
    while (kept < std::min(former.size(), mostRuns)) {
        samples += SamplesIn(*former[kept]);
        if (samples > mostFormerSamples) {
            break;
        }
        ++kept;
    }
    former.resize(kept);
}

} // namespace orvane
