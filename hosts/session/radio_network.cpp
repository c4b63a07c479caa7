#include "hosts/session/radio_network.h"

#include "hosts/session/host_error.h"
#include "hosts/session/translation.h"

#include <atomic>

namespace orvane {

namespace {

/// A field of a device, which the console may be changing on a thread of its own.
template <typename T> T FieldNow(T& field) {
    return std::atomic_ref(field).load();
}

} // namespace

bool HasRadio(const DriverExports& driver) {
    return driver.GetInterfaceName() == "Orvane150";
}

void CheckRadio(const DriverExports& driver) {
    if (!HasRadio(driver)) {
        throw HostError("This console has no radio network.");
    }
}

void EndRadioConfiguration(const DriverExports& driver) {
    if (!driver.RadioSetConfigNoneO150()) {
        throw HostError(
            Translated("The console refuses to end the configuration of its radio network."));
    }
}

void BecomePilot(const DriverExports& driver) {
    if (!driver.RadioSetConfigPilotO150()) {
        throw HostError(
            Translated("The console does not become the pilot of a radio network: its memory "
                       "holds no valid configuration, or it refuses."));
    }
}

void ConfigureRadio(const DriverExports& driver, int channel, int level) {
    if (!driver.RadioSetConfigO150(RadioPilote, static_cast<unsigned char>(channel),
                                   static_cast<char>(level))) {
        throw HostError(Translated("The console refuses channel %s with level %s.",
                                   {std::to_string(channel), std::to_string(level)}));
    }
}

void PingDevice(const DriverExports& driver, int id) {
    if (!driver.RadioPingDeviceO150(static_cast<unsigned char>(id))) {
        throw HostError("Device " + std::to_string(id) + " does not answer.");
    }
}

void AcceptPod(const DriverExports& driver, int id) {
    TVL_RADIO_DEVICE& device = *driver.GetRadioDeviceO150(id);
    if (FieldNow(device.Connecte) == 0) {
        throw HostError("Device " + std::to_string(id) + " is not connected.");
    }
    driver.AcceptDeviceO150(id);
    if (FieldNow(device.Accepte) == 0) {
        throw HostError("The console does not accept device " + std::to_string(id) + ".");
    }
}

std::vector<Pod> ConnectedPods(const DriverExports& driver) {
    std::vector<Pod> pods;
    for (int id = 0; id < RadioDeviceCount; ++id) {
        TVL_RADIO_DEVICE& device = *driver.GetRadioDeviceO150(id);
        if (FieldNow(device.Connecte) != 0) {
            pods.push_back({id, FieldNow(device.Accepte) != 0});
        }
    }
    return pods;
}

RadioNetwork DescribeRadio(const DriverExports& driver, bool pilot) {
    return {.Channel = driver.GetCanalReelO150(), .Pilot = pilot, .Pods = ConnectedPods(driver)};
}

} // namespace orvane
