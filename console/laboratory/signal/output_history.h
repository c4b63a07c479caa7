#pragma once

/// \file
/// What the analog outputs have played, so that it can be looped back at any time since: as it is,
/// or through a first-order low pass (an RC circuit). The low pass is exact, its state is carried
/// over from one signal to the next.

#include "console/laboratory/scenario/scenario.h"

#include <cstdint>
#include <memory>
#include <span>
#include <vector>

namespace orvane::laboratory {

/// Values that an output plays one after the other, again and again.
struct Waveform {
    int64_t PeriodNs = 1; ///< Each is held so long.
    std::vector<double> Values;
    /// For each time constant of the history: what the low pass gives at the start of each value
    /// once it has settled.
    std::vector<std::vector<double>> Settled;
};

/// A waveform from a time on.
struct OutputSegment {
    int64_t StartNs = 0;
    std::shared_ptr<const Waveform> Played;
    std::vector<double> Stood; ///< For each time constant: where the low pass stood at the start.
};

/// One output. Copies are cheap and share their waveforms.
struct OutputHistory {
    std::vector<double> TimeConstants;   ///< Those by which the scenario's terms filter it; s.
    int64_t LongestDelayNs = 0;          ///< With which a term looks back at it.
    std::vector<OutputSegment> Segments; ///< In the order of time; the first stood ever before.
};

using OutputHistories = std::vector<OutputHistory>; ///< By the number of the output.

/// The outputs of a scenario, which have given 0 so far, or the nearest value that they can give.
OutputHistories MakeOutputHistories(const Scenario& scenario);

/// \name What an output gives from a time on, in place of anything said before for then
/// Throws std::bad_alloc, and has changed nothing then.
/// @{
void AppendConstant(OutputHistories& outputs, size_t output, int64_t atNs, double value);

/// Holds each value for `periodNs`, in a loop, or once, after which the last one stays. A period
/// below 1 gives the last value at once; without values nothing changes.
void AppendWaveform(OutputHistories& outputs, size_t output, int64_t atNs, int64_t periodNs,
                    std::vector<double> values, bool loop);
/// @}

/// Forgets what no term needs for a time from `ns` on.
void ForgetBefore(OutputHistories& outputs, int64_t ns);

/// What an output gives.
double OutputValue(const OutputHistories& outputs, size_t output, int64_t ns);

/// What a term makes of an output.
double LoopedBack(const OutputHistory& history, const OutputTerm& term, int64_t clockNs);

/// Adds it to samples; their times come in order.
void AddLoopedBack(const OutputHistory& history, const OutputTerm& term,
                   std::span<const int64_t> clockNs, std::span<double> samples);

} // namespace orvane::laboratory
