#include "console/laboratory/channel_reading.h"

#include "console/laboratory/console_clock.h"
#include "console/laboratory/gates.h"

#include <algorithm>
#include <cmath>

namespace orvane::laboratory {

namespace {

constexpr uint8_t presetMode = 2;
constexpr double presetThatDoesNotWait = 1.0;

/// Of samples that aren't of a run. Their noise is numbered by the channel's default period, so
/// that noise which falls with the frequency does so over seconds.
constexpr uint64_t liveStream = 0;

const Adjustment& AdjustmentOf(const ConnectorNode& connector) {
    return connector.Source->Adjusted;
}

double PresetState(const ConnectorNode& connector) {
    const AdjustmentState& adjusted = connector.Adjusted;
    const Adjustment& source = AdjustmentOf(connector);
    const double since = static_cast<double>(NowNs() - adjusted.WrittenNs) * 1e-9;
    const bool ends =
        adjusted.Value == presetThatDoesNotWait || !adjusted.Written || since >= source.PresetTime;
    const double last = std::max(static_cast<double>(source.States.size()) - 1.0, 1.0);
    return ends ? 0.0 : std::clamp(std::round(adjusted.Value), 1.0, last);
}

double MeasuredNow(const ConnectorNode& connector, const ChannelNode& channel) {
    const FunctionNode& function = SelectedFunction(channel);
    const int64_t now = NowNs();
    const int64_t zero = function.Source->Zero == Align::Run ? Laboratory.RunStartNs : 0;
    const uint64_t number = static_cast<uint64_t>(now) / std::max(channel.Desc.PeriodeDefautNs, 1U);
    double value = 0.0;
    ComputeSamples(
        function.Signal, CorrectionOf(connector, channel), Laboratory.Played,
        {.ZeroNs = zero, .FirstNs = now, .StepNs = 0, .FirstNumber = number, .Stream = liveStream},
        {&value, 1});
    return value;
}

} // namespace

Correction CorrectionOf(const ConnectorNode& connector, const ChannelNode& channel) {
    Correction used = channel.Calibrated.Used;
    if (connector.Source->Adjusted.Mode != 0 && connector.Source->Adjusted.Adds) {
        used.Shift += used.Gain * connector.Adjusted.Value;
    }
    return used;
}

ChannelReading ReadingOf(const ConnectorNode& connector, const ChannelNode& channel) {
    const FunctionNode& function = SelectedFunction(channel);
    return {.Signal = function.Signal,
            .Used = CorrectionOf(connector, channel),
            .Zero = function.Source->Zero};
}

double AdjustmentStateOf(const ConnectorNode& connector) {
    const Adjustment& source = AdjustmentOf(connector);
    if (source.Mode == presetMode) {
        return PresetState(connector);
    }
    const size_t states = std::max(source.States.size(), source.Pictures.size());
    const double number = std::round(connector.Adjusted.Value);
    return states > 0 ? std::clamp(number, 0.0, static_cast<double>(states - 1)) : number;
}

void Adjust(ConnectorNode& connector, double value) {
    const Range& limits = AdjustmentOf(connector).Limits;
    connector.Adjusted = {
        .Value = std::clamp(value, limits.Min, limits.Max), .WrittenNs = NowNs(), .Written = true};
    for (ChannelNode& channel : connector.Channels) {
        if (channel.Role == ChannelRole::AdjustmentState) { // Its functions are the pictures.
            const auto last = static_cast<double>(channel.Functions.size() - 1);
            channel.Desc.FonctionCourante =
                static_cast<uint8_t>(std::clamp(AdjustmentStateOf(connector), 0.0, last));
        }
    }
}

double ValueNow(const ConnectorNode& connector, const ChannelNode& channel) {
    const auto number = static_cast<size_t>(&channel - connector.Channels.data());
    switch (channel.Role) {
    case ChannelRole::Measurement:
        return MeasuredNow(connector, channel);
    case ChannelRole::AdjustmentState:
        return AdjustmentStateOf(connector);
    case ChannelRole::Adjustment:
    case ChannelRole::AdjustmentValue:
        return connector.Adjusted.Value;
    case ChannelRole::Gate:
        return GateValue(connector, static_cast<uint8_t>(number));
    case ChannelRole::Output:
        return OutputValue(Laboratory.Played, number, NowNs());
    case ChannelRole::None:
        break;
    }
    return 0.0;
}

} // namespace orvane::laboratory
