#include "hosts/session/channel_info.h"

#include "hosts/session/host_error.h"
#include "hosts/session/number_text.h"
#include "hosts/session/translation.h"

#include <wx/translation.h>

#include <algorithm>

namespace orvane {

namespace {

/// The indexes of a list with entries, for people: "0", "0 and 1", "0 to 7".
std::string IndexesText(size_t count) {
    const std::string last = std::to_string(count - 1);
    return count == 1   ? last
           : count == 2 ? Translated("%s and %s", {"0", last})
                        : Translated("%s to %s", {"0", last});
}

} // namespace

ChannelInfo DescribeChannel(const DriverExports& driver, int index) {
    ChannelInfo channel{
        .Index = index,
        .Name = TextOf(driver.QuelNomPour(index, 0)),
        .Quantity = TextOf(driver.QuelGrandeurPour(index)),
        .Unit = TextOf(driver.QuelUnitePour(index)),
        .Min = driver.QuelMinPour(index),
        .Max = driver.QuelMaxPour(index),
        .Calibres = {},
        .Calibre = driver.QuelCalibrePour(index),
        .DefaultPeriodSec = driver.QuelDefaultPeriodSecPour(index),
        .ShortestPeriodSec = driver.QuelTempsMinPour(index),
        .Connector = driver.QuelVoiePhysiquePour(index),
        .Channel = driver.QuelCanalPour(index),
        .Reference = driver.QuelReferencePour(index),
        .Code = driver.QuelCodePour(index),
    };
    const int calibres = driver.CombienDeCalibrePour(index);
    for (int calibre = 0; calibre < calibres; ++calibre) {
        channel.Calibres.push_back(TextOf(driver.QuelNomPourCalibre(index, calibre)));
    }
    return channel;
}

std::string TextOf(const wxString& text) {
    wxString line = text;
    for (wxUniCharRef c : line) {
        const wxUniChar::value_type code = wxUniChar(c).GetValue();
        if (code < 0x20 || (code >= 0x7f && code < 0xa0)) {
            c = ' ';
        }
    }
    return line.utf8_string();
}

std::vector<ChannelInfo> EnumerateChannels(const DriverExports& driver) {
    const int count = std::max(driver.CombienDeCanauxEnEntree(), 0);
    std::vector<ChannelInfo> channels;
    channels.reserve(static_cast<size_t>(count));
    for (int index = 0; index < count; ++index) {
        channels.push_back(DescribeChannel(driver, index));
    }
    return channels;
}

std::string CalibreName(const ChannelInfo& channel) {
    const auto calibre = static_cast<size_t>(channel.Calibre);
    return calibre < channel.Calibres.size() ? channel.Calibres[calibre] : std::string();
}

std::string NameWithUnit(const ChannelInfo& channel) {
    return channel.Unit.empty() ? channel.Name : channel.Name + " (" + channel.Unit + ")";
}

std::string CurveTitle(const ChannelInfo& channel) {
    const std::string calibre = CalibreName(channel);
    return calibre.empty() ? channel.Name : channel.Name + ", " + calibre;
}

std::string QuantityWithUnit(const ChannelInfo& channel) {
    return channel.Unit.empty() ? channel.Quantity : channel.Quantity + " (" + channel.Unit + ")";
}

std::string RangeText(const ChannelInfo& channel) {
    const std::string range = RangeText(channel.Min, channel.Max);
    return channel.Unit.empty() ? range : range + " " + channel.Unit;
}

void CheckAdapters(const DriverExports& driver) {
    if (!driver.VerifCanaux()) {
        throw HostError("The adapters of the console changed.");
    }
}

void CheckIndex(int index, size_t count, const char* none, const char* outside) {
    if (count == 0) {
        throw HostError(Translated(none));
    }
    if (index < 0 || static_cast<size_t>(index) >= count) {
        throw WrongArgument(Translated(outside, {std::to_string(index), IndexesText(count)}));
    }
}

void CheckChannel(int index, size_t count) {
    CheckIndex(index, count, wxTRANSLATE("This console has no input channels."),
               wxTRANSLATE("There is no channel %s; this console has %s."));
}

} // namespace orvane
