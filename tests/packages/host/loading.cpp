// A host that loads the library by the name it is given.

#include "driver_loader.h"

#include <wx/init.h>

#include <cstdio>

int main(int /*argc*/, char** argv) {
    const wxInitializer toolkit;
    LoadedDriver driver = LoadDriver(argv[1]);
    if (driver.Library == nullptr || !driver.Missing.empty() ||
        !driver.Exports.StartDll(0, "", "fr", 0)) {
        return 1;
    }
    const int channels = driver.Exports.CombienDeCanauxEnEntree();
    std::printf("%d channels, first %s\n", channels,
                driver.Exports.QuelNomPour(0, 0).utf8_str().data());
    driver.Exports.StopDll();
    UnloadDriver(driver);
}
