#pragma once

#include "hosts/session/channel_info.h"

#include <string>

namespace orvane {

/// The unit in which the values of a channel are told, with the prefix that its calibre asks for:
/// "mA" for a range of 10 mA.
struct ToldUnit {
    double Factor = 1.0; ///< In the unit of the channel.
    std::string Name;
};

ToldUnit ToldUnitOf(const ChannelInfo& channel);

/// The decimals that the calibre tells apart, in that unit.
int DecimalsOf(const ChannelInfo& channel);

/// A value in that unit and with these decimals, without the unit; a true minus. Empty for what is
/// no number.
std::string ToldValue(const ChannelInfo& channel, double value);

/// The same with the unit: "−1.817 mA".
std::string ToldReading(const ChannelInfo& channel, double value);

/// The range in that unit: "±12 V", "−20…110 °C".
std::string ToldRange(const ChannelInfo& channel);

/// A frequency with four digits: "50.00 Hz", "1.234 kHz".
std::string ToldFrequency(double hertz);

/// Number text with a true minus.
std::string WithTrueMinus(std::string number);

} // namespace orvane
