#pragma once

/// \file
/// The mounted volumes of the machine with their labels.

#include <wx/string.h>

#include <string>
#include <string_view>
#include <vector>

namespace platform {

struct MountedVolume {
    wxString MountPoint; ///< Folder under which the volume is mounted.
    wxString Label;      ///< Label of its file system.
};

/// The volumes that have a label, ordered by mount point. Empty where the machine tells none.
std::vector<MountedVolume> MountedVolumes();

/// A label as the device manager writes it in a file name, with its \xNN escapes undone.
std::string DecodedLabel(std::string_view fileName);

} // namespace platform
