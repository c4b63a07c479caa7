#pragma once

/// \file
/// The console's records as a tree, made of a scenario: connectors, channels, functions, calibres,
/// with what each channel measures.

#include "console/console_records.h"
#include "console/laboratory/calibration.h"
#include "console/laboratory/scenario/scenario.h"
#include "console/laboratory/signal/signal.h"

#include <vector>

namespace orvane::laboratory {

/// What a channel is for.
enum class ChannelRole {
    Measurement,
    Gate,            ///< Of a card that falls. No input of the driver.
    Output,          ///< Of the console itself.
    Adjustment,      ///< Takes the value.
    AdjustmentState, ///< Tells the state.
    AdjustmentValue, ///< Gives the value back.
    None,            ///< There is no such channel, but there are some with higher numbers.
};

struct FunctionNode {
    tFunctionDesc Desc{};
    std::vector<tCalibreDesc> Calibres;
    const Function* Source = nullptr; ///< In the scenario; null where nothing is measured.
    Picture Image;
    PreparedSignal Signal; ///< In the selected calibre.
};

struct ChannelNode {
    tChannelDesc Desc{};
    std::string Text; ///< Its text block.
    ChannelRole Role = ChannelRole::Measurement;
    std::vector<FunctionNode> Functions;
    Calibration Calibrated;
    uint32_t Key = 0;      ///< Tells its noise apart.
    bool Breathed = false; ///< The flow of a turbine.
};

/// The adjustment of an adapter: the last value that was written, and when.
struct AdjustmentState {
    double Value = 0.0;
    int64_t WrittenNs = 0;
    bool Written = false;
};

struct ConnectorNode {
    tAdapterDesc Desc{};
    std::vector<ChannelNode> Channels;
    const Adapter* Source = nullptr; ///< Null: the console itself.
    AdjustmentState Adjusted;
};

/// The records of the console itself, then those of each adapter of the scenario, plugged in or
/// not. The scenario outlives them.
std::vector<ConnectorNode> BuildConnectors(const Scenario& scenario);

/// Makes the signal of the channel's selected function and calibre ready.
void PrepareSelection(const Scenario& scenario, ChannelNode& channel);

/// The selected function of a channel.
inline FunctionNode& SelectedFunction(ChannelNode& channel) {
    return channel.Functions[channel.Desc.FonctionCourante];
}
inline const FunctionNode& SelectedFunction(const ChannelNode& channel) {
    return channel.Functions[channel.Desc.FonctionCourante];
}

} // namespace orvane::laboratory
