#pragma once

#include "hosts/session/channel_info.h"

#include <string>
#include <vector>

namespace orvane {

/// Throws HostError if the path exists and is not a folder.
void CheckPictureFolder(const std::string& folder);

/// Saves the pictures of the channels as PNG files in a folder, which is created if needed:
/// "channel0.png" for the selected function, "channel0-state.png" for the adjustment's state. Lists
/// the files on standard output. Throws HostError if one cannot be written.
void SavePictures(const DriverExports& driver, const std::vector<ChannelInfo>& channels,
                  const std::string& folder);

} // namespace orvane
