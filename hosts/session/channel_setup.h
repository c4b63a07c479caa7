#pragma once

#include "hosts/session/channel_info.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvane {

/// The settings that the user gives for one input channel. Others stay as they are.
struct ChannelSetup {
    std::string Channel = {};                 ///< Index or name.
    std::optional<std::string> Function = {}; ///< Number or name.
    std::optional<std::string> Calibre = {};  ///< Number or name.
    std::optional<double> Ampli = {};
    std::optional<double> Offset = {};
    std::optional<std::string> Quantity = {};
    std::optional<std::string> Unit = {};
};

/// Reads "0:calibre=+-24V,ampli=2". Throws HostError if the text is invalid.
ChannelSetup ParseChannelSetup(std::string_view text);
std::vector<ChannelSetup> ParseChannelSetups(const std::vector<std::string>& texts);

/// Throws HostError if the scale would make the values of a channel useless.
void CheckScale(const ChannelSetup& setup);

/// The channel of this index or name. Throws HostError if there is none, or more than one.
int ChannelNamed(const std::vector<ChannelInfo>& channels, const std::string& text);

/// The names of a channel's functions.
std::vector<std::string> FunctionNames(const DriverExports& driver, int channel);

/// Sets a channel up: the function first, then the calibre, the symbols and the scale. Throws
/// HostError if the channel lacks the function or calibre or the console does not select it.
void SetUpChannel(const DriverExports& driver, int channel, const ChannelSetup& setup);

/// Ends the scale and the symbols of the host on a channel.
void ResetScale(const DriverExports& driver, int channel);

/// Enumerates the input channels again, sets them up and then describes them.
std::vector<ChannelInfo> EnumerateChannels(const DriverExports& driver,
                                           const std::vector<ChannelSetup>& setups);

} // namespace orvane
