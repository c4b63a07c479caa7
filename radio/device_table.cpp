#include "radio/device_table.h"

#include "console/console_port.h"
#include "radio/radio_state.h"

namespace orvane {

namespace {

bool IsInTable(int index) {
    return index >= 0 && index < RadioDeviceCount;
}

template <typename T> void Write(T& field, T value) {
    std::atomic_ref(field).store(value, std::memory_order_relaxed);
}

void WriteDevice(TVL_RADIO_DEVICE& device, tRadioDeviceType type, int32_t connecte) {
    Write(device.Type, type);
    Write(device.Connecte, connecte);
    Write(device.Accepte, 0);
    Write(device.Compteur, uint16_t{0});
}

bool IsAcceptedPod(const TVL_RADIO_DEVICE& device) {
    const std::scoped_lock lock(RadioTableMutex);
    return device.Type == RadioPod && device.Connecte != 0 && device.Accepte != 0;
}

} // namespace

void ClearRadioDevices() {
    const std::scoped_lock lock(RadioTableMutex);
    for (TVL_RADIO_DEVICE& device : RadioDevices) {
        WriteDevice(device, RadioAucun, 0);
    }
    NbPods = 0;
}

void ReleaseAcceptedDevices() {
    for (int index = 0; index < RadioDeviceCount; ++index) {
        if (IsAcceptedPod(RadioDevices[static_cast<std::size_t>(index)])) {
            OVRadioReleaseDevice(index);
        }
    }
}

} // namespace orvane

using namespace orvane;

void DeviceCb(unsigned char id, tRadioDeviceType type, bool connected) {
    if (type != RadioPod || !IsInTable(id)) {
        return;
    }
    const std::scoped_lock lock(RadioTableMutex);
    TVL_RADIO_DEVICE& device = RadioDevices[id];
    if (connected && device.Connecte == 0) {
        ++NbPods;
        WriteDevice(device, type, 1);
    } else if (!connected && device.Connecte == 1) {
        if (NbPods > 0) { // The host can write to the entries, so the count may be wrong.
            --NbPods;
        }
        WriteDevice(device, RadioAucun, 0);
    }
}

void AcceptDeviceO150(int index) {
    TVL_RADIO_DEVICE* device = GetRadioDeviceO150(index);
    if (device == nullptr) {
        return;
    }
    const bool accepted = OVRadioAcceptDevice(index);
    const std::scoped_lock lock(RadioTableMutex);
    Write(device->Accepte, accepted ? 1 : 0);
    Write(device->Compteur, uint16_t{0});
}

int GetNbPodConnectedO150() {
    return NbPods;
}

TVL_RADIO_DEVICE* GetRadioDeviceO150(int index) {
    return IsInTable(index) ? &RadioDevices[static_cast<std::size_t>(index)] : nullptr;
}
