#pragma once

#include "hosts/session/channel_info.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvane {

/// What the user wants of one input channel. What is not given stays as it is.
struct ChannelSetup {
    std::string Channel;                 ///< Index or name.
    std::optional<std::string> Function; ///< Number or name.
    std::optional<std::string> Calibre;  ///< Number or name.
    std::optional<double> Ampli;
    std::optional<double> Offset;
    std::optional<std::string> Quantity;
    std::optional<std::string> Unit;
};

/// Reads "0:calibre=+-24V,ampli=2". Throws HostError about what is wrong with it.
ChannelSetup ParseChannelSetup(std::string_view text);
std::vector<ChannelSetup> ParseChannelSetups(const std::vector<std::string>& texts);

/// Throws HostError if the scale would leave nothing of the values of a channel.
void CheckScale(const ChannelSetup& setup);

/// The channel of this index or name. Throws HostError if there is none, or more than one.
int ChannelNamed(const std::vector<ChannelInfo>& channels, const std::string& text);

/// Sets a channel up: the function first, then the calibre, the symbols and the scale. Throws
/// HostError about what the channel does not have and about what the console does not select.
void SetUpChannel(const DriverExports& driver, int channel, const ChannelSetup& setup);

/// Enumerates the input channels anew, sets them up and describes them as they are then.
std::vector<ChannelInfo> EnumerateChannels(const DriverExports& driver,
                                           const std::vector<ChannelSetup>& setups);

} // namespace orvane
