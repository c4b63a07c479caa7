#include "hosts/orvane/commands/picture_files.h"

#include "hosts/session/host_error.h"
#include "hosts/session/pending_file.h"

#include <wx/bitmap.h>
#include <wx/image.h>
#include <wx/log.h>

#include <filesystem>
#include <iostream>
#include <system_error>

namespace orvane {

namespace {

namespace fs = std::filesystem;

/// \return whether there was a picture to save
bool SavePicture(const wxBitmap& picture, const fs::path& target) {
    if (!picture.IsOk()) {
        return false;
    }
    std::error_code failure; // Without a folder the file cannot be opened, which is reported.
    fs::create_directories(target.parent_path(), failure);
    PendingFile file(target.string());
    const wxLogNull silence; // The exception below reports it.
    if (!picture.ConvertToImage().SaveFile(wxString(file.Temporary.c_str(), wxConvFile),
                                           wxBITMAP_TYPE_PNG)) {
        throw HostError("The picture " + target.string() + " cannot be written.");
    }
    Publish(file);
    std::cout << "Picture  " << target.string() << '\n';
    return true;
}

} // namespace

void CheckPictureFolder(const std::string& folder) {
    std::error_code ignored;
    const fs::file_status status = fs::status(folder, ignored);
    if (fs::exists(status) && !fs::is_directory(status)) {
        throw HostError(folder + " is not a folder.");
    }
}

void SavePictures(const DriverExports& driver, const std::vector<ChannelInfo>& channels,
                  const std::string& folder) {
    wxInitAllImageHandlers(); // The driver decodes with those of its host.
    bool any = false;
    for (const ChannelInfo& channel : channels) {
        const auto base = fs::path(folder) / ("channel" + std::to_string(channel.Index));
        any |= SavePicture(driver.QuelBitmapPour(channel.Index), base.string() + ".png");
        any |=
            SavePicture(driver.QuelImageReglagePour(channel.Index), base.string() + "-state.png");
    }
    if (!any) {
        std::cout << "No channel has a picture.\n";
    }
}

} // namespace orvane
