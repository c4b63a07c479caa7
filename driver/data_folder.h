#pragma once

/// \file
/// The folder in which the console may keep its cache.
///
/// Paths are the bytes of the environment and of the mount table: they don't depend on the locale
/// of the process, which a host may never set.

#include "platform/mounted_volumes.h"

#include <cstdint>
#include <filesystem>
#include <span>

namespace orvane {

/// Finds the folder and creates it with its missing parents: "taveladata/cache" on the first
/// mounted data volume, otherwise "cache" under the user's configuration folder. A folder that
/// cannot be created is not reported.
/// \param[out] folder the folder as ASCII, "_" in place of any other character, no separator at
///             its end; empty if it does not fit
/// \param capacity bytes of `folder`, terminator included
void FindDataFolder(char* folder, uint32_t capacity);

/// The folder of the driver's data on the first volume that carries one of the data labels; empty
/// if no volume does. A volume whose mount point isn't UTF-8 is left out.
std::filesystem::path FolderOnDataVolume(std::span<const platform::MountedVolume> volumes);

} // namespace orvane
