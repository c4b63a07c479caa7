#include "hosts/session/driver_session.h"

#include "hosts/session/host_error.h"
#include "hosts/session/program_folder.h"
#include "hosts/session/translation.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace orvane {

namespace {

namespace fs = std::filesystem;

struct LibraryNames {
    const char* Built;
    const char* Installed; ///< The name without the number comes with the headers only.
};
constexpr LibraryNames virtualLibrary{"libTvlDriverOrvaneVirtuel.so",
                                      "libTvlDriverOrvaneVirtuel.so." ORVANE_SOVERSION};
constexpr LibraryNames laboratoryLibrary{"libTvlDriverOrvaneLaboratoire.so",
                                         "libTvlDriverOrvaneLaboratoire.so." ORVANE_SOVERSION};
/// From the folder of an installed program.
constexpr const char* installedFolder = ORVANE_LIBRARY_FOLDER;

/// Looks in the program's folder and, within a build, in those above it up to the build's root;
/// then where the library was installed with the program. Otherwise the loader searches its own
/// path.
std::string FindLibrary(const LibraryNames& names) {
    std::error_code ignored;
    const fs::path home = ProgramFolder();
    const fs::path buildRoot = BuildRootAbove(home);
    const fs::path last = buildRoot.empty() ? home : buildRoot;
    for (fs::path at = home;; at = at.parent_path()) {
        if (fs::exists(at / names.Built, ignored)) {
            return (at / names.Built).string();
        }
        if (at == last) {
            break;
        }
    }
    const fs::path installed = (home / installedFolder / names.Installed).lexically_normal();
    return fs::exists(installed, ignored) ? installed.string() : names.Installed;
}

bool Usable(const LoadedDriver& driver) {
    return driver.Library != nullptr && driver.Missing.empty();
}

} // namespace

std::string MissingNames(const std::vector<std::string>& missing) {
    constexpr size_t named = 3;
    std::string text;
    for (size_t i = 0; i < std::min(named, missing.size()); ++i) {
        text += (i == 0 ? "" : ", ") + missing[i];
    }
    return missing.size() > named
               ? text + " and " + std::to_string(missing.size() - named) + " more"
               : text;
}

DriverSession::~DriverSession() {
    if (Usable(Driver)) {
        Driver.Exports.StopDll();
    }
    UnloadDriver(Driver);
}

std::unique_ptr<DriverSession> LoadDriverLibrary(const DriverOptions& options) {
    auto session = std::make_unique<DriverSession>();
    session->Library =
        options.Library.empty()
            ? FindLibrary(options.Scenario.empty() ? virtualLibrary : laboratoryLibrary)
            : fs::absolute(options.Library).lexically_normal().string();
    session->Driver = LoadDriver(session->Library.c_str());
    if (session->Driver.Library == nullptr) {
        throw HostError(
            Translated("The driver library cannot be loaded: %s.", {session->Driver.Error}));
    }
    return session;
}

bool StartDriver(const DriverExports& driver, const DriverOptions& options) {
    const wxString context =
        options.Scenario.empty() ? wxString() : "scenario=" + wxString::FromUTF8(options.Scenario);
    return driver.StartDll(0, context, wxString::FromUTF8(options.Language), -1);
}

std::unique_ptr<DriverSession> OpenDriver(const DriverOptions& options) {
    auto session = LoadDriverLibrary(options);
    if (!Usable(session->Driver)) {
        throw HostError(
            Translated("The library %s is not a driver that this program can use: it lacks %s.",
                       {session->Library, MissingNames(session->Driver.Missing)}));
    }
    const DriverExports& driver = session->Driver.Exports;
    if (!StartDriver(driver, options)) {
        throw HostError(Translated("The driver cannot open its console."), ErrorKind::NoConsole);
    }
    // Adapters that are plugged in from the start are not a change; only the first call that notes
    // them counts their gates.
    driver.GetNombreDeFourcheMaxPortimetre();
    driver.VerifCanaux();
    return session;
}

} // namespace orvane
