#pragma once

/// \file
/// The gates of the laboratory's console, and the runs of a card that falls through them. On the
/// host's thread.

#include "console/laboratory/connectors.h"
#include "console/laboratory/scenario/gate_row.h"

#include <array>
#include <bitset>
#include <cstdint>

namespace orvane::laboratory {

constexpr size_t mostGates = size_t{connectorCount} * gateChannels.size();

/// The card's lower edge comes to a gate.
struct Crossing {
    int64_t TimeNs = 0; ///< Since the start of the run.
    const ConnectorNode* Gates = nullptr;
    bool Door = false;
};

/// What the next run is to time. A run takes it.
struct GateSetup {
    std::bitset<mostGates> Armed;
    uint32_t LogLength = 0;
};

/// The log of a run is its crossings so far.
struct GateRun {
    std::array<Crossing, mostGates> Crossings{}; ///< In the order of the log.
    size_t Count = 0;
    size_t Logged = 0;
    uint32_t LogLength = 0; ///< Entries that are waited for.
    int64_t StartNs = 0;
    bool Running = false;
};

struct GateState {
    GateSetup Next;
    GateRun Run; ///< The last one.
};

inline GateState Gates;

/// Has the next run log when the card comes to the gate of this channel.
void ArmGate(uint8_t connector, uint8_t channel);

/// Whether the next run is one over gates.
bool IsGateRunNext();

/// Starts a run over the gates that are armed; the one after it begins without any.
void StartGateRun();

/// Ends a run, and disarms the gates. The log stays.
void StopGateRun();

/// Logs what has been crossed up to this time of the console's clock. Who pulls an adapter says it
/// before: an adapter that isn't there doesn't tell of crossings.
void LogCrossings(int64_t untilNs);

/// What a gate reads now: 1 while the card is in it, of the door from when it is opened; else 0.
/// Between runs the card lies at the top.
double GateValue(const ConnectorNode& connector, uint8_t channel);

} // namespace orvane::laboratory
