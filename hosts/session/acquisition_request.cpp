#include "hosts/session/acquisition_request.h"

#include "hosts/session/durations.h"
#include "hosts/session/host_error.h"
#include "hosts/session/number_text.h"
#include "hosts/session/run_setup.h"
#include "hosts/session/sentence_parts.h"
#include "hosts/session/text_parsing.h"
#include "hosts/session/translation.h"

#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>
#include <string_view>

namespace orvane {

namespace {

void CheckPeriod(const AcquisitionRequest& request, const DriverExports& driver,
                 const std::vector<ChannelInfo>& channels) {
    const double shortest = ShortestPeriodSec(driver, channels, request.Channels);
    const double longest = LongestPeriodSec(driver);
    if (request.PeriodSec < shortest || request.PeriodSec > longest) {
        throw WrongArgument(Translated(
            "The period %s lies outside what the console can do, %s to %s.",
            {DurationText(request.PeriodSec), DurationText(shortest), DurationText(longest)}));
    }
}

void CheckPoints(const AcquisitionRequest& request, const DriverExports& driver) {
    // The driver counts the samples of all channels in 31 bits.
    const double samples = static_cast<double>(PointsInAll(request, driver)) *
                           static_cast<double>(request.Channels.size());
    // The driver's buffer, the live and the fetched points, the times.
    constexpr double copies = 4.0;
    const double memory =
        static_cast<double>(sysconf(_SC_PHYS_PAGES)) * static_cast<double>(sysconf(_SC_PAGESIZE));
    if (samples > std::numeric_limits<int32_t>::max() ||
        samples * copies * sizeof(double) > memory) {
        throw WrongArgument(
            Translated("%s points on %s channels are more than this machine can hold.",
                       {std::to_string(request.Points), std::to_string(request.Channels.size())}));
    }
}

void CheckTrigger(const AcquisitionTrigger& trigger, const std::vector<ChannelInfo>& channels) {
    CheckChannel(trigger.Channel, channels.size());
    const ChannelInfo& channel = channels[static_cast<size_t>(trigger.Channel)];
    if (trigger.Level < channel.Min || trigger.Level > channel.Max) {
        throw WrongArgument(Translated(
            "The trigger level %s lies outside the range of channel %s, %s.",
            {NumberText(trigger.Level), std::to_string(trigger.Channel), RangeText(channel)}));
    }
}

} // namespace

double ParsePeriod(const std::string& text) {
    const auto period = ParseDuration(text);
    if (!period) {
        throw WrongArgument(
            Translated("The period \"%s\" is not a duration such as 1ms, 100us or 0.5s.", {text}));
    }
    if (*period <= 0.0) {
        throw WrongArgument(Translated("The period %s is not above 0.", {text}));
    }
    return *period;
}

int32_t ParseCount(const std::string& what, const std::string& text) {
    const auto count = ParseNumber<int32_t>(text);
    if (!count || *count < 1) {
        throw WrongArgument("The number of " + what + " " + Quoted(text) +
                            " is not a whole number from 1 to " +
                            std::to_string(std::numeric_limits<int32_t>::max()) + ".");
    }
    return *count;
}

std::vector<int> ParseChannelList(const std::string& text) {
    std::vector<int> channels;
    for (const std::string_view part : Split(text, ',')) {
        const auto channel = ParseNumber<int>(part);
        if (!channel) {
            throw WrongArgument("The channels " + Quoted(text) + " are not a list such as 0,1.");
        }
        if (std::ranges::find(channels, *channel) != channels.end()) {
            throw WrongArgument("The channels " + Quoted(text) + " name channel " +
                                std::to_string(*channel) + " twice.");
        }
        channels.push_back(*channel);
    }
    return channels;
}

AcquisitionTrigger ParseTrigger(const std::string& text) {
    const auto parts = Split(text, ':');
    if (parts.size() == 3 && (parts[2] == "rising" || parts[2] == "falling")) {
        const auto channel = ParseNumber<int>(parts[0]);
        const auto level = ParseNumber<double>(parts[1]);
        if (channel && level && std::isfinite(*level)) {
            return {*channel, *level, parts[2] == "rising"};
        }
    }
    throw WrongArgument("The trigger " + Quoted(text) +
                        " is not of the form CHANNEL:LEVEL:rising or CHANNEL:LEVEL:falling.");
}

double ShortestPeriodSec(const DriverExports& driver, const std::vector<ChannelInfo>& channels,
                         const std::vector<int>& used) {
    double shortest = driver.GetMinPas();
    for (const int channel : used) {
        shortest = std::max(shortest, channels[static_cast<size_t>(channel)].ShortestPeriodSec);
    }
    return shortest;
}

double LongestPeriodSec(const DriverExports& driver) {
    constexpr double longestSec = 4.294967295; // beyond, the driver takes one second instead
    return std::min(longestSec, driver.GetMaxDtInBuffMode());
}

AcquisitionRequest CompleteRequest(AcquisitionRequest request, const DriverExports& driver,
                                   const std::vector<ChannelInfo>& channels) {
    const size_t usable = std::min(channels.size(), MostChannelsOfRun);
    if (request.Channels.empty()) {
        request.Channels.resize(usable);
        std::iota(request.Channels.begin(), request.Channels.end(), 0);
        CheckChannel(0, usable);
    }
    for (const int channel : request.Channels) {
        CheckChannel(channel, usable);
    }
    CheckPeriod(request, driver, channels);
    CheckPoints(request, driver);
    if (request.Trigger) {
        CheckTrigger(*request.Trigger, channels);
    }
    return request;
}

size_t PointsInAll(const AcquisitionRequest& request, const DriverExports& driver) {
    return static_cast<size_t>(request.Points) +
           (request.PreTrigger ? driver.GetNbPointPreSynchro() : 0);
}

} // namespace orvane
