#pragma once

#include "hosts/session/acquisition_recording.h"
#include "hosts/session/forced_breath.h"
#include "hosts/session/gate_run.h"
#include "hosts/session/radio_network.h"

namespace orvane {

/// \name JSON output for other programs
/// UTF-8, whatever the driver's texts hold. A number that is
/// not finite becomes null. The fields are those of docs/json.md.
/// @{

/// The console and its constants; enumerates the channels to count them.
std::string InfoJson(const DriverExports& driver, const std::string& library);
std::string ChannelsJson(const std::vector<ChannelInfo>& channels);
/// What the channels measure now, on one line.
std::string ValuesJson(const DriverExports& driver, const std::vector<ChannelInfo>& channels);
/// A run and what each channel measured in it, on one line.
std::string RunJson(const std::vector<ChannelInfo>& channels, const AcquisitionRecording& recording,
                    const std::vector<Samples>& samples);
/// The gates as they are now.
std::string GatesJson(const GateStates& states);
/// A run over gates, on one line.
std::string GateRunJson(int32_t forks, const std::vector<double>& raysSec, bool doorClosed);
std::string RadioJson(const RadioNetwork& network);
/// A step of the spirometer, on one line.
std::string FlowJson(const FlowReading& reading);
/// The best forced breath, on one line.
std::string ForcedBreathJson(const std::optional<ForcedBreath>& best);
/// @}

} // namespace orvane
