// The spirometer thread is started while memory runs out.

#include "lifecycle_exports.h"
#include "spiro_exports.h"
#include "tests/support/allocation_failures.h"
#include "tests/support/fake_time.h"
#include "tests/support/scripted_console.h"

#include <wx/utils.h>

#include <gmock/gmock.h>

using namespace orvane;

namespace {

int32_t ConnectorTold() {
    tSpiroData donnees{};
    LectureDonneesSpiro(&donnees);
    return donnees.Connecteur;
}

TEST(SpiroMemory, FailsAStartAndNothingElse) {
    UsePause([](unsigned long /*milliseconds*/) { wxMicroSleep(100); });
    Console.Recording = false;
    Console.Memory.assign(32768, 0);
    Console.Connectors[3] = Adapter("482109", {InputChannel("Flow", -20, 20)});
    ASSERT_TRUE(StartDll(0, "", "fr", 0));
    DoMesureSpiro(true);
    wxMutex mutex;
    wxCondition condition(mutex);
    wxCriticalSection section;
    const auto start = [&] { return StartThreadSpiro(&mutex, &condition, 0, 0.0, &section); };

    constexpr std::size_t allocationsOfStart = 2; // The rest are the thread's own.
    for (std::size_t n = 1; n <= 40; ++n) {
        allocation_failures::FailOne(n);
        const bool started = start();
        for (int wait = 0; started && ConnectorTold() == 0 && wait < 20; ++wait) {
            wxMicroSleep(100);
        }
        StopThreadSpiro();
        allocation_failures::End();
        EXPECT_EQ(started, n > allocationsOfStart) << n;

        ASSERT_TRUE(start()) << n;
        for (int wait = 0; ConnectorTold() == 0 && wait < 1000; ++wait) {
            wxMilliSleep(1);
        }
        EXPECT_EQ(ConnectorTold(), 3) << n;
    }
    StopThreadSpiro();
}

} // namespace

/// The toolkit loses the buffer of a text when memory runs out in the middle of its conversion.
extern "C" ORVANE_EXPORT const char*
__lsan_default_suppressions() { // NOLINT(bugprone-reserved-identifier)
    return "leak:wxMBConv::cMB2WC\n";
}
