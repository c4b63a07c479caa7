#include "hosts/orvane/picture_files.h"

#include "hosts/common/host_error.h"
#include "hosts/common/pending_file.h"

#include <wx/bitmap.h>
#include <wx/image.h>
#include <wx/log.h>

#include <filesystem>
#include <iostream>
#include <system_error>

namespace {

/// \return whether there was a picture to save
bool SavePicture(const wxBitmap& picture, const std::filesystem::path& target) {
    if (!picture.IsOk()) {
        return false;
    }
    PendingFile file(target.string());
    const wxLogNull silence; // The exception below says it.
    if (!picture.ConvertToImage().SaveFile(wxString(file.Temporary.c_str(), wxConvFile),
                                           wxBITMAP_TYPE_PNG)) {
        throw HostError("The picture " + target.string() + " cannot be written.");
    }
    Publish(file);
    std::cout << "Picture  " << target.string() << '\n';
    return true;
}

} // namespace

void SavePictures(const DriverExports& driver, const std::vector<ChannelInfo>& channels,
                  const std::string& folder) {
    wxInitAllImageHandlers(); // The driver decodes with those of its host.
    std::error_code failure;
    std::filesystem::create_directories(folder, failure);
    bool any = false;
    for (const ChannelInfo& channel : channels) {
        const auto base =
            std::filesystem::path(folder) / ("channel" + std::to_string(channel.Index));
        any |= SavePicture(driver.QuelBitmapPour(channel.Index), base.string() + ".png");
        any |=
            SavePicture(driver.QuelImageReglagePour(channel.Index), base.string() + "-state.png");
    }
    if (!any) {
        std::cout << "No channel has a picture.\n";
    }
}
