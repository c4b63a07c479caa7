#pragma once

/// \file
/// The process that a fuzzer is: a host with the toolkit and a scripted console, and no real waits.

#include "tests/support/fake_time.h"
#include "tests/support/scripted_console.h"
#include "tests/support/test_host.h"

#include <wx/init.h>

/// For LLVMFuzzerInitialize.
inline void BeFuzzedHost() {
    BecomeTestHost<wxAppConsole>();
    static const wxInitializer toolkit;
    if (!toolkit) {
        std::abort();
    }
    orvane::UseFakeTimeBesideSpiro();
    Console.Recording = false;
}
