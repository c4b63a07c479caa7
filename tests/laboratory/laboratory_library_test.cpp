// The laboratory's library goes while the thread of its pods runs.

#include "driver_loader.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>

namespace {

TEST(LaboratoryLibrary, IsUnloadedUnderThePods) {
    const std::string file = std::getenv("HOME") + std::string("/pods.toml");
    std::ofstream(file) << "scenario = 1\nconsole = { model = 12336 }\n[radio]\npods = [\n"
                           "{ id = 1, joins = 1e-4 }, { id = 2, joins = 2e-4 },\n"
                           "{ id = 3, joins = 3e-4 }, { id = 4, joins = 100 }]\n";
    for (int load = 0; load < 12; ++load) {
        setenv("ORVANE_CLOCK", load % 3 == 2 ? "virtual" : "real", 1);
        LoadedDriver driver = LoadDriver(LABORATORY);
        ASSERT_NE(driver.Library, nullptr) << driver.Error;
        ASSERT_TRUE(driver.Exports.StartDll(0, wxString("scenario=" + file), "fr", 0));
        ASSERT_TRUE(driver.Exports.RadioSetConfigPilotO150());
        if (load % 2 == 1) {
            const pid_t child = fork(); // It has no such thread, and needs none to stop.
            if (child == 0) {
                driver.Exports.ShutdownConsole();
                UnloadDriver(driver);
                _exit(0);
            }
            int status = -1;
            waitpid(child, &status, 0);
            EXPECT_EQ(status, 0);
        }
        UnloadDriver(driver);
        EXPECT_EQ(dlopen(LABORATORY, RTLD_NOLOAD | RTLD_NOW), nullptr) << "it is really gone";
    }
}

} // namespace
