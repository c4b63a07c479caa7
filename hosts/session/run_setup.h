#pragma once

#include "driver_loader.h"

#include <cstddef>
#include <cstdint>

namespace orvane {

/// A run selects its channels by a mask of 32 bits.
constexpr size_t MostChannelsOfRun = 32;

/// The bit of an input channel in that mask.
constexpr uint32_t ChannelBit(int channel) {
    return 1U << static_cast<unsigned>(channel);
}

/// InitAcqBuff, but always a full set-up: the console's clock restarts and the channels are copied
/// with their current settings, even if the request is that of the run before.
/// \return the period that the console applies in seconds, or 0.0 after a message if it refused
double SetUpRun(const DriverExports& driver, double periodSec, int32_t points, uint32_t mask,
                bool preTrigger);

} // namespace orvane
