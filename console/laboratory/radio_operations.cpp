// The radio network of the console's model that has one.

#include "console/console_port.h"
#include "console/laboratory/pods.h"
#include "console/laboratory/timeline.h"

using namespace orvane::laboratory;

void OVRadioSetCallback(tRadioCallback callback) {
    ReportPodsTo(callback);
}

bool OVRadioSetConfig(tRadioDeviceType type, uint8_t radioChannel, int32_t /*constant*/) {
    FireDueEvents();
    if (radioChannel < 11 || radioChannel > 26) {
        return false;
    }
    return type == RadioPilote ? CallPods() : DismissPods();
}

bool OVRadioSetLevel(int8_t level) {
    FireDueEvents();
    return HasRadio() && level >= -4 && level <= 17;
}

bool OVRadioSetMode(tRadioMode mode) {
    FireDueEvents();
    switch (mode) {
    case RadioModeOuvert:
    case RadioModePilote:
        return CallPods();
    case RadioModeFerme:
        return DismissPods();
    }
    return false;
}

bool OVRadioAcceptDevice(int32_t index) {
    FireDueEvents();
    return FindJoinedPod(index).has_value();
}

bool OVRadioReleaseDevice(int32_t index) {
    FireDueEvents();
    return ReleasePod(index);
}

bool OVRadioPing(uint8_t id, int32_t /*constantA*/, int32_t /*constantB*/, uint8_t* reply) {
    FireDueEvents();
    const auto pod = FindJoinedPod(id);
    if (!pod || !pod->Pings) {
        return false;
    }
    *reply = 1;
    return true;
}
