// The driver over the virtual console with two faults that a host has to live with: it opens no
// console in the language "none", and its adapters change in the middle of a run.

#include "adapter_exports.h"
#include "lifecycle_exports.h"

#include <dlfcn.h>

namespace {

/// The export of the same name in the library behind this one.
template <class Function> Function Behind(Function /*kind*/, const char* name) {
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

} // namespace

bool StartDll(uint32_t reserved, const wxString& contexte, const wxString& langue,
              int32_t dacParam) {
    return langue != "none" && Behind(&StartDll, "StartDll")(reserved, contexte, langue, dacParam);
}

bool VerifCanaux() {
    static int calls = 0;
    constexpr int change = 20;
    return Behind(&VerifCanaux, "VerifCanaux")() && ++calls != change;
}
