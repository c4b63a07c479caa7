#pragma once

/// \file
/// ConsolePort: all that the driver knows of a console and all that it asks of it. A console
/// implements these functions, and the linker binds them to the driver.
///
/// Rules of the port:
/// - A bool result of false means that the operation did nothing and wrote nothing. No operation
///   shows a message or throws.
/// - `connector`, `channel`, `function` and `calibre` count from 0; connector 0 is the console.
/// - Periods are in nanoseconds. Values and thresholds are in the unit of the selected calibre.
/// - The driver always passes `reserved` as 0, and sets every out-parameter to a neutral value
///   before the call, so an operation that succeeds may leave it alone.
/// - The driver calls on the thread of its caller. OVReadValue and the record accessors are also
///   called on the spirometer thread, never at the same time as a call that changes a selection.
/// - A console may call a callback from inside any operation. It must hold no lock of its own
///   meanwhile: the callback calls the console in turn.

#include "console/console_records.h"
#include "export_macro.h"

#include <wx/string.h>

/// Reports an adapter that was plugged in (`plugged` true) or unplugged. Called on the host's
/// thread, never while another thread is in a call of the driver. Throws nothing, so that a console
/// need not be written for exceptions.
using tPlugCallback = void (*)(uint8_t connector, bool plugged);

/// Reports a radio device that joined or left. May be called on any thread, also while the driver
/// is in an operation or in a pause.
using tRadioCallback = void (*)(uint8_t id, tRadioDeviceType type, bool connected);

/// \name Opening and closing, in the order of a start
/// @{

/// First contact; false makes the start fail.
bool OVStartLibrary(const wxString& contexte, const wxString& langue);
/// Opens the console. False is retried after a pause.
bool OVOpen(tConsoleInterfaceId interfaceId);
/// 1: French; 2: any other language.
bool OVSetLanguage(int code);
/// Folder in which the console may keep its cache: ASCII, no separator at its end.
bool OVSetDataFolder(const char* folder);
/// Number of interfaces of this kind; the driver asks for kind 2.
int OVCountInterfaces(int kind);
/// Fills up to `capacity` records and gives their number in `found`.
bool OVGetInterfaces(tInterfaceInfo* info, uint8_t capacity, uint32_t kind, uint8_t* found);
/// Connects to an interface, counting from 0.
bool OVConnect(uint8_t interfaceIndex);
/// Two bytes of state that the driver ignores.
void OVReadInterfaceState(uint8_t* a, uint8_t* b);
/// Two bytes of flags that the driver ignores.
bool OVReadInterfaceFlags(uint8_t* a, uint8_t* b);
/// The console's description of its interface.
bool OVGetInterfaceDesc(tInterfaceDesc* desc);
/// Registers the plug notification and reports at once what is plugged in; null clears it.
void OVSetPlugCallback(tPlugCallback callback);
/// Closes the console. The library also exports it under this plain name.
extern "C" ORVANE_EXPORT void ShutdownConsole();
/// Releases what OVOpen built; does nothing on a console that is not open.
void OVRelease();
/// @}

/// \name Console memory
/// @{

/// Prepares an access to the connector's memory.
bool OVSelectMemory(uint8_t connector);
/// Size of a memory area in bytes.
bool OVGetMemorySize(uint8_t connector, int area, uint32_t* size);
/// Copies `size` bytes of a memory area. From an area that is smaller it copies what there is, and
/// leaves the rest of the buffer alone.
bool OVReadMemory(uint8_t connector, int area, void* buffer, uint32_t size);
/// @}

/// \name Description records and selection
/// @{

/// Describes what is plugged into a connector.
bool OVGetAdapterDesc(uint8_t connector, tAdapterDesc* desc);
/// Describes a channel, with the function that is selected.
bool OVGetChannelDesc(uint8_t connector, uint8_t channel, tChannelDesc* desc);
/// Describes a function, with the calibre that is selected.
bool OVGetFunctionDesc(uint8_t connector, uint8_t channel, uint8_t function, tFunctionDesc* desc);
/// Describes a calibre.
bool OVGetCalibreDesc(uint8_t connector, uint8_t channel, uint8_t function, uint8_t calibre,
                      tCalibreDesc* desc);
/// Selects a function of the channel.
bool OVSelectFunction(uint8_t connector, uint8_t channel, uint8_t function);
/// Selects a calibre of the function that is selected.
bool OVSelectCalibre(uint8_t connector, uint8_t channel, uint8_t calibre);
/// @}

/// \name Channel content and adjustment
/// @{

/// The channel's text block, `size` bytes of it. From a smaller block it copies what there is, and
/// leaves the rest of the buffer alone.
bool OVReadChannelText(uint8_t connector, uint8_t channel, char* buffer, uint32_t size);
/// The image data of a function, `size` bytes of it; a smaller image as in OVReadChannelText.
bool OVReadFunctionImage(uint8_t connector, uint8_t channel, uint8_t function, uint8_t* buffer,
                         uint32_t size);
/// Writes a value to an adjustment channel.
bool OVWriteAdjustment(uint8_t connector, int32_t channel, double value);
/// Starts a calibration of the selected function.
bool OVCalibrationStart(uint8_t connector, uint8_t channel);
/// Aborts the calibration.
bool OVCalibrationAbort(uint8_t connector, uint8_t channel);
/// Restores the default calibration.
bool OVCalibrationDefault(uint8_t connector, uint8_t channel);
/// Sets the value of a calibration point, in the unit of the function.
bool OVSetCalibrationValue(uint8_t connector, uint8_t channel, uint32_t point, float value);
/// @}

/// Measures a channel now; `count` is always 1.
bool OVReadValue(uint8_t connector, uint8_t channel, uint32_t count, uint32_t reserved,
                 double* value);

/// \name Automatic acquisition, its trigger and its log
/// @{

/// Stops a run.
bool OVAutoStop();
/// Discards the samples of a run.
bool OVAutoClear();
/// Discards the channels and the trigger of the last set-up.
void OVAutoReset();
/// Adds a channel to the set-up.
bool OVAutoAddChannel(uint8_t connector, uint8_t channel);
/// `nbPoints` counts per channel, pre-trigger points included.
bool OVAutoConfigAcq(uint32_t dt, uint32_t nbPoints);
/// The period that the console applies.
bool OVAutoGetDt(uint32_t* dt);
/// Programs a trigger on a channel and gives its id. `edge` is the host's with its lowest bit
/// inverted.
bool OVAutoConfigSynchro(uint8_t connector, uint8_t channel, int edge, uint32_t reserved,
                         double threshold, uint8_t* synchroId);
/// Makes the run wait for the trigger.
bool OVAutoEnableSynchro(uint8_t synchroId);
/// Points to keep from before the trigger.
bool OVAutoSetPreSynchro(uint8_t synchroId, uint32_t nbPoints);
/// Starts the run. False is retried after a pause.
bool OVAutoStart();
/// Samples per channel so far, pre-trigger samples included.
bool OVAutoGetPointCount(uint8_t connector, uint8_t channel, uint32_t reserved, uint32_t* count);
/// One sample; `index` counts from the first pre-trigger sample.
bool OVAutoGetPoint(uint8_t connector, uint8_t channel, uint32_t index, uint32_t reserved,
                    double* value);
/// Optional: samples from number `first` on, as OVAutoGetPoint gives them, in one call. Fills the
/// first `got` of the `count` values. The driver reads the others one by one, and all of them when
/// the console refuses or does not have this operation.
bool OVAutoGetPoints(uint8_t connector, uint8_t channel, uint32_t first, uint32_t count,
                     double* values, uint32_t* got);
/// Allocates a log of this many events.
bool OVAutoConfigLog(uint32_t nbEntries);
/// Events logged so far.
bool OVAutoGetLogCount(uint32_t* count);
/// One event of the log, from 0.
bool OVAutoGetLogEntry(int32_t entry, tLogEntry* logEntry);
/// @}

/// \name Analog outputs
/// @{

/// Stops the output.
bool OVDacStop(uint8_t connector, uint8_t channel);
/// Discards the samples of the output.
bool OVDacClear(uint8_t connector, uint8_t channel);
/// `oneShot` 1: a single pass; 0: a loop.
bool OVDacConfig(uint8_t connector, uint8_t channel, uint32_t dt, int32_t count, int oneShot);
/// Loads the samples, in output units; they are valid during the call only.
bool OVDacLoad(uint8_t connector, uint8_t channel, const double* values, int32_t count);
/// Plays the samples.
bool OVDacStart(uint8_t connector, uint8_t channel);
/// Outputs a constant value, in output units.
bool OVDacWrite(uint8_t connector, uint8_t channel, double value);
/// @}

/// \name Radio network
/// @{

/// Registers the radio notification; null clears it. The driver registers it at each start of the
/// radio and never clears it: the callback stays valid after StopDll, until the library is
/// unloaded. A console that reports on a thread of its own has ended that thread by then.
void OVRadioSetCallback(tRadioCallback callback);
/// `constant` is always 1050.
bool OVRadioSetConfig(tRadioDeviceType type, uint8_t radioChannel, int32_t constant);
/// Sets the radio level.
bool OVRadioSetLevel(int8_t level);
/// Sets the mode of the network.
bool OVRadioSetMode(tRadioMode mode);
/// Accepts a device in the network; `index` is its id.
bool OVRadioAcceptDevice(int32_t index);
/// Removes a device from the network; `index` is its id.
bool OVRadioReleaseDevice(int32_t index);
/// `constantA` is always 500, `constantB` always 5.
bool OVRadioPing(uint8_t id, int32_t constantA, int32_t constantB, uint8_t* reply);
/// @}
