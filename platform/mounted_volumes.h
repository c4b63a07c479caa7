#pragma once

/// \file
/// The mounted volumes of the machine with their labels.

#include <string>
#include <string_view>
#include <vector>

namespace orvane::platform {

/// Both texts are the bytes that the system gives, which are normally UTF-8.
struct MountedVolume {
    std::string MountPoint; ///< Folder under which the volume is mounted.
    std::string Label;      ///< Label of its file system.
};

/// The volumes that have a label, ordered by mount point. Empty if the machine reports none.
/// \param labelFolder holds links from labels to devices
std::vector<MountedVolume> MountedVolumes(const char* labelFolder = "/dev/disk/by-label",
                                          const char* mountTable = "/proc/self/mounts");

/// A label as the device manager writes it in a file name, with its \xNN escapes undone.
std::string DecodedLabel(std::string_view fileName);

} // namespace orvane::platform
