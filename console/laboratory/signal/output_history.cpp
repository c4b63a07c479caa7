// The low pass with time constant T follows T dy/dt = v - y. While v is held, y approaches it by
// exp(-t/T); so over a loop the settled values at the start of each sample follow from one another,
// and wherever the output stood before, the difference from the settled course dies away as
// exp(-t/T) on its own.

#include "console/laboratory/signal/output_history.h"

#include "console/laboratory/signal/elementary.h"
#include "console/laboratory/signal/instants.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>
#include <optional>

namespace orvane::laboratory {

namespace {

constexpr double secondsPerNs = 1e-9;
constexpr double settledAfter = 40.0; // time constants: then 4e-18 of a difference is left
constexpr int64_t always = std::numeric_limits<int64_t>::min();

/// A time that isn't negative, as far as 64 bits reach.
int64_t Nanoseconds(double seconds) {
    constexpr double most = 0x1p62;
    return static_cast<int64_t>(std::min(seconds / secondsPerNs + 0.5, most));
}

/// What a low pass gives at the start of each value once it has settled.
std::vector<double> SettledValues(const std::vector<double>& values, int64_t periodNs,
                                  double timeConstant) {
    const double step = static_cast<double>(periodNs) * secondsPerNs / timeConstant;
    const double stays = Exponential(-step);
    const double comes = -ExponentialMinusOne(-step);
    double fromZero = 0.0;
    for (const double value : values) {
        fromZero = fromZero * stays + value * comes;
    }
    std::vector<double> settled;
    settled.reserve(values.size());
    double y = fromZero / -ExponentialMinusOne(-step * static_cast<double>(values.size()));
    for (const double value : values) {
        settled.push_back(y);
        y = y * stays + value * comes;
    }
    return settled;
}

/// A place within a segment.
struct Position {
    size_t Index;   ///< Of the value that is played.
    double SinceNs; ///< Start of that value.
};

Position PositionAt(const Waveform& played, int64_t elapsedNs) {
    const size_t count = played.Values.size();
    if (count == 1) {
        return {0, 0.0};
    }
    const auto elapsed = static_cast<uint64_t>(elapsedNs);
    const auto period = static_cast<uint64_t>(played.PeriodNs);
    const uint64_t number = elapsed / period;
    return {number % count, static_cast<double>(elapsed - number * period)};
}

/// Time since the start of a segment; none before it.
int64_t ElapsedNs(const OutputSegment& segment, int64_t ns) {
    return std::max<int64_t>(Minus(ns, segment.StartNs), 0);
}

/// What a segment gives as it is.
double PlayedAt(const OutputSegment& segment, int64_t ns) {
    const Waveform& played = *segment.Played;
    return played.Values[PositionAt(played, ElapsedNs(segment, ns)).Index];
}

/// What it gives through a low pass.
double FilteredAt(const OutputSegment& segment, size_t filter, double timeConstant, int64_t ns) {
    const Waveform& played = *segment.Played;
    const double* const settled = played.Settled[filter].data();
    const double perNs = -secondsPerNs / timeConstant;
    const int64_t elapsed = ElapsedNs(segment, ns);
    const Position position = PositionAt(played, elapsed);
    const double value = played.Values[position.Index];
    double y = value + (settled[position.Index] - value) * Exponential(position.SinceNs * perNs);
    const double passed = static_cast<double>(elapsed) * perNs;
    if (passed > -settledAfter) {
        y += (segment.Stood[filter] - settled[0]) * Exponential(passed);
    }
    return y;
}

/// What a segment gives through this filter, or without one as it is.
double ValueOf(const OutputSegment& segment, std::optional<size_t> filter, double timeConstant,
               int64_t ns) {
    return filter ? FilteredAt(segment, *filter, timeConstant, ns) : PlayedAt(segment, ns);
}

/// Which of the time constants is the term's.
std::optional<size_t> FilterOf(const OutputHistory& history, const OutputTerm& term) {
    const auto found = std::ranges::find(history.TimeConstants, term.LowPass);
    if (found == history.TimeConstants.end()) {
        return std::nullopt;
    }
    return static_cast<size_t>(found - history.TimeConstants.begin());
}

/// The segment that is played then, or the first.
const OutputSegment& SegmentAt(const OutputHistory& history, int64_t ns) {
    const auto after = std::ranges::upper_bound(history.Segments, ns, {}, &OutputSegment::StartNs);
    return after == history.Segments.begin() ? *after : *std::prev(after);
}

/// \param before what was played until then; null: nothing
OutputSegment MakeSegment(const OutputHistory& history, const OutputSegment* before, int64_t atNs,
                          int64_t periodNs, std::vector<double> values) {
    auto played = std::make_shared<Waveform>();
    played->PeriodNs = periodNs;
    OutputSegment segment{.StartNs = atNs, .Played = {}, .Stood = {}};
    for (size_t i = 0; i < history.TimeConstants.size(); ++i) {
        const double timeConstant = history.TimeConstants[i];
        played->Settled.push_back(SettledValues(values, periodNs, timeConstant));
        segment.Stood.push_back(before == nullptr ? values.front()
                                                  : FilteredAt(*before, i, timeConstant, atNs));
    }
    played->Values = std::move(values);
    segment.Played = std::move(played);
    return segment;
}

/// Puts segments in the place of all that start when the first of them does or later.
void Append(OutputHistory& history, std::span<OutputSegment> segments) {
    std::vector<OutputSegment>& all = history.Segments;
    const auto later =
        std::ranges::lower_bound(all, segments.front().StartNs, {}, &OutputSegment::StartNs);
    const auto from = std::distance(all.begin(), later);
    const auto to = std::ssize(all);
    all.insert(all.end(), std::move_iterator(segments.begin()), std::move_iterator(segments.end()));
    all.erase(all.begin() + from, all.begin() + to);
}

/// Takes what a term needs of its output into the history.
void Prepare(OutputHistory& history, const OutputTerm& term) {
    history.LongestDelayNs = std::max(history.LongestDelayNs, Nanoseconds(term.Delay));
    if (term.LowPass > 0.0 &&
        std::ranges::find(history.TimeConstants, term.LowPass) == history.TimeConstants.end()) {
        history.TimeConstants.push_back(term.LowPass);
    }
}

void PrepareOutputs(OutputHistories& outputs, const Channel& channel) {
    for (const Function& function : channel.Functions) {
        for (const Term& term : function.Signal) {
            if (const auto* loopback = std::get_if<OutputTerm>(&term)) {
                Prepare(outputs[loopback->Output], *loopback);
            }
        }
    }
}

} // namespace

OutputHistories MakeOutputHistories(const Scenario& scenario) {
    OutputHistories outputs(scenario.Outputs.size());
    for (const Adapter& adapter : scenario.Adapters) {
        for (const Channel& channel : adapter.Channels) {
            PrepareOutputs(outputs, channel);
        }
    }
    for (size_t i = 0; i < outputs.size(); ++i) {
        const Range& limits = scenario.Outputs[i].Limits;
        AppendConstant(outputs, i, always, std::clamp(0.0, limits.Min, limits.Max));
    }
    return outputs;
}

void AppendConstant(OutputHistories& outputs, size_t output, int64_t atNs, double value) {
    AppendWaveform(outputs, output, atNs, 1, {value}, true);
}

void AppendWaveform(OutputHistories& outputs, size_t output, int64_t atNs, int64_t periodNs,
                    std::vector<double> values, bool loop) {
    if (values.empty()) {
        return;
    }
    const double last = values.back();
    if (periodNs < 1) {
        AppendConstant(outputs, output, atNs, last);
        return;
    }
    OutputHistory& history = outputs[output];
    const OutputSegment* before = history.Segments.empty() ? nullptr : &SegmentAt(history, atNs);
    const SampleGrid periods{.ZeroNs = 0, .FirstNs = atNs, .StepNs = periodNs};
    const int64_t end = TimeOf(periods, values.size());
    std::vector<OutputSegment> segments;
    segments.push_back(MakeSegment(history, before, atNs, periodNs, std::move(values)));
    if (!loop) {
        segments.push_back(MakeSegment(history, &segments.front(), end, 1, {last}));
    }
    Append(history, segments);
}

void ForgetBefore(OutputHistories& outputs, int64_t ns) {
    for (OutputHistory& history : outputs) {
        const OutputSegment& needed = SegmentAt(history, Minus(ns, history.LongestDelayNs));
        history.Segments.erase(history.Segments.begin(),
                               history.Segments.begin() + (&needed - history.Segments.data()));
    }
}

double OutputValue(const OutputHistories& outputs, size_t output, int64_t ns) {
    return PlayedAt(SegmentAt(outputs[output], ns), ns);
}

double LoopedBack(const OutputHistory& history, const OutputTerm& term, int64_t clockNs) {
    const int64_t ns = Minus(clockNs, Nanoseconds(term.Delay));
    return term.Gain * ValueOf(SegmentAt(history, ns), FilterOf(history, term), term.LowPass, ns);
}

void AddLoopedBack(const OutputHistory& history, const OutputTerm& term,
                   std::span<const int64_t> clockNs, std::span<double> samples) {
    const int64_t delay = Nanoseconds(term.Delay);
    const std::optional<size_t> filter = FilterOf(history, term);
    for (size_t i = 0; i < samples.size(); ++i) {
        const int64_t ns = Minus(clockNs[i], delay);
        samples[i] += term.Gain * ValueOf(SegmentAt(history, ns), filter, term.LowPass, ns);
    }
}

} // namespace orvane::laboratory
