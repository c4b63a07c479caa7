#pragma once

/// \file
/// What is plugged into the connectors.

#include "console/laboratory/record_tree.h"

#include <array>
#include <atomic>

namespace orvane::laboratory {

constexpr uint8_t connectorCount = 5; ///< The console itself and four sockets.

/// The records of what is plugged into each connector; null: nothing, or the console is not open.
/// Written on the host's thread; a measuring thread reads it meanwhile. The records of an adapter
/// that is pulled stay, with its settings, until the console is released.
inline std::array<std::atomic<ConnectorNode*>, connectorCount> Plugged{};

/// Plugs in the console itself, and what is plugged in at the start.
/// \param connectors of BuildConnectors; they stay where they are
void PlugInAll(std::vector<ConnectorNode>& connectors);

void PullAll();

/// \name The record of an index; null where there is none
/// @{
ConnectorNode* ConnectorAt(uint8_t connector);
ChannelNode* ChannelOf(ConnectorNode* connector, uint8_t channel);
ChannelNode* ChannelAt(uint8_t connector, uint8_t channel);
FunctionNode* FunctionAt(uint8_t connector, uint8_t channel, uint8_t function);
/// @}

} // namespace orvane::laboratory
