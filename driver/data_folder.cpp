#include "driver/data_folder.h"

#include <wx/filename.h>
#include <wx/log.h>
#include <wx/stdpaths.h>

#include <algorithm>
#include <array>
#include <cstring>

namespace {

constexpr std::array dataLabels{L"Ma Pelore", L"Ma Vinoxe", L"BriseLink"};

bool IsDataLabel(const wxString& label) {
    return std::ranges::any_of(dataLabels,
                               [&](const wchar_t* known) { return label.IsSameAs(known, false); });
}

wxString WithSeparator(const wxString& folder) {
    return folder.empty() || wxFileName::IsPathSeparator(folder.Last())
               ? folder
               : folder + wxFileName::GetPathSeparator();
}

} // namespace

wxString FolderOnDataVolume(std::span<const platform::MountedVolume> volumes) {
    const auto volume = std::ranges::find_if(volumes, IsDataLabel, &platform::MountedVolume::Label);
    return volume == volumes.end()
               ? wxString()
               : WithSeparator(WithSeparator(volume->MountPoint) + "taveladata");
}

void FindDataFolder(char* folder, uint32_t capacity) {
    // A folder that can't be made is no news for the user: the toolkit's log keeps still.
    const wxLogNull quiet;
    wxString path = FolderOnDataVolume(platform::MountedVolumes());
    if (path.empty()) {
        path = WithSeparator(wxStandardPaths::Get().GetUserConfigDir());
    }
    path += "cache";
    if (!wxDirExists(path)) {
        wxFileName::Mkdir(path, 0777, wxPATH_MKDIR_FULL);
    }
    const wxCharBuffer ascii = path.ToAscii();
    if (ascii.length() < capacity) {
        std::memcpy(folder, ascii.data(), ascii.length() + 1);
    } else if (capacity > 0) {
        folder[0] = '\0';
    }
}
