#include "hosts/orvane/commands/commands.h"
#include "hosts/orvane/commands/json_texts.h"
#include "hosts/orvane/commands/picture_files.h"
#include "hosts/orvane/commands/shared_options.h"
#include "hosts/orvane/terminal/standard_output.h"
#include "hosts/session/channel_info.h"
#include "hosts/session/durations.h"
#include "hosts/session/number_text.h"

#include <iostream>

namespace orvane {

namespace {

/// The names of all calibres, the selected one in brackets.
std::string CalibreList(const ChannelInfo& channel) {
    std::string list;
    for (size_t i = 0; i < channel.Calibres.size(); ++i) {
        const std::string& name = channel.Calibres[i];
        list += list.empty() ? "" : "  ";
        list += static_cast<int>(i) == channel.Calibre ? "[" + name + "]" : name;
    }
    return list;
}

std::vector<std::string> ChannelRow(const ChannelInfo& channel) {
    return {
        std::to_string(channel.Index),
        channel.Name,
        std::to_string(channel.Connector),
        std::to_string(channel.Channel),
        channel.Quantity,
        channel.Unit,
        RangeText(channel.Min, channel.Max),
        CalibreList(channel),
        DurationText(channel.DefaultPeriodSec),
        std::to_string(channel.Reference),
        std::to_string(channel.Code),
    };
}

struct ListOptions {
    std::string PictureFolder;
    bool Json = false;
};

void ListChannels(const DriverOptions& driverOptions, const ListOptions& options) {
    CheckPictureFolder(options.PictureFolder);
    const auto session = OpenDriver(driverOptions);
    const std::vector<ChannelInfo> channels = EnumerateChannels(session->Driver.Exports);
    if (options.Json) {
        std::cout << ChannelsJson(channels);
        return;
    }
    TextRows rows;
    rows.reserve(channels.size());
    for (const ChannelInfo& channel : channels) {
        rows.push_back(ChannelRow(channel));
    }
    std::cout << TableForOutput({{"Index", true},
                                 {"Name"},
                                 {"Connector", true},
                                 {"Channel", true},
                                 {"Quantity"},
                                 {"Unit"},
                                 {"Range"},
                                 {"Calibres"},
                                 {"Period", true},
                                 {"Reference", true},
                                 {"Code", true}},
                                rows);
    if (!options.PictureFolder.empty()) {
        SavePictures(session->Driver.Exports, channels, options.PictureFolder);
    }
}

} // namespace

void AddChannelsCommand(CLI::App& command, const DriverOptions& driver) {
    auto options = std::make_shared<ListOptions>();
    CLI::Option* images =
        command
            .add_option("--images", options->PictureFolder, "Save their pictures in this folder")
            ->type_name("DIR");
    AddJsonFlag(command, options->Json)->excludes(images);
    command.callback([options, &driver] { ListChannels(driver, *options); });
}

} // namespace orvane
