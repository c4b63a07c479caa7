#pragma once

#include "driver_loader.h"

#include <string>
#include <vector>

namespace orvane {

/// What the driver reports about one input channel. Texts are UTF-8.
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

/// Enumerates the input channels again and describes them.
std::vector<ChannelInfo> EnumerateChannels(const DriverExports& driver);

/// The name of the selected calibre; empty if it has none.
std::string CalibreName(const ChannelInfo& channel);

/// The name with the unit, if there is one: "Voltmètre (V)".
std::string NameWithUnit(const ChannelInfo& channel);

/// The title of the curve of a channel: its name and calibre.
std::string CurveTitle(const ChannelInfo& channel);

/// The axis label of the curve of a channel: "u (V)".
std::string QuantityWithUnit(const ChannelInfo& channel);

/// The range of the selected calibre with its unit: "-12 … 12 V".
std::string RangeText(const ChannelInfo& channel);

/// Throws HostError if the adapters changed since the last call: the channels are then different
/// ones.
void CheckAdapters(const DriverExports& driver);

/// Throws HostError unless a list of this many entries has one of this index.
/// \param none the sentence for an empty list
/// \param outside the sentence for any other, with %s for the index and for the indexes there are
void CheckIndex(int index, size_t count, const char* none, const char* outside);
/// Throws HostError unless a console with this many input channels has one of this index.
void CheckChannel(int index, size_t count);
inline void CheckChannel(const std::vector<ChannelInfo>& channels, int index) {
    CheckChannel(index, channels.size());
}

} // namespace orvane
