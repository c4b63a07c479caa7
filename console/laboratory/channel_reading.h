#pragma once

/// \file
/// What the channels of the tree measure.

#include "console/laboratory/laboratory_state.h"

namespace orvane::laboratory {

/// All that the samples of a channel depend on beside time. What the host selects, adjusts or
/// calibrates afterwards doesn't reach it.
struct ChannelReading {
    PreparedSignal Signal;
    Correction Used;
    Align Zero = Align::Clock;
};

/// The calibration of a measuring channel, with its adapter's adjustment.
Correction CorrectionOf(const ConnectorNode& connector, const ChannelNode& channel);

/// How a measuring channel reads now.
ChannelReading ReadingOf(const ConnectorNode& connector, const ChannelNode& channel);

/// The value of a channel now, whatever its role.
double ValueNow(const ConnectorNode& connector, const ChannelNode& channel);

/// \name The adjustment of an adapter
/// @{

/// What its state channel tells.
double AdjustmentStateOf(const ConnectorNode& connector);
/// Takes a value, held within its limits.
void Adjust(ConnectorNode& connector, double value);
/// @}

} // namespace orvane::laboratory
