// The library goes, or the process ends, while the spirometer thread runs.

#include "driver_loader.h"

#include <wx/init.h>
#include <wx/utils.h>

#include <gmock/gmock.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>

namespace {

bool LeaksDoNotCount = false;

struct SpiroHost {
    explicit SpiroHost(const char* library) : Driver(LoadDriver(library)) {
        Driver.Exports.StartDll(0, "", "fr", 0);
        Driver.Exports.DoMesureSpiro(true);
        Driver.Exports.StartThreadSpiro(&Mutex, &Condition, 0, 0.0, &Section);
    }

    wxMutex Mutex;
    wxCondition Condition{Mutex};
    wxCriticalSection Section;
    LoadedDriver Driver;
};

TEST(SpiroLibrary, IsUnloadedUnderTheThread) {
    testing::internal::CaptureStderr();
    for (int load = 0; load < 12; ++load) {
        const char* const library = load % 2 == 0 ? ORVANE_LIBRARY : LABORATORY;
        SpiroHost host(library);
        if (load % 4 == 3) { // It measures.
            const wxMutexLocker lock(host.Mutex);
            EXPECT_EQ(host.Condition.WaitTimeout(10'000), wxCOND_NO_ERROR);
        } else if (load % 4 == 2) { // It searches.
            wxMilliSleep(10);
        }
        UnloadDriver(host.Driver);
        EXPECT_EQ(dlopen(library, RTLD_NOLOAD | RTLD_NOW), nullptr) << "it is really gone";
        const pid_t child = fork(); // Nothing of it is called.
        if (child == 0) {
            _exit(0);
        }
        int status = -1;
        waitpid(child, &status, 0);
        EXPECT_EQ(status, 0);
    }
    testing::internal::GetCapturedStderr();
}

void LeaveAndForgetTheThread(bool toolkitFirst) {
    LeaksDoNotCount = true;
    const SpiroHost host(LABORATORY);
    if (toolkitFirst) {
        wxUninitialize();
    }
    std::exit(0);
}

TEST(SpiroLibraryDeathTest, LetsAHostLeaveThatForgotTheThread) {
    EXPECT_EXIT(LeaveAndForgetTheThread(false), testing::ExitedWithCode(0), "");
    EXPECT_EXIT(LeaveAndForgetTheThread(true), testing::ExitedWithCode(0), "");
}

} // namespace

/// What the leak checker asks at the end of a process.
extern "C" ORVANE_EXPORT int __lsan_is_turned_off() { // NOLINT(bugprone-reserved-identifier)
    return LeaksDoNotCount ? 1 : 0;
}
