#include "hosts/session/channel_setup.h"

#include "hosts/session/host_error.h"
#include "hosts/session/number_text.h"
#include "hosts/session/sentence_parts.h"
#include "hosts/session/text_parsing.h"
#include "hosts/session/translation.h"

#include <wx/translation.h>

#include <algorithm>
#include <cmath>
#include <iterator>

namespace orvane {

namespace {

// Beyond these, limits and values of a channel become 0 or infinity. With a negative amplification
// the driver returns the same limit for all values.
constexpr double leastAmpli = 1e-30;
constexpr double mostScale = 1e30;

double ScaleNumber(std::string_view key, std::string_view text) {
    const auto number = ParseNumber<double>(text);
    if (!number) {
        throw WrongArgument("The value " + Quoted(text) + " of " + std::string(key) +
                            " is not a number.");
    }
    return *number;
}

/// Stores a setting. \return false if there is no such key
bool Store(ChannelSetup& setup, std::string_view key, std::string_view value) {
    if (key == "function") {
        setup.Function = value;
    } else if (key == "calibre") {
        setup.Calibre = value;
    } else if (key == "ampli") {
        setup.Ampli = ScaleNumber(key, value);
    } else if (key == "offset") {
        setup.Offset = ScaleNumber(key, value);
    } else if (key == "quantity") {
        setup.Quantity = value;
    } else if (key == "unit") {
        setup.Unit = value;
    } else {
        return false;
    }
    return true;
}

/// The parts of "calibre=0,5V,ampli=2", where a comma may also stand in a value.
std::vector<std::string> SettingsIn(std::string_view text) {
    std::vector<std::string> settings;
    for (const std::string_view part : Split(text, ',')) {
        if (settings.empty() || part.find('=') != std::string_view::npos) {
            settings.emplace_back(part);
        } else {
            settings.back().append(",").append(part);
        }
    }
    return settings;
}

/// The number of the entry of this name or number.
int EntryNamed(const std::string& kind, int channel, const std::vector<std::string>& names,
               const std::string& text) {
    const auto named = std::ranges::find(names, text);
    if (named != names.end()) {
        return static_cast<int>(named - names.begin());
    }
    const auto number = ParseNumber<int>(text);
    if (!number || *number < 0 || static_cast<size_t>(*number) >= names.size()) {
        throw WrongArgument("Channel " + std::to_string(channel) + " has no " + kind + " " +
                            Quoted(text) +
                            (names.empty() ? "." : "; it has " + Listed(names) + "."));
    }
    return *number;
}

/// The driver doesn't report a refusal of the console.
void CheckSelected(const char* kind, int wanted, int selected) {
    if (selected != wanted) {
        throw HostError(Translated("The console does not select %s %s.",
                                   {Translated(kind), std::to_string(wanted)}));
    }
}

void SelectFunction(const DriverExports& driver, int channel, const std::string& text) {
    const int function = EntryNamed("function", channel, FunctionNames(driver, channel), text);
    driver.MetFonctionPour(channel, function);
    CheckSelected(wxTRANSLATE("function"), function, driver.QuelFonctionPour(channel));
}

void SelectCalibre(const DriverExports& driver, int channel, const std::string& text) {
    const int calibre =
        EntryNamed("calibre", channel, DescribeChannel(driver, channel).Calibres, text);
    driver.MetCalibrePour(channel, calibre);
    CheckSelected(wxTRANSLATE("calibre"), calibre, driver.QuelCalibrePour(channel));
}

} // namespace

ChannelSetup ParseChannelSetup(std::string_view text) {
    // The name of a channel may hold a colon, and so may a value.
    const size_t colon = text.rfind(':', text.find('='));
    if (colon == std::string_view::npos || colon == 0) {
        throw WrongArgument("The setting " + Quoted(text) +
                            " is not of the form CHANNEL:SETTING=VALUE, such as 0:ampli=2.");
    }
    ChannelSetup setup;
    setup.Channel = text.substr(0, colon);
    for (const std::string& setting : SettingsIn(text.substr(colon + 1))) {
        const size_t equals = setting.find('=');
        const std::string key = setting.substr(0, equals);
        if (equals == std::string::npos) {
            throw WrongArgument("The setting " + Quoted(key) + " lacks = and a value.");
        }
        if (!Store(setup, key, setting.substr(equals + 1))) {
            throw WrongArgument("There is no setting " + Quoted(key) +
                                "; a channel has calibre, function, ampli, offset, quantity and "
                                "unit.");
        }
    }
    CheckScale(setup);
    return setup;
}

std::vector<ChannelSetup> ParseChannelSetups(const std::vector<std::string>& texts) {
    std::vector<ChannelSetup> setups;
    std::ranges::transform(texts, std::back_inserter(setups), ParseChannelSetup);
    return setups;
}

void CheckScale(const ChannelSetup& setup) {
    const double ampli = setup.Ampli.value_or(1.0);
    if (!(ampli >= leastAmpli && ampli <= mostScale)) {
        throw WrongArgument(Translated(
            "The amplification %s is outside the range of 1e-30 to 1e+30.", {NumberText(ampli)}));
    }
    if (!(std::abs(setup.Offset.value_or(0.0)) <= mostScale)) {
        throw WrongArgument(Translated("The offset %s is outside the range of -1e+30 to 1e+30.",
                                       {NumberText(*setup.Offset)}));
    }
}

int ChannelNamed(const std::vector<ChannelInfo>& channels, const std::string& text) {
    const auto named = std::ranges::find(channels, text, &ChannelInfo::Name);
    if (named == channels.end()) {
        if (const auto index = ParseNumber<int>(text)) {
            CheckChannel(channels, *index);
            return *index;
        }
        CheckChannel(channels, 0);
        std::vector<std::string> names;
        std::ranges::transform(channels, std::back_inserter(names), [](const ChannelInfo& channel) {
            return std::to_string(channel.Index) + " (" + channel.Name + ")";
        });
        throw WrongArgument("There is no channel " + Quoted(text) + "; this console has " +
                            Listed(names) + ".");
    }
    if (std::ranges::count(channels, text, &ChannelInfo::Name) > 1) {
        throw WrongArgument("More than one channel is called " + Quoted(text) +
                            "; the number tells which.");
    }
    return named->Index;
}

std::vector<std::string> FunctionNames(const DriverExports& driver, int channel) {
    std::vector<std::string> names(
        static_cast<size_t>(std::max(driver.CombienDeFonctionPour(channel), 0)));
    for (size_t i = 0; i < names.size(); ++i) {
        names[i] = TextOf(driver.QuelNomPourFonction(channel, static_cast<int>(i)));
    }
    return names;
}

void SetUpChannel(const DriverExports& driver, int channel, const ChannelSetup& setup) {
    if (setup.Function) {
        SelectFunction(driver, channel, *setup.Function);
    }
    if (setup.Calibre) {
        SelectCalibre(driver, channel, *setup.Calibre);
    }
    if (setup.Quantity || setup.Unit || setup.Ampli || setup.Offset) {
        // In the special mode the driver takes both symbols from its host, and the level of a
        // trigger in the host's scale.
        const ChannelInfo info = DescribeChannel(driver, channel);
        const auto wide = [](const std::string& text) { return wxString::FromUTF8(text); };
        driver.MetGrandeurPour(channel, wide(setup.Quantity.value_or(info.Quantity)).wc_str());
        driver.MetUnitPour(channel, wide(setup.Unit.value_or(info.Unit)).wc_str());
        driver.MetModeSpecialPour(channel, 1);
    }
    if (setup.Ampli) {
        driver.MetAmpliPour(channel, *setup.Ampli);
    }
    if (setup.Offset) {
        driver.MetOffsetPour(channel, *setup.Offset);
    }
}

void ResetScale(const DriverExports& driver, int channel) {
    driver.MetModeSpecialPour(channel, 0);
}

std::vector<ChannelInfo> EnumerateChannels(const DriverExports& driver,
                                           const std::vector<ChannelSetup>& setups) {
    std::vector<ChannelInfo> channels = EnumerateChannels(driver);
    for (const ChannelSetup& setup : setups) {
        const int channel = ChannelNamed(channels, setup.Channel);
        SetUpChannel(driver, channel, setup);
        channels[static_cast<size_t>(channel)] = DescribeChannel(driver, channel);
    }
    return channels;
}

} // namespace orvane
