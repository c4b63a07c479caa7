#pragma once

/// \file
/// Keeping a library loaded while the toolkit has events or calls pending that refer to it.

#include <dlfcn.h>

namespace orvane::platform {

/// Keeps the library that contains an address loaded until the end of the process.
inline void KeepLoaded(const void* address) {
    Dl_info library{};
    if (dladdr(address, &library) != 0) {
        // cppcheck-suppress leakReturnValNotUsed // Kept on purpose.
        dlopen(library.dli_fname, RTLD_LAZY | RTLD_NOLOAD | RTLD_NODELETE);
    }
}

} // namespace orvane::platform
