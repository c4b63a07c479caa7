#pragma once

/// \file
/// The operations of the port as a list: result, name, parameters, arguments. Code that is
/// the same for every operation is generated from it. What an operation does is documented at its
/// declaration.

#include "console/console_port.h"

#include <type_traits>

// clang-format off

/// Applies the macro `OPERATION` to each operation that a console has to have.
#define ORVANE_REQUIRED_OPERATIONS(OPERATION) \
    OPERATION(bool, OVStartLibrary, (const wxString& contexte, const wxString& langue), \
        (contexte, langue)) \
    OPERATION(bool, OVOpen, (tConsoleInterfaceId interfaceId), (interfaceId)) \
    OPERATION(bool, OVSetLanguage, (int code), (code)) \
    OPERATION(bool, OVSetDataFolder, (const char* folder), (folder)) \
    OPERATION(int, OVCountInterfaces, (int kind), (kind)) \
    OPERATION(bool, OVGetInterfaces, \
        (tInterfaceInfo* info, uint8_t capacity, uint32_t kind, uint8_t* found), \
        (info, capacity, kind, found)) \
    OPERATION(bool, OVConnect, (uint8_t interfaceIndex), (interfaceIndex)) \
    OPERATION(void, OVReadInterfaceState, (uint8_t* a, uint8_t* b), (a, b)) \
    OPERATION(bool, OVReadInterfaceFlags, (uint8_t* a, uint8_t* b), (a, b)) \
    OPERATION(bool, OVGetInterfaceDesc, (tInterfaceDesc* desc), (desc)) \
    OPERATION(void, OVSetPlugCallback, (tPlugCallback callback), (callback)) \
    OPERATION(void, ShutdownConsole, (), ()) \
    OPERATION(void, OVRelease, (), ()) \
    OPERATION(bool, OVSelectMemory, (uint8_t connector), (connector)) \
    OPERATION(bool, OVGetMemorySize, (uint8_t connector, int area, uint32_t* size), \
        (connector, area, size)) \
    OPERATION(bool, OVReadMemory, (uint8_t connector, int area, void* buffer, uint32_t size), \
        (connector, area, buffer, size)) \
    OPERATION(bool, OVGetAdapterDesc, (uint8_t connector, tAdapterDesc* desc), (connector, desc)) \
    OPERATION(bool, OVGetChannelDesc, (uint8_t connector, uint8_t channel, tChannelDesc* desc), \
        (connector, channel, desc)) \
    OPERATION(bool, OVGetFunctionDesc, \
        (uint8_t connector, uint8_t channel, uint8_t function, tFunctionDesc* desc), \
        (connector, channel, function, desc)) \
    OPERATION(bool, OVGetCalibreDesc, \
        (uint8_t connector, uint8_t channel, uint8_t function, uint8_t calibre, \
         tCalibreDesc* desc), (connector, channel, function, calibre, desc)) \
    OPERATION(bool, OVSelectFunction, (uint8_t connector, uint8_t channel, uint8_t function), \
        (connector, channel, function)) \
    OPERATION(bool, OVSelectCalibre, (uint8_t connector, uint8_t channel, uint8_t calibre), \
        (connector, channel, calibre)) \
    OPERATION(bool, OVReadChannelText, \
        (uint8_t connector, uint8_t channel, char* buffer, uint32_t size), \
        (connector, channel, buffer, size)) \
    OPERATION(bool, OVReadFunctionImage, \
        (uint8_t connector, uint8_t channel, uint8_t function, uint8_t* buffer, uint32_t size), \
        (connector, channel, function, buffer, size)) \
    OPERATION(bool, OVWriteAdjustment, (uint8_t connector, int32_t channel, double value), \
        (connector, channel, value)) \
    OPERATION(bool, OVCalibrationStart, (uint8_t connector, uint8_t channel), \
        (connector, channel)) \
    OPERATION(bool, OVCalibrationAbort, (uint8_t connector, uint8_t channel), \
        (connector, channel)) \
    OPERATION(bool, OVCalibrationDefault, (uint8_t connector, uint8_t channel), \
        (connector, channel)) \
    OPERATION(bool, OVSetCalibrationValue, \
        (uint8_t connector, uint8_t channel, uint32_t point, float value), \
        (connector, channel, point, value)) \
    OPERATION(bool, OVReadValue, \
        (uint8_t connector, uint8_t channel, uint32_t count, uint32_t reserved, double* value), \
        (connector, channel, count, reserved, value)) \
    OPERATION(bool, OVAutoStop, (), ()) \
    OPERATION(bool, OVAutoClear, (), ()) \
    OPERATION(void, OVAutoReset, (), ()) \
    OPERATION(bool, OVAutoAddChannel, (uint8_t connector, uint8_t channel), (connector, channel)) \
    OPERATION(bool, OVAutoConfigAcq, (uint32_t dt, uint32_t nbPoints), (dt, nbPoints)) \
    OPERATION(bool, OVAutoGetDt, (uint32_t* dt), (dt)) \
    OPERATION(bool, OVAutoConfigSynchro, \
        (uint8_t connector, uint8_t channel, int edge, uint32_t reserved, double threshold, \
         uint8_t* synchroId), (connector, channel, edge, reserved, threshold, synchroId)) \
    OPERATION(bool, OVAutoEnableSynchro, (uint8_t synchroId), (synchroId)) \
    OPERATION(bool, OVAutoSetPreSynchro, (uint8_t synchroId, uint32_t nbPoints), \
        (synchroId, nbPoints)) \
    OPERATION(bool, OVAutoStart, (), ()) \
    OPERATION(bool, OVAutoGetPointCount, \
        (uint8_t connector, uint8_t channel, uint32_t reserved, uint32_t* count), \
        (connector, channel, reserved, count)) \
    OPERATION(bool, OVAutoGetPoint, \
        (uint8_t connector, uint8_t channel, uint32_t index, uint32_t reserved, double* value), \
        (connector, channel, index, reserved, value)) \
    OPERATION(bool, OVAutoConfigLog, (uint32_t nbEntries), (nbEntries)) \
    OPERATION(bool, OVAutoGetLogCount, (uint32_t* count), (count)) \
    OPERATION(bool, OVAutoGetLogEntry, (int32_t entry, tLogEntry* logEntry), (entry, logEntry)) \
    OPERATION(bool, OVDacStop, (uint8_t connector, uint8_t channel), (connector, channel)) \
    OPERATION(bool, OVDacClear, (uint8_t connector, uint8_t channel), (connector, channel)) \
    OPERATION(bool, OVDacConfig, \
        (uint8_t connector, uint8_t channel, uint32_t dt, int32_t count, int oneShot), \
        (connector, channel, dt, count, oneShot)) \
    OPERATION(bool, OVDacLoad, \
        (uint8_t connector, uint8_t channel, const double* values, int32_t count), \
        (connector, channel, values, count)) \
    OPERATION(bool, OVDacStart, (uint8_t connector, uint8_t channel), (connector, channel)) \
    OPERATION(bool, OVDacWrite, (uint8_t connector, uint8_t channel, double value), \
        (connector, channel, value)) \
    OPERATION(void, OVRadioSetCallback, (tRadioCallback callback), (callback)) \
    OPERATION(bool, OVRadioSetConfig, \
        (tRadioDeviceType type, uint8_t radioChannel, int32_t constant), \
        (type, radioChannel, constant)) \
    OPERATION(bool, OVRadioSetLevel, (int8_t level), (level)) \
    OPERATION(bool, OVRadioSetMode, (tRadioMode mode), (mode)) \
    OPERATION(bool, OVRadioAcceptDevice, (int32_t index), (index)) \
    OPERATION(bool, OVRadioReleaseDevice, (int32_t index), (index)) \
    OPERATION(bool, OVRadioPing, \
        (uint8_t id, int32_t constantA, int32_t constantB, uint8_t* reply), \
        (id, constantA, constantB, reply))

/// The same for those that a console may leave out. Those that it leaves out refuse.
#define ORVANE_OPTIONAL_OPERATIONS(OPERATION) \
    OPERATION(bool, OVAutoGetPoints, \
        (uint8_t connector, uint8_t channel, uint32_t first, uint32_t count, double* values, \
         uint32_t* got), \
        (connector, channel, first, count, values, got))

// clang-format on

/// The same for all.
#define ORVANE_PORT_OPERATIONS(OPERATION)                                                          \
    ORVANE_REQUIRED_OPERATIONS(OPERATION)                                                          \
    ORVANE_OPTIONAL_OPERATIONS(OPERATION)

// The list has to match the declarations, or nothing compiles. If an operation is missing in the
// list, partial consoles don't link.
#define ORVANE_AS_DECLARED(result, name, parameters, arguments)                                    \
    static_assert(std::is_same_v<decltype(name), result parameters>, #name);
ORVANE_PORT_OPERATIONS(ORVANE_AS_DECLARED)
#undef ORVANE_AS_DECLARED
