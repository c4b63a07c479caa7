#include "platform/mounted_volumes.h"

#include <mntent.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdio>
#include <filesystem>
#include <map>
#include <memory>
#include <system_error>

namespace orvane {

namespace fs = std::filesystem;

namespace {

/// The labels by device. Each file of the folder is a link from a label to its device.
std::map<fs::path, std::string> LabelsByDevice(const char* labelFolder) {
    std::map<fs::path, std::string> labels;
    std::error_code failure;
    for (fs::directory_iterator link(labelFolder, failure), end; !failure && link != end;
         link.increment(failure)) {
        std::error_code dangling;
        const fs::path device = fs::canonical(link->path(), dangling);
        if (!dangling) {
            labels[device] = platform::DecodedLabel(link->path().filename().native());
        }
    }
    return labels;
}

} // namespace

std::string platform::DecodedLabel(std::string_view fileName) {
    std::string label;
    for (std::size_t at = 0; at < fileName.size(); ++at) {
        unsigned char byte = 0;
        const std::string_view escape = fileName.substr(at, 4);
        if (escape.size() == 4 && escape.starts_with("\\x") &&
            std::from_chars(escape.data() + 2, escape.data() + 4, byte, 16).ptr ==
                escape.data() + 4) {
            label += static_cast<char>(byte);
            at += 3;
        } else {
            label += fileName[at];
        }
    }
    return label;
}

std::vector<platform::MountedVolume> platform::MountedVolumes(const char* labelFolder,
                                                              const char* mountTable) {
    std::vector<MountedVolume> volumes;
    const std::map<fs::path, std::string> labels = LabelsByDevice(labelFolder);
    if (labels.empty()) {
        return volumes;
    }
    const std::unique_ptr<FILE, decltype(&endmntent)> table(setmntent(mountTable, "r"), endmntent);
    if (table == nullptr) {
        return volumes;
    }
    mntent entry{};
    std::array<char, 8192> texts{};
    while (getmntent_r(table.get(), &entry, texts.data(), static_cast<int>(texts.size())) !=
           nullptr) {
        std::error_code notADevice;
        const auto label = labels.find(fs::canonical(entry.mnt_fsname, notADevice));
        if (!notADevice && label != labels.end()) {
            volumes.push_back({entry.mnt_dir, label->second});
        }
    }
    std::ranges::stable_sort(volumes, {}, &MountedVolume::MountPoint);
    return volumes;
}

} // namespace orvane
