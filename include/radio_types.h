#pragma once

/// \file
/// Types of the radio network that host, driver and console share.

#include <cstdint>

/// Kind of a radio device, and kind of a radio network configuration.
enum tRadioDeviceType : int32_t {
    RadioAucun = 0,   ///< No device; as a configuration, no network.
    RadioPod = 16,    ///< Pod, the only type that is kept in a table of devices.
    RadioPilote = 17, ///< Pilot.
    RadioType18 = 18, ///< As a configuration, one without pods.
    RadioType19 = 19, ///< As a configuration, one without pods.
    RadioType20 = 20, ///< As a configuration, one that may have pods.
    RadioType21 = 21  ///< As a configuration, one that may have pods.
};

/// Mode of the radio network.
enum tRadioMode : int32_t {
    RadioModeOuvert = 16, ///< Network open.
    RadioModePilote = 17, ///< Pilot mode.
    RadioModeFerme = 19   ///< Network closed.
};
