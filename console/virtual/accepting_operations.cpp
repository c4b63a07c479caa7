// Operations for which the virtual console has no hardware: every call is accepted and nothing is
// written.

#include "console/console_port.h"

void ShutdownConsole() {}

bool OVSelectMemory(uint8_t /*connector*/) {
    return true;
}

bool OVGetMemorySize(uint8_t /*connector*/, int /*area*/, uint32_t* /*size*/) {
    return true;
}

bool OVReadMemory(uint8_t /*connector*/, int /*area*/, void* /*buffer*/, uint32_t /*size*/) {
    return true;
}

bool OVReadChannelText(uint8_t /*connector*/, uint8_t /*channel*/, char* /*buffer*/,
                       uint32_t /*size*/) {
    return true;
}

bool OVReadFunctionImage(uint8_t /*connector*/, uint8_t /*channel*/, uint8_t /*function*/,
                         uint8_t* /*buffer*/, uint32_t /*size*/) {
    return true;
}

bool OVWriteAdjustment(uint8_t /*connector*/, int32_t /*channel*/, double /*value*/) {
    return true;
}

bool OVCalibrationStart(uint8_t /*connector*/, uint8_t /*channel*/) {
    return true;
}

bool OVCalibrationAbort(uint8_t /*connector*/, uint8_t /*channel*/) {
    return true;
}

bool OVCalibrationDefault(uint8_t /*connector*/, uint8_t /*channel*/) {
    return true;
}

bool OVAutoStop() {
    return true;
}

bool OVAutoClear() {
    return true;
}

void OVAutoReset() {}

bool OVAutoConfigSynchro(uint8_t /*connector*/, uint8_t /*channel*/, int /*edge*/,
                         uint32_t /*reserved*/, double /*threshold*/, uint8_t* /*synchroId*/) {
    return true;
}

bool OVAutoEnableSynchro(uint8_t /*synchroId*/) {
    return true;
}

bool OVAutoSetPreSynchro(uint8_t /*synchroId*/, uint32_t /*nbPoints*/) {
    return true;
}

bool OVAutoStart() {
    return true;
}

bool OVAutoConfigLog(uint32_t /*nbEntries*/) {
    return true;
}

bool OVAutoGetLogCount(uint32_t* /*count*/) {
    return true;
}

bool OVAutoGetLogEntry(int32_t /*entry*/, tLogEntry* /*logEntry*/) {
    return true;
}

bool OVDacStop(uint8_t /*connector*/, uint8_t /*channel*/) {
    return true;
}

bool OVDacClear(uint8_t /*connector*/, uint8_t /*channel*/) {
    return true;
}

bool OVDacConfig(uint8_t /*connector*/, uint8_t /*channel*/, uint32_t /*dt*/, int32_t /*count*/,
                 int /*oneShot*/) {
    return true;
}

bool OVDacLoad(uint8_t /*connector*/, uint8_t /*channel*/, const double* /*values*/,
               int32_t /*count*/) {
    return true;
}

bool OVDacStart(uint8_t /*connector*/, uint8_t /*channel*/) {
    return true;
}

bool OVDacWrite(uint8_t /*connector*/, uint8_t /*channel*/, double /*value*/) {
    return true;
}

void OVRadioSetCallback(tRadioCallback /*callback*/) {}

bool OVRadioSetConfig(tRadioDeviceType /*type*/, uint8_t /*radioChannel*/, int32_t /*constant*/) {
    return true;
}

bool OVRadioSetLevel(int8_t /*level*/) {
    return true;
}

bool OVRadioSetMode(tRadioMode /*mode*/) {
    return true;
}

bool OVRadioAcceptDevice(int32_t /*index*/) {
    return true;
}

bool OVRadioReleaseDevice(int32_t /*index*/) {
    return true;
}

bool OVRadioPing(uint8_t /*id*/, int32_t /*constantA*/, int32_t /*constantB*/, uint8_t* /*reply*/) {
    return true;
}
