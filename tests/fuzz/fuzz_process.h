#pragma once

/// \file
/// The process that a fuzzer is: a host with the toolkit and a scripted console, and no real waits.

#include "tests/support/fake_time.h"
#include "tests/support/scripted_console.h"
#include "tests/support/test_host.h"

#include <wx/init.h>

/// What holds whatever the bytes are.
inline void Expect(bool held) {
    if (!held) {
        std::abort();
    }
}

/// For LLVMFuzzerInitialize.
inline void BeFuzzedHost() {
    BecomeTestHost<wxAppConsole>();
    static const wxInitializer toolkit;
    Expect(toolkit);
    orvane::UseFakeTimeBesideSpiro();
    Console.Recording = false;
}
