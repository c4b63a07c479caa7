#pragma once

/// \file
/// The host that a test program or a fuzzer is.

#include <wx/app.h>

#include <cstdlib>
#include <filesystem>
#include <memory>

/// Gives the process a home folder, which goes with it, and an application object, which the
/// toolkit deletes when it is uninitialised.
template <class Application> void BecomeTestHost() {
    static std::string home = std::filesystem::temp_directory_path() / "orvane-test-XXXXXX";
    setenv("HOME", mkdtemp(home.data()), 1);
    unsetenv("XDG_CONFIG_HOME");
    std::atexit([] {
        std::error_code ignored;
        std::filesystem::remove_all(home, ignored);
    });
    wxApp::SetInstance(std::make_unique<Application>().release());
}
