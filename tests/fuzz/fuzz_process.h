#pragma once

/// \file
/// The process that a fuzzer is: a host with the toolkit, a folder of its own, and no real waits.

#include "tests/support/fake_time.h"

#include <wx/app.h>
#include <wx/init.h>

#include <cstdlib>
#include <filesystem>
#include <memory>

/// For LLVMFuzzerInitialize.
inline void BeFuzzedHost() {
    // A fuzzer ends by _exit and leaves it behind.
    static std::string home = std::filesystem::temp_directory_path() / "orvane-fuzz-XXXXXX";
    setenv("HOME", mkdtemp(home.data()), 1);
    std::atexit([] {
        std::error_code ignored;
        std::filesystem::remove_all(home, ignored);
    });
    wxApp::SetInstance(std::make_unique<wxAppConsole>().release());
    static const wxInitializer toolkit;
    if (!toolkit) {
        std::abort();
    }
    orvane::UseFakeTimeBesideSpiro();
}
