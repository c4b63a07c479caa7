#pragma once

/// \file
/// A library that something pending in the toolkit still leads to.

#include <dlfcn.h>

namespace orvane::platform {

/// Keeps the library that an address lies in, until the end of the process.
inline void KeepLoaded(const void* address) {
    Dl_info library{};
    if (dladdr(address, &library) != 0) {
        // cppcheck-suppress leakReturnValNotUsed // It is to stay.
        dlopen(library.dli_fname, RTLD_LAZY | RTLD_NOLOAD | RTLD_NODELETE);
    }
}

} // namespace orvane::platform
