// A host that is linked with the library.

#include "driver_exports.h"

#include <wx/init.h>

#include <cstdio>

int main() {
    const wxInitializer toolkit;
    if (!StartDll(0, "", "fr", 0)) {
        return 1;
    }
    const int channels = CombienDeCanauxEnEntree();
    std::printf("%d channels, first %s\n", channels, QuelNomPour(0, 0).utf8_str().data());
    StopDll();
}
