// The analog outputs: channels of the console itself that play samples or hold a value.

#include "console/console_port.h"
#include "console/laboratory/acquisition.h"
#include "console/laboratory/console_clock.h"
#include "console/laboratory/laboratory_state.h"
#include "console/laboratory/timeline.h"

#include <algorithm>
#include <cmath>
#include <new>
#include <span>

namespace orvane {

namespace {

using namespace laboratory;

/// The output's index, or the number of outputs if there is none there.
size_t OutputAt(uint8_t connector, uint8_t channel) {
    const size_t outputs = Laboratory.Outputs.size();
    return connector == 0 ? std::min<size_t>(channel, outputs) : outputs;
}

bool IsOutput(size_t output) {
    return output < Laboratory.Outputs.size();
}

/// What the output gives for a value that it was told.
double Given(size_t output, double value) {
    const Range& limits = Loaded->Outputs[output].Limits;
    return std::isnan(value) ? 0.0 : std::clamp(value, limits.Min, limits.Max);
}

/// Forgets what no sample can ask for any more, once there is much of it.
void ForgetOldSignals(size_t output) {
    constexpr size_t many = 256;
    if (Laboratory.Played[output].Segments.size() > many) {
        const bool kept = Acquired.Running || Acquired.Points > 0;
        ForgetBefore(Laboratory.Played, kept ? Laboratory.RunStartNs : NowNs());
    }
}

/// From now on the output gives a constant.
bool Hold(size_t output, double value) {
    try {
        ForgetOldSignals(output);
        AppendConstant(Laboratory.Played, output, NowNs(), value);
    } catch (const std::bad_alloc&) {
        return false;
    }
    return true;
}

} // namespace

} // namespace orvane

using namespace orvane;

bool OVDacStop(uint8_t connector, uint8_t channel) {
    FireDueEvents();
    const size_t output = OutputAt(connector, channel);
    return IsOutput(output) && Hold(output, OutputValue(Laboratory.Played, output, NowNs()));
}

bool OVDacClear(uint8_t connector, uint8_t channel) {
    FireDueEvents();
    const size_t output = OutputAt(connector, channel);
    if (!IsOutput(output)) {
        return false;
    }
    Laboratory.Outputs[output] = {};
    return true;
}

bool OVDacConfig(uint8_t connector, uint8_t channel, uint32_t dt, int32_t count, int oneShot) {
    FireDueEvents();
    const size_t output = OutputAt(connector, channel);
    if (!IsOutput(output) || count <= 0) {
        return false;
    }
    OutputSetup& setup = Laboratory.Outputs[output];
    const double shortestNs = Loaded->Outputs[output].Period * 1e9;
    setup.PeriodNs = std::max(dt, static_cast<uint32_t>(std::llround(shortestNs)));
    setup.Count = count;
    setup.Loop = oneShot == 0;
    return true;
}

bool OVDacLoad(uint8_t connector, uint8_t channel, const double* values, int32_t count) {
    FireDueEvents();
    const size_t output = OutputAt(connector, channel);
    if (!IsOutput(output) || count != Laboratory.Outputs[output].Count || count <= 0) {
        return false;
    }
    try {
        std::vector<double> given;
        given.reserve(static_cast<size_t>(count));
        for (const double value : std::span(values, static_cast<size_t>(count))) {
            given.push_back(Given(output, value));
        }
        Laboratory.Outputs[output].Values = std::move(given);
    } catch (const std::bad_alloc&) {
        return false;
    }
    return true;
}

bool OVDacStart(uint8_t connector, uint8_t channel) {
    FireDueEvents();
    const size_t output = OutputAt(connector, channel);
    if (!IsOutput(output) || Laboratory.Outputs[output].Values.empty()) {
        return false;
    }
    const OutputSetup& setup = Laboratory.Outputs[output];
    try {
        ForgetOldSignals(output);
        AppendWaveform(Laboratory.Played, output, NowNs(), setup.PeriodNs, setup.Values,
                       setup.Loop);
    } catch (const std::bad_alloc&) {
        return false;
    }
    return true;
}

bool OVDacWrite(uint8_t connector, uint8_t channel, double value) {
    FireDueEvents();
    const size_t output = OutputAt(connector, channel);
    return IsOutput(output) && Hold(output, Given(output, value));
}
