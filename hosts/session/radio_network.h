#pragma once

#include "driver_loader.h"

#include <vector>

namespace orvane {

/// \name The radio network of a console that has one
/// Each of the functions throws HostError if the console refuses.
/// @{

void CheckRadio(const DriverExports& driver); ///< Throws unless the console has a network.
void EndRadioConfiguration(const DriverExports& driver);
void BecomePilot(const DriverExports& driver);

/// Pings a device, 0 to 255.
void PingDevice(const DriverExports& driver, int id);

/// Accepts a connected pod.
/// \param id 0 to RadioDeviceCount - 1
void AcceptPod(const DriverExports& driver, int id);

/// @}

/// A connected pod.
struct Pod {
    int Id = 0;
    bool Accepted = false;
};

/// The pods that are connected now, which may come and go meanwhile.
std::vector<Pod> ConnectedPods(const DriverExports& driver);

} // namespace orvane
