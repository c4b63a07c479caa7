#pragma once

#include "hosts/plot/chart.h"
#include "hosts/session/channel_info.h"
#include "hosts/session/recent_readings.h"

namespace orvane {

/// The last readings of a channel over the time before now, with a dot at the last one.
Chart PictureOf(const RecentReadings& readings, const ChannelInfo& channel);

} // namespace orvane
