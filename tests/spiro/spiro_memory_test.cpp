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

bool FindsTurbine(int patience) {
    tSpiroData donnees{};
    for (int wait = 0; donnees.Connecteur == 0 && wait < patience; ++wait) {
        wxMicroSleep(100);
        LectureDonneesSpiro(&donnees);
    }
    return donnees.Connecteur == 3;
}

TEST(SpiroMemory, FailsAStartAndNothingElse) {
    // A stop waits long enough for the thread on a busy machine, too.
    UsePause([](unsigned long /*milliseconds*/) { wxMicroSleep(wxIsMainThread() ? 5000 : 100); });
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
        FindsTurbine(started ? 20 : 0);
        StopThreadSpiro();
        allocation_failures::End();
        EXPECT_EQ(started, n > allocationsOfStart) << n;
        ASSERT_TRUE(start()) << n;
        EXPECT_TRUE(FindsTurbine(10'000)) << n;
    }
    StopThreadSpiro();
}

} // namespace

/// The toolkit loses the buffer of a text when memory runs out in the middle of its conversion.
extern "C" ORVANE_EXPORT const char*
__lsan_default_suppressions() { // NOLINT(bugprone-reserved-identifier)
    return "leak:wxMBConv::cMB2WC\n";
}
