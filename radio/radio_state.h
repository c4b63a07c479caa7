#pragma once

/// \file
/// The state of the radio network. It outlives a stop and the connection.

#include "radio_exports.h"

#include <array>
#include <atomic>
#include <mutex>

namespace orvane {

/// Guards every change of the table and of NbPods, which are made by the host's thread and by
/// whichever threads the console reports on. Not held during a call on the port, because the
/// console may report from inside it.
inline std::mutex RadioTableMutex;

/// The devices by id. The host reads them through the pointers it was given and takes no lock, so
/// every field is written atomically.
inline std::array<TVL_RADIO_DEVICE, RadioDeviceCount> RadioDevices{};

/// Pods connected. Read without the lock.
inline std::atomic<int32_t> NbPods{0};

// The rest is written by the host's thread only.

inline bool RadioTableInitialisee = false;             ///< Set by the first StartO150.
inline bool RadioDemarre = false;                      ///< Between StartO150 and StopO150's end.
inline tRadioDeviceType RadioTypeCourant = RadioAucun; ///< Configuration that the console accepted.
inline uint8_t RadioCanalCourant = 0;                  ///< Radio channel of the configuration.
inline int8_t RadioNiveauCourant = 0;                  ///< Radio level of the configuration.
inline tRadioMode RadioMode = RadioModeFerme;          ///< Mode, sent or only noted.

} // namespace orvane
