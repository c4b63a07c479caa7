#pragma once

/// \file
/// The radio network of pods that a console of model 12336 runs: its devices, its configuration and
/// its mode. StartDll starts it and StopDll stops it. No other model has one; there the calls find
/// the network stopped and the table empty.
///
/// Each start and stop sends the host a wxEVT_MENU command event with the id RadioEventId and the
/// client data 1 or 0. It goes to the top window, or to the application object when there is no
/// such window, as a pending event: the host handles it from its event loop, after the call.
///
/// A configuration, a mode or a level that the console refuses stays as it was.

#include "export_macro.h"
#include "radio_types.h"

#include <cstddef>

/// Id of the event that tells the host of a start or stop of the radio.
inline constexpr int RadioEventId = 7202;

/// Devices that the table has room for; the ids are 0 to 49.
inline constexpr int RadioDeviceCount = 50;

/// One device of the table.
///
/// The console may report a device on a thread of its own, and the field changes at that moment:
/// the host reads each field with std::atomic_ref. The fields of one record change one by one.
struct TVL_RADIO_DEVICE {
    tRadioDeviceType Type; ///< RadioPod while connected, otherwise RadioAucun.
    int32_t Connecte;      ///< 1 while connected, otherwise 0.
    int32_t Accepte;       ///< 1 once accepted; 0 again when the device comes or goes.
    uint16_t Compteur;     ///< Always 0.
};

static_assert(sizeof(TVL_RADIO_DEVICE) == 16 && offsetof(TVL_RADIO_DEVICE, Type) == 0 &&
              offsetof(TVL_RADIO_DEVICE, Connecte) == 4 &&
              offsetof(TVL_RADIO_DEVICE, Accepte) == 8 &&
              offsetof(TVL_RADIO_DEVICE, Compteur) == 12);

/// \name Start and stop, as StartDll and StopDll call them
/// @{

/// Starts the network in its last configuration and mode, and sends the host the event.
ORVANE_EXPORT void StartO150();
/// Sends the host the event, ends the configuration and stops. Devices may still be reported
/// afterwards.
/// \note Blocks up to 3 s, as RadioSetConfigNoneO150.
ORVANE_EXPORT void StopO150();
/// @}

/// \name Devices
/// @{

/// Reports to the table that a device joined or left; the console calls it. Only pods with an id
/// below RadioDeviceCount count, anything else is ignored. Any thread may call it at any time.
ORVANE_EXPORT void DeviceCb(unsigned char id, enum tRadioDeviceType type, bool connected);
/// Makes the console accept a device, and records whether it did. Does nothing for an index outside
/// the table.
/// \param index 0 to 49, the id of the device
ORVANE_EXPORT void AcceptDeviceO150(int index);
/// Pods connected. Any thread may call it.
ORVANE_EXPORT int GetNbPodConnectedO150();
/// The table's record of a device, which lasts as long as the library is loaded. Any thread may
/// call it.
/// \param index 0 to 49, the id of the device
/// \return null for an index outside the table
ORVANE_EXPORT struct TVL_RADIO_DEVICE* GetRadioDeviceO150(int index);
/// Pings a device.
/// \return whether it answered
ORVANE_EXPORT bool RadioPingDeviceO150(unsigned char id);
/// @}

/// \name Configuration and mode
/// @{

/// The radio channel in the console's memory, 11 to 26; 11 if there is none.
ORVANE_EXPORT unsigned char GetCanalReelO150();
/// Configures the network, sending the console what has changed. While the network is stopped it
/// does nothing and gives true.
/// \param type RadioAucun ends the configuration, and the level is not used
/// \param channel radio channel
/// \param level radio level, a signed byte also where char is unsigned
/// \return false if the console refused; a refused level leaves type and channel changed
ORVANE_EXPORT bool RadioSetConfigO150(enum tRadioDeviceType type, unsigned char channel,
                                      char level);
/// Releases the accepted pods, waits until they have left, and ends the configuration. The table is
/// empty afterwards, even if pods stayed or the console refused.
/// \return false if the console refused
/// \note Blocks up to 3 s, and not at all with no pod connected.
ORVANE_EXPORT bool RadioSetConfigNoneO150();
/// Makes the console the pilot of the network, with channel and level of the console's memory. With
/// a channel outside 11 to 26 or a level outside -4 to 17 only the mode changes.
/// \return whether the network is configured; false and nothing done if the memory holds no radio
///         configuration
ORVANE_EXPORT bool RadioSetConfigPilotO150();
/// Changes the mode. Without a configuration it is only recorded, and while the network is stopped
/// nothing happens.
ORVANE_EXPORT void RadioSetModeO150(enum tRadioMode mode);
/// @}
