#pragma once

#include "hosts/session/channel_info.h"

#include <string>
#include <vector>

namespace orvane {

/// Throws HostError if something else than a folder is there.
void CheckPictureFolder(const std::string& folder);

/// Saves the pictures that the channels have as PNG files in a folder, which the first one makes if
/// need be: "channel0.png" for the selected function, "channel0-state.png" for the adjustment's
/// state. Tells on standard output which ones there are. Throws HostError if one cannot be written.
void SavePictures(const DriverExports& driver, const std::vector<ChannelInfo>& channels,
                  const std::string& folder);

} // namespace orvane
