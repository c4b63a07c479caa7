#pragma once

#include "driver_loader.h"

#include <string>
#include <vector>

namespace orvane {

/// What the driver says about one input channel. Texts are UTF-8.
struct ChannelInfo {
    int Index = 0;
    std::string Name;
    std::string Quantity;
    std::string Unit;
    double Min = 0.0; ///< Limits of the selected calibre.
    double Max = 0.0;
    std::vector<std::string> Calibres;
    int Calibre = 0; ///< The selected one.
    double DefaultPeriodSec = 0.0;
    double ShortestPeriodSec = 0.0;
    int Connector = 0;
    int Channel = 0;
    int Reference = 0;
    int Code = 0;

    bool operator==(const ChannelInfo&) const = default;
};

/// A text of the driver in UTF-8, on one line and without control characters.
std::string TextOf(const wxString& text);

/// Describes one channel of the last enumeration.
ChannelInfo DescribeChannel(const DriverExports& driver, int index);

/// Enumerates the input channels anew and describes them.
std::vector<ChannelInfo> EnumerateChannels(const DriverExports& driver);

/// The name of the selected calibre; empty if it has none.
std::string CalibreName(const ChannelInfo& channel);

/// The name with the unit, if there is one: "Voltmètre (V)".
std::string NameWithUnit(const ChannelInfo& channel);

/// What stands above the curve of a channel: its name and calibre.
std::string CurveTitle(const ChannelInfo& channel);

/// What stands beside the curve of a channel: "u (V)".
std::string QuantityWithUnit(const ChannelInfo& channel);

/// The range of the selected calibre with its unit: "-12 … 12 V".
std::string RangeText(const ChannelInfo& channel);

/// The indexes of a list for people: "0", "0 and 1", "0 to 7". The list has to have entries.
std::string IndexesText(size_t count);

/// Throws HostError unless a console with this many input channels has one of this index.
void CheckChannel(int index, size_t count);
inline void CheckChannel(const std::vector<ChannelInfo>& channels, int index) {
    CheckChannel(index, channels.size());
}

} // namespace orvane
