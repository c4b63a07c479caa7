// Configuration and mode of the radio network, and its start and stop.

#include "connection/console_memory.h"
#include "console/console_port.h"
#include "platform/clock.h"
#include "radio/device_table.h"
#include "radio/host_notification.h"
#include "radio/radio_block.h"
#include "radio/radio_state.h"

namespace orvane {

namespace {

constexpr uint8_t defaultChannel = 11;
constexpr int8_t defaultLevel = 4;
constexpr int32_t configConstant = 1050;
constexpr int32_t pingConstantA = 500;
constexpr int32_t pingConstantB = 5;
constexpr int maxLeaveWaits = 30;
constexpr unsigned long leaveWaitMilliseconds = 100;

RadioBlock StoredConfig() {
    return ReadRadioBlock(std::span(ConsoleMemory).subspan<RadioBlockOffset, RadioBlockSize>());
}

bool ConfigHasPods() {
    return RadioTypeCourant != RadioAucun && RadioTypeCourant != RadioType18 &&
           RadioTypeCourant != RadioType19;
}

bool SendConfig(tRadioDeviceType type, uint8_t canal) {
    if (type == RadioTypeCourant && canal == RadioCanalCourant) {
        return true;
    }
    if (!OVRadioSetConfig(type, canal, configConstant)) {
        return false;
    }
    RadioTypeCourant = type;
    RadioCanalCourant = canal;
    return true;
}

bool SendLevel(int8_t niveau) {
    if (niveau == RadioNiveauCourant) {
        return true;
    }
    if (!OVRadioSetLevel(niveau)) {
        return false;
    }
    RadioNiveauCourant = niveau;
    return true;
}

bool Configure(tRadioDeviceType type, uint8_t canal, int8_t niveau) {
    if (!RadioDemarre) {
        return true;
    }
    if (!SendConfig(type, canal)) {
        return false;
    }
    if (RadioTypeCourant == RadioAucun) {
        RadioNiveauCourant = 0;
        RadioCanalCourant = 0;
        return true;
    }
    return SendLevel(niveau);
}

void WaitForPodsToLeave() {
    for (int waits = 0; NbPods > 0 && waits < maxLeaveWaits; ++waits) {
        platform::Pause(leaveWaitMilliseconds);
    }
}

} // namespace

} // namespace orvane

using namespace orvane;

void StartO150() {
    RadioDemarre = true;
    if (!RadioTableInitialisee) {
        ClearRadioDevices();
        RadioTableInitialisee = true;
    }
    OVRadioSetCallback(DeviceCb);
    NotifyHostOfRadio(true);
}

void StopO150() {
    NotifyHostOfRadio(false);
    RadioSetConfigNoneO150();
    RadioDemarre = false;
}

unsigned char GetCanalReelO150() {
    const uint8_t canal = StoredConfig().Canal;
    return IsRadioChannel(canal) ? canal : defaultChannel;
}

bool RadioPingDeviceO150(unsigned char id) {
    uint8_t reply = 0;
    return OVRadioPing(id, pingConstantA, pingConstantB, &reply);
}

void RadioSetModeO150(tRadioMode mode) {
    if (!RadioDemarre || mode == RadioMode) {
        return;
    }
    if (RadioTypeCourant != RadioAucun && !OVRadioSetMode(mode)) {
        return;
    }
    RadioMode = mode;
}

bool RadioSetConfigO150(tRadioDeviceType type, unsigned char channel, char level) {
    return Configure(type, channel, static_cast<int8_t>(level));
}

bool RadioSetConfigPilotO150() {
    const RadioBlock stored = StoredConfig();
    if (!stored.HasConfig) {
        return false;
    }
    const bool valid = IsRadioChannel(stored.Canal) && IsRadioLevel(stored.Niveau);
    if (valid && !Configure(RadioPilote, stored.Canal, stored.Niveau)) {
        return false;
    }
    RadioSetModeO150(RadioModePilote);
    return valid;
}

bool RadioSetConfigNoneO150() {
    if (ConfigHasPods()) {
        RadioSetModeO150(RadioModeOuvert);
        ReleaseAcceptedDevices();
        RadioSetModeO150(RadioModeFerme);
    }
    WaitForPodsToLeave();
    const bool configured = Configure(RadioAucun, defaultChannel, defaultLevel);
    ClearRadioDevices();
    return configured;
}
