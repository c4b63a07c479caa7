// Every operation of the port for a console that is not all there: each call is refused and nothing
// is written. They are weak: an operation that the console has itself takes the place of its own
// here.

#include "console/console_port.h"

#define ORVANE_WEAK __attribute__((weak))

ORVANE_WEAK bool OVStartLibrary(const wxString& /*contexte*/, const wxString& /*langue*/) {
    return false;
}

ORVANE_WEAK bool OVOpen(tConsoleInterfaceId /*interfaceId*/) {
    return false;
}

ORVANE_WEAK bool OVSetLanguage(int /*code*/) {
    return false;
}

ORVANE_WEAK bool OVSetDataFolder(const char* /*folder*/) {
    return false;
}

ORVANE_WEAK int OVCountInterfaces(int /*kind*/) {
    return 0;
}

ORVANE_WEAK bool OVGetInterfaces(tInterfaceInfo* /*info*/, uint8_t /*capacity*/, uint32_t /*kind*/,
                                 uint8_t* /*found*/) {
    return false;
}

ORVANE_WEAK bool OVConnect(uint8_t /*interfaceIndex*/) {
    return false;
}

ORVANE_WEAK void OVReadInterfaceState(uint8_t* /*a*/, uint8_t* /*b*/) {}

ORVANE_WEAK bool OVReadInterfaceFlags(uint8_t* /*a*/, uint8_t* /*b*/) {
    return false;
}

ORVANE_WEAK bool OVGetInterfaceDesc(tInterfaceDesc* /*desc*/) {
    return false;
}

ORVANE_WEAK void OVSetPlugCallback(tPlugCallback /*callback*/) {}

ORVANE_WEAK void ShutdownConsole() {}

ORVANE_WEAK void OVRelease() {}

ORVANE_WEAK bool OVSelectMemory(uint8_t /*connector*/) {
    return false;
}

ORVANE_WEAK bool OVGetMemorySize(uint8_t /*connector*/, int /*area*/, uint32_t* /*size*/) {
    return false;
}

ORVANE_WEAK bool OVReadMemory(uint8_t /*connector*/, int /*area*/, void* /*buffer*/,
                              uint32_t /*size*/) {
    return false;
}

ORVANE_WEAK bool OVGetAdapterDesc(uint8_t /*connector*/, tAdapterDesc* /*desc*/) {
    return false;
}

ORVANE_WEAK bool OVGetChannelDesc(uint8_t /*connector*/, uint8_t /*channel*/,
                                  tChannelDesc* /*desc*/) {
    return false;
}

ORVANE_WEAK bool OVGetFunctionDesc(uint8_t /*connector*/, uint8_t /*channel*/, uint8_t /*function*/,
                                   tFunctionDesc* /*desc*/) {
    return false;
}

ORVANE_WEAK bool OVGetCalibreDesc(uint8_t /*connector*/, uint8_t /*channel*/, uint8_t /*function*/,
                                  uint8_t /*calibre*/, tCalibreDesc* /*desc*/) {
    return false;
}

ORVANE_WEAK bool OVSelectFunction(uint8_t /*connector*/, uint8_t /*channel*/,
                                  uint8_t /*function*/) {
    return false;
}

ORVANE_WEAK bool OVSelectCalibre(uint8_t /*connector*/, uint8_t /*channel*/, uint8_t /*calibre*/) {
    return false;
}

ORVANE_WEAK bool OVReadChannelText(uint8_t /*connector*/, uint8_t /*channel*/, char* /*buffer*/,
                                   uint32_t /*size*/) {
    return false;
}

ORVANE_WEAK bool OVReadFunctionImage(uint8_t /*connector*/, uint8_t /*channel*/,
                                     uint8_t /*function*/, uint8_t* /*buffer*/, uint32_t /*size*/) {
    return false;
}

ORVANE_WEAK bool OVWriteAdjustment(uint8_t /*connector*/, int32_t /*channel*/, double /*value*/) {
    return false;
}

ORVANE_WEAK bool OVCalibrationStart(uint8_t /*connector*/, uint8_t /*channel*/) {
    return false;
}

ORVANE_WEAK bool OVCalibrationAbort(uint8_t /*connector*/, uint8_t /*channel*/) {
    return false;
}

ORVANE_WEAK bool OVCalibrationDefault(uint8_t /*connector*/, uint8_t /*channel*/) {
    return false;
}

ORVANE_WEAK bool OVSetCalibrationValue(uint8_t /*connector*/, uint8_t /*channel*/,
                                       uint32_t /*point*/, float /*value*/) {
    return false;
}

ORVANE_WEAK bool OVReadValue(uint8_t /*connector*/, uint8_t /*channel*/, uint32_t /*count*/,
                             uint32_t /*reserved*/, double* /*value*/) {
    return false;
}

ORVANE_WEAK bool OVAutoStop() {
    return false;
}

ORVANE_WEAK bool OVAutoClear() {
    return false;
}

ORVANE_WEAK void OVAutoReset() {}

ORVANE_WEAK bool OVAutoAddChannel(uint8_t /*connector*/, uint8_t /*channel*/) {
    return false;
}

ORVANE_WEAK bool OVAutoConfigAcq(uint32_t /*dt*/, uint32_t /*nbPoints*/) {
    return false;
}

ORVANE_WEAK bool OVAutoGetDt(uint32_t* /*dt*/) {
    return false;
}

ORVANE_WEAK bool OVAutoConfigSynchro(uint8_t /*connector*/, uint8_t /*channel*/, int /*edge*/,
                                     uint32_t /*reserved*/, double /*threshold*/,
                                     uint8_t* /*synchroId*/) {
    return false;
}

ORVANE_WEAK bool OVAutoEnableSynchro(uint8_t /*synchroId*/) {
    return false;
}

ORVANE_WEAK bool OVAutoSetPreSynchro(uint8_t /*synchroId*/, uint32_t /*nbPoints*/) {
    return false;
}

ORVANE_WEAK bool OVAutoStart() {
    return false;
}

ORVANE_WEAK bool OVAutoGetPointCount(uint8_t /*connector*/, uint8_t /*channel*/,
                                     uint32_t /*reserved*/, uint32_t* /*count*/) {
    return false;
}

ORVANE_WEAK bool OVAutoGetPoint(uint8_t /*connector*/, uint8_t /*channel*/, uint32_t /*index*/,
                                uint32_t /*reserved*/, double* /*value*/) {
    return false;
}

ORVANE_WEAK bool OVAutoConfigLog(uint32_t /*nbEntries*/) {
    return false;
}

ORVANE_WEAK bool OVAutoGetLogCount(uint32_t* /*count*/) {
    return false;
}

ORVANE_WEAK bool OVAutoGetLogEntry(int32_t /*entry*/, tLogEntry* /*logEntry*/) {
    return false;
}

ORVANE_WEAK bool OVDacStop(uint8_t /*connector*/, uint8_t /*channel*/) {
    return false;
}

ORVANE_WEAK bool OVDacClear(uint8_t /*connector*/, uint8_t /*channel*/) {
    return false;
}

ORVANE_WEAK bool OVDacConfig(uint8_t /*connector*/, uint8_t /*channel*/, uint32_t /*dt*/,
                             int32_t /*count*/, int /*oneShot*/) {
    return false;
}

ORVANE_WEAK bool OVDacLoad(uint8_t /*connector*/, uint8_t /*channel*/, const double* /*values*/,
                           int32_t /*count*/) {
    return false;
}

ORVANE_WEAK bool OVDacStart(uint8_t /*connector*/, uint8_t /*channel*/) {
    return false;
}

ORVANE_WEAK bool OVDacWrite(uint8_t /*connector*/, uint8_t /*channel*/, double /*value*/) {
    return false;
}

ORVANE_WEAK void OVRadioSetCallback(tRadioCallback /*callback*/) {}

ORVANE_WEAK bool OVRadioSetConfig(tRadioDeviceType /*type*/, uint8_t /*radioChannel*/,
                                  int32_t /*constant*/) {
    return false;
}

ORVANE_WEAK bool OVRadioSetLevel(int8_t /*level*/) {
    return false;
}

ORVANE_WEAK bool OVRadioSetMode(tRadioMode /*mode*/) {
    return false;
}

ORVANE_WEAK bool OVRadioAcceptDevice(int32_t /*index*/) {
    return false;
}

ORVANE_WEAK bool OVRadioReleaseDevice(int32_t /*index*/) {
    return false;
}

ORVANE_WEAK bool OVRadioPing(uint8_t /*id*/, int32_t /*constantA*/, int32_t /*constantB*/,
                             uint8_t* /*reply*/) {
    return false;
}
