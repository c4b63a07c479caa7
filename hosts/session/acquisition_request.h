#pragma once

#include "hosts/session/channel_info.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace orvane {

/// When a triggered run begins.
struct AcquisitionTrigger {
    int Channel = 0;    ///< Index of the input channel.
    double Level = 0.0; ///< In the unit of the channel.
    bool Rising = true;
};

/// One buffered acquisition as the user requests it.
struct AcquisitionRequest {
    double PeriodSec = 0.0;
    int32_t Points = 0;        ///< Per channel, pre-trigger points not counted.
    std::vector<int> Channels; ///< Indexes, in the order of the results; empty: all channels.
    std::optional<AcquisitionTrigger> Trigger;
    bool PreTrigger = false;
};

/// \name Texts of a user Each throws HostError if the text is invalid.
/// @{
double ParsePeriod(const std::string& text);
int32_t ParseCount(const std::string& what, const std::string& text); ///< From 1 on.
std::vector<int> ParseChannelList(const std::string& text);           ///< "0,1"
AcquisitionTrigger ParseTrigger(const std::string& text); ///< "CHANNEL:LEVEL:rising|falling"
/// @}

/// The shortest period that the console and these of its channels are capable of.
double ShortestPeriodSec(const DriverExports& driver, const std::vector<ChannelInfo>& channels,
                         const std::vector<int>& used);

/// The longest period that a run keeps to; the driver reports a longer one.
double LongestPeriodSec(const DriverExports& driver);

/// Checks the request against the channels and the limits of the driver; no channels become all of
/// them. Throws HostError if the driver cannot do it.
AcquisitionRequest CompleteRequest(AcquisitionRequest request, const DriverExports& driver,
                                   const std::vector<ChannelInfo>& channels);

/// Points per channel, pre-trigger points counted.
size_t PointsInAll(const AcquisitionRequest& request, const DriverExports& driver);

} // namespace orvane
