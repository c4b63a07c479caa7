#pragma once

/// \file
/// The acquisition of the laboratory's console. Set up and looked at on the host's thread.

#include "console/laboratory/channel_reading.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace orvane::laboratory {

/// A level that a channel crosses.
struct AcquisitionTrigger {
    uint8_t Connector = 0;
    uint8_t Channel = 0;
    const ConnectorNode* Adapter = nullptr;
    bool Rising = true;
    double Level = 0.0;
    uint32_t PreTriggerPoints = 0;
    bool Enabled = false;
};

struct AcquiredChannel {
    uint8_t Connector = 0;
    uint8_t Channel = 0;
    const ConnectorNode* Adapter = nullptr; ///< Its samples are there while it is plugged in.
    ChannelReading Reading;                 ///< As it was when the run started.
};

/// Samples are numbered from the start of the run on; those of a triggered run that are kept begin
/// at First.
struct AcquisitionState {
    std::vector<AcquiredChannel> Channels;
    std::optional<AcquisitionTrigger> Trigger;
    ChannelReading TriggerReading;
    uint32_t PeriodNs = 0; ///< As the console applies it; 0: no set-up.
    uint32_t Total = 0;    ///< Samples to keep of each channel.
    bool Running = false;
    uint64_t Searched = 0;         ///< Samples that the search for the trigger has seen.
    std::optional<uint64_t> First; ///< Nothing while the trigger is waited for.
    uint32_t Points = 0;           ///< Kept at the last look.
};

inline AcquisitionState Acquired;

/// Looks for the trigger in the samples up to this time of the console's clock. Who plugs or pulls
/// an adapter does it before: one that isn't there doesn't trigger.
void LookForTriggerUntil(int64_t ns);

} // namespace orvane::laboratory
