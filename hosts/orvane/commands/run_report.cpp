#include "hosts/orvane/commands/run_report.h"

#include "hosts/orvane/terminal/standard_output.h"
#include "hosts/session/number_text.h"
#include "hosts/session/sample_series.h"

#include <algorithm>
#include <cmath>

namespace orvane {

std::string SummaryTable(const std::vector<ChannelInfo>& channels,
                         const std::vector<Samples>& samples, int descriptor) {
    TextRows rows;
    for (size_t i = 0; i < channels.size(); ++i) {
        const SeriesSummary summary = Summarise(samples[i]);
        rows.push_back({std::to_string(channels[i].Index), channels[i].Name, channels[i].Unit,
                        std::to_string(summary.Count), NumberText(summary.Min),
                        NumberText(summary.Mean), NumberText(summary.Max)});
    }
    return FormatTable({{"Index", true},
                        {"Name"},
                        {"Unit"},
                        {"Count", true},
                        {"Min", true},
                        {"Mean", true},
                        {"Max", true}},
                       rows, TerminalColumns(descriptor));
}

std::string MissedTrigger(const std::optional<AcquisitionTrigger>& trigger,
                          const std::vector<ChannelInfo>& channels,
                          const AcquisitionRecording& recording,
                          const std::vector<Samples>& samples) {
    constexpr double noise = 0.01; // of the range
    const auto channel =
        std::ranges::find(channels, trigger ? trigger->Channel : -1, &ChannelInfo::Index);
    const size_t zero = recording.PreTriggerPoints;
    if (channel == channels.end() || samples.front().size() <= zero) {
        return "";
    }
    const Samples& values = samples[static_cast<size_t>(channel - channels.begin())];
    if (BeginsAtTrigger(*trigger, values, zero, noise * std::abs(channel->Max - channel->Min))) {
        return "";
    }
    const std::string before =
        zero > 0 ? "goes from " + NumberText(values[zero - 1]) + " to " : "is at ";
    return "channel " + std::to_string(channel->Index) + " " + before + NumberText(values[zero]) +
           " and does not " + (trigger->Rising ? "rise" : "fall") + " through " +
           NumberText(trigger->Level);
}

} // namespace orvane
