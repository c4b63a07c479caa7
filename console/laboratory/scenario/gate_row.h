#pragma once

/// \file
/// The gates of an adapter, as channels and as positions.

#include "console/laboratory/scenario/scenario.h"

namespace orvane::laboratory {

/// The channels of an adapter's gates, in the order of the row that all gates make.
constexpr std::array<uint8_t, 4> gateChannels{3, 4, 6, 7};

/// Where the gates of these channels lie, in m below the card's lower edge at the release. Nothing
/// where the card never comes to: the second of the door's pair, and a fork that isn't said.
std::array<std::optional<double>, gateChannels.size()> GatePositions(const Adapter& gates);

/// A gate of the row that all plugged adapters make.
struct RowGate {
    uint8_t Connector = 0;
    uint8_t Channel = 0;
    std::optional<double> Position;
};

/// The door, then the gates of the forks. Empty without gates.
std::vector<RowGate> GateRow(const Scenario& scenario);

} // namespace orvane::laboratory
