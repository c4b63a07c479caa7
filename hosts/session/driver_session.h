#pragma once

#include "driver_loader.h"

#include <memory>
#include <string>

namespace orvane {

/// Which driver a host works with.
struct DriverOptions {
    std::string Library;         ///< Path of the library; empty: one found next to the program.
    std::string Language = "fr"; ///< Language code for StartDll.
    /// Name or file of a scenario of the laboratory, whose library is found unless one is given.
    std::string Scenario = {};
};

/// A driver that is loaded and started. The destructor stops and unloads it.
struct DriverSession {
    DriverSession() = default;
    DriverSession(const DriverSession&) = delete;
    DriverSession& operator=(const DriverSession&) = delete;
    ~DriverSession();

    std::string Library; ///< Path of the loaded library.
    LoadedDriver Driver;
};

/// Loads the library; the driver is not started, and exports may be missing. Throws HostError if
/// the library does not load.
std::unique_ptr<DriverSession> LoadDriverLibrary(const DriverOptions& options);

/// The first of the exports that a library lacks, for people.
std::string MissingNames(const std::vector<std::string>& missing);

/// Calls StartDll with the language and the scenario of the options.
bool StartDriver(const DriverExports& driver, const DriverOptions& options);

/// Loads the library and starts the driver; the channels are not enumerated yet. Throws HostError
/// if the library does not load, lacks exports, or finds no console. Blocks as long as StartDll
/// does.
std::unique_ptr<DriverSession> OpenDriver(const DriverOptions& options);

} // namespace orvane
