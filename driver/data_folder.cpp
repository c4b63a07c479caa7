#include "driver/data_folder.h"

#include "platform/text.h"

#include <wx/app.h>
#include <wx/stdpaths.h>
#include <wx/utils.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <string>
#include <system_error>

namespace orvane {

namespace fs = std::filesystem;

namespace {

constexpr std::array dataLabels{"Ma Pelore", "Ma Vinoxe", "BriseLink"};

bool IsDataVolume(const platform::MountedVolume& volume) {
    return platform::IsUtf8(volume.MountPoint) &&
           std::ranges::any_of(dataLabels, [&](const char* known) {
               return platform::EqualsIgnoringCase(volume.Label, known);
           });
}

fs::path HomeFolder() {
    const char* home = std::getenv("HOME");
    if (home == nullptr) {
        return wxGetUserHome().utf8_string();
    }
    return *home == '\0' ? "/" : home;
}

/// The folder that the toolkit's GetUserConfigDir stands for. The toolkit itself decodes the
/// environment in the encoding of the locale, and takes another folder if that fails.
fs::path UserConfigFolder() {
    const bool xdg = wxAppConsole::GetInstance() != nullptr &&
                     wxStandardPaths::Get().GetFileLayout() == wxStandardPathsBase::FileLayout_XDG;
    if (!xdg) {
        return HomeFolder();
    }
    const char* config = std::getenv("XDG_CONFIG_HOME");
    return config != nullptr && *config != '\0' ? fs::path(config) : HomeFolder() / ".config";
}

/// A path as ASCII: "_" for each other character, or for each other byte where it isn't UTF-8.
wxCharBuffer AsAscii(const std::string& path) {
    const wxString text = platform::IsUtf8(path) ? wxString::FromUTF8(path)
                                                 : wxString::From8BitData(path.data(), path.size());
    return text.ToAscii();
}

} // namespace

fs::path FolderOnDataVolume(std::span<const platform::MountedVolume> volumes) {
    const auto volume = std::ranges::find_if(volumes, IsDataVolume);
    return volume == volumes.end() ? fs::path() : fs::path(volume->MountPoint) / "taveladata";
}

void FindDataFolder(char* folder, uint32_t capacity) {
    fs::path path = FolderOnDataVolume(platform::MountedVolumes());
    if (path.empty()) {
        path = UserConfigFolder();
    }
    path /= "cache";
    std::error_code unreported;
    fs::create_directories(path, unreported);
    const wxCharBuffer ascii = AsAscii(path.native());
    if (ascii.length() < capacity) {
        std::memcpy(folder, ascii.data(), ascii.length() + 1);
    } else if (capacity > 0) {
        folder[0] = '\0';
    }
}

} // namespace orvane
