#pragma once

/// \file
/// Loads the driver library at run time and finds its exports by name. A host may copy this folder
/// as it is; it needs the toolkit's base part and the system's dynamic loader.

#include "driver_exports.h"

#include <dlfcn.h>

#include <string>
#include <vector>

/// The exports of a loaded driver, typed: a pointer for each export, of its name. One that the
/// library does not have is null.
struct DriverExports {
// NOLINTNEXTLINE(bugprone-macro-parentheses): a name is no expression.
#define ORVANE_EXPORT_ENTRY(name, symbol) decltype(&::name) name = nullptr;
#include "driver_export_list.h"
};

/// A driver in the process of its host.
struct LoadedDriver {
    void* Library = nullptr;          ///< Handle of the loader; null if the library did not open.
    std::string Error;                ///< Why it did not open.
    DriverExports Exports;            ///< Its exports.
    std::vector<std::string> Missing; ///< Names of exports that it does not have.
};

namespace driver_loader {

template <class Function> void Find(LoadedDriver& driver, Function& slot, const char* symbol) {
    slot = reinterpret_cast<Function>(dlsym(driver.Library, symbol));
    if (slot == nullptr) {
        driver.Missing.emplace_back(symbol);
    }
}

} // namespace driver_loader

/// Opens a driver library and finds its exports. Check Library first, then Missing. Before this
/// call, the host creates its application object and loads its message catalogue.
inline LoadedDriver LoadDriver(const char* path) {
    LoadedDriver driver;
    driver.Library = dlopen(path, RTLD_NOW | RTLD_LOCAL);
    if (driver.Library == nullptr) {
        driver.Error = dlerror();
        return driver;
    }
#define ORVANE_EXPORT_ENTRY(name, symbol) driver_loader::Find(driver, driver.Exports.name, symbol);
#include "driver_export_list.h"
    return driver;
}

/// Unloads the driver; its exports are null afterwards. Call StopDll before.
inline void UnloadDriver(LoadedDriver& driver) {
    if (driver.Library != nullptr) {
        dlclose(driver.Library);
    }
    driver = LoadedDriver{};
}
