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
    // Left behind on purpose: a fuzzer ends by _exit.
    static std::string home = std::filesystem::temp_directory_path() / "orvane-fuzz-XXXXXX";
    setenv("HOME", mkdtemp(home.data()), 1);
    wxApp::SetInstance(std::make_unique<wxAppConsole>().release());
    static const wxInitializer toolkit;
    if (!toolkit) {
        std::abort();
    }
    UseFakeTimeBesideSpiro();
}
