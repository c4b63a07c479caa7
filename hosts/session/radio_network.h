#pragma once

#include "driver_loader.h"

#include <vector>

namespace orvane {

/// \name The radio network of a console that has one
/// Each of the functions throws HostError if the console refuses.
/// @{

void CheckRadio(const DriverExports& driver); ///< Throws unless the console has a network.
/// Makes the console the pilot of a network of its own.
void ConfigureRadio(const DriverExports& driver, int channel, int level);
void EndRadioConfiguration(const DriverExports& driver);
void BecomePilot(const DriverExports& driver);

/// Pings a device, 0 to 255.
void PingDevice(const DriverExports& driver, int id);

/// Accepts a connected pod.
/// \param id 0 to RadioDeviceCount - 1
void AcceptPod(const DriverExports& driver, int id);

/// @}

bool HasRadio(const DriverExports& driver);

/// \name What a network may be set to
/// @{
inline constexpr int leastRadioChannel = 11;
inline constexpr int greatestRadioChannel = 26;
inline constexpr int leastRadioLevel = -4;
inline constexpr int greatestRadioLevel = 17;
/// @}

/// A connected pod.
struct Pod {
    int Id = 0;
    bool Accepted = false;
};

/// The pods that are connected now, which may come and go meanwhile.
std::vector<Pod> ConnectedPods(const DriverExports& driver);

/// The network as a host knows it.
struct RadioNetwork {
    int Channel = 0;       ///< As the console's memory has it.
    bool Pilot = false;    ///< The console is its pilot; otherwise it is closed.
    std::vector<Pod> Pods; ///< Connected.
};

/// \param pilot whether the host has made the console the pilot: the driver doesn't tell
RadioNetwork DescribeRadio(const DriverExports& driver, bool pilot);

} // namespace orvane
