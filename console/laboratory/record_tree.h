#pragma once

/// \file
/// The console's records as a tree, made of a scenario: connectors, channels, functions, calibres,
/// with what each channel measures.

#include "console/console_records.h"
#include "console/laboratory/calibration.h"
#include "console/laboratory/scenario/scenario.h"
#include "console/laboratory/signal/signal.h"

#include <array>
#include <vector>

namespace orvane::laboratory {

/// What a channel is for.
enum class ChannelRole {
    Measurement,
    Output,          ///< Of the console itself.
    Adjustment,      ///< Takes the value.
    AdjustmentState, ///< Tells the state.
    AdjustmentValue, ///< Gives the value back.
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
    uint32_t Key = 0; ///< Tells its noise apart.
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
    const Adapter* Source = nullptr; ///< Null: the console itself, or nothing is plugged in.
    AdjustmentState Adjusted;
};

constexpr size_t connectorCount = 5; ///< The console itself and four sockets.

struct RecordTree {
    std::array<ConnectorNode, connectorCount> Connectors;
};

/// The records of a scenario's console with what is plugged in at the start.
RecordTree BuildTree(const Scenario& scenario);

/// The records of one adapter. The scenario outlives them.
ConnectorNode BuildConnector(const Scenario& scenario, const Adapter& adapter);

/// Makes the signal of the channel's selected function and calibre ready.
void PrepareSelection(const Scenario& scenario, ChannelNode& channel);

/// \name The node of an index; null where there is none
/// @{
ConnectorNode* ConnectorAt(RecordTree& tree, uint8_t connector);
ChannelNode* ChannelAt(RecordTree& tree, uint8_t connector, uint8_t channel);
FunctionNode* FunctionAt(RecordTree& tree, uint8_t connector, uint8_t channel, uint8_t function);
/// @}

/// The selected function of a channel.
inline FunctionNode& SelectedFunction(ChannelNode& channel) {
    return channel.Functions[channel.Desc.FonctionCourante];
}
inline const FunctionNode& SelectedFunction(const ChannelNode& channel) {
    return channel.Functions[channel.Desc.FonctionCourante];
}

} // namespace orvane::laboratory
