// The spirometer thread with a turbine to find, a host beside it, and pauses that the test makes.

#include "adapter_exports.h"
#include "channel_exports.h"
#include "lifecycle_exports.h"
#include "radio_exports.h"
#include "spiro_exports.h"
#include "tests/support/allocation_failures.h"
#include "tests/support/answer_text.h"
#include "tests/support/fake_time.h"
#include "tests/support/scripted_console.h"

#include <wx/init.h>
#include <wx/utils.h>

#include <gmock/gmock.h>
#include <sys/wait.h>
#include <unistd.h>

#include <semaphore>
#include <thread>

using namespace orvane;
using namespace std::chrono_literals;

namespace {

constexpr int32_t connecteur = 3;

std::atomic<int64_t> Microseconds{0};
std::atomic<unsigned long> LastPause{0}; ///< Of the thread.
unsigned long HostPaused = 0;            ///< Milliseconds, in all.

/// \name The end of a pass, as the test says
/// @{
bool Stepping = false;
std::binary_semaphore PassOver{0};
std::binary_semaphore NextPass{0};
/// @}

/// The thread's pauses are over at once, the host's soon; in the thread's time they last.
void Pause(unsigned long milliseconds) {
    if (wxThread::IsMain()) {
        HostPaused += milliseconds;
        wxMilliSleep(2);
        return;
    }
    Microseconds += static_cast<int64_t>(milliseconds) * 1000;
    LastPause = milliseconds;
    if (Stepping) {
        PassOver.release();
        NextPass.acquire();
    } else {
        wxMicroSleep(100);
    }
}

class SpiroThread : public testing::Test {
protected:
    SpiroThread() {
        Console.Recording = false;
        Console.Memory.assign(32768, 0);
        UseCounter(1'000'000, [] { return Microseconds.load(); });
        UsePause(Pause);
        StartDll(0, "", "fr", 0);
    }
    ~SpiroThread() override {
        StopThreadSpiro();
        StopDll();
    }

    bool Start() {
        return StartThreadSpiro(&Mutex, &Condition, 0, 0.0, &Section);
    }
    void PlugTurbine() {
        const wxCriticalSectionLocker inside(Section);
        Console.Plug(connecteur, Adapter("482109", {InputChannel("Flow", -20, 20)}));
        VerifCanaux();
    }
    /// Lets the thread do one pass, with the host's mutex taken. Returns whether it signals.
    bool Pass() {
        const wxMutexLocker lock(Mutex);
        NextPass.release();
        if (PassOver.try_acquire_for(250ms)) {
            return false;
        }
        AtSignal = Told().Echantillons[0];
        EXPECT_EQ(Condition.WaitTimeout(10'000), wxCOND_NO_ERROR) << "waits for the host's mutex";
        PassOver.acquire();
        return true;
    }
    static tSpiroData Told() {
        tSpiroData donnees{};
        LectureDonneesSpiro(&donnees);
        return donnees;
    }
    static bool FindsTurbine(int patience = 10'000) {
        for (int wait = 0; Told().Connecteur != connecteur && wait < patience; ++wait) {
            wxMilliSleep(1);
        }
        return Told().Connecteur == connecteur;
    }

    wxMutex Mutex;
    wxCondition Condition{Mutex};
    wxCriticalSection Section;
    tSpiroSample AtSignal{}; ///< What the host may read when it is signalled.
};

TEST_F(SpiroThread, SearchesShowsAndMeasures) {
    const auto searches = "0 | 100 | -1 | 0 | 0 | ";
    const auto shows = "0 | 25 | 482109 | 3 | 0 | ";
    const auto pass = [this] {
        const bool signals = Pass();
        const tSpiroData told = Told();
        return Text(signals, LastPause, told.CodeAdaptateur, told.Connecteur,
                    told.Echantillons[0].DureeUs);
    };
    Stepping = true;
    ASSERT_TRUE(Start());
    PassOver.acquire();
    EXPECT_EQ(pass(), searches) << "a second search";
    PlugTurbine();
    EXPECT_EQ(pass(), shows);
    EXPECT_EQ(Told().NbEchantillons, 1);

    Console.SetValue(connecteur, 0, -2.0);
    DoMesureSpiro(true);
    EXPECT_TRUE(Pass());
    EXPECT_NEAR(AtSignal.DureeUs, 125'000.0, 1e-6) << "all since the search ended";
    EXPECT_TRUE(Pass());
    EXPECT_NEAR(AtSignal.VolumeNegatif, 0.05, 1e-12);
    EXPECT_EQ(SensTurbineSpiro(), -1);
    DoMesureSpiro(false);
    EXPECT_EQ(pass(), shows);

    Console.Unplug(connecteur);
    VerifCanaux();
    EXPECT_EQ(pass(), searches) << "the turbine left";
    PlugTurbine();
    EXPECT_EQ(pass(), shows);

    Stepping = false;
    NextPass.release();
    StopThreadSpiro();
    EXPECT_EQ(Text(Told().CodeAdaptateur, Told().NbEchantillons, Told().Connecteur),
              "-1 | 0 | 0 | ");
}

/// While other adapters come and go inside operations that need no section.
TEST_F(SpiroThread, SharesItsChannelsAndItsRecordWithTheHost) {
    PlugTurbine();
    Console.SetValue(connecteur, 0, 8.0);
    DoMesureSpiro(true);
    Console.OnCall = [](const std::string& operation) {
        static uint8_t other = 10;
        if (operation == "OVRadioPing") {
            Console.Unplug(other);
            other = static_cast<uint8_t>(other == 99 ? 10 : other + 1);
            Console.Plug(other, Adapter("1", {InputChannel("U", 0, 1)}));
        }
    };
    ASSERT_TRUE(Start());
    const int64_t end = Microseconds + 200 * 25'000;
    for (bool inwards = false; Microseconds < end; inwards = !inwards) {
        Console.SetValue(connecteur, 0, inwards ? 8.0 : -4.0);
        const tSpiroSample step = Told().Echantillons[0];
        // The volume, the flow, the time and the direction belong to one another.
        EXPECT_EQ(step.VolumePositif - step.VolumeNegatif,
                  step.Sens * step.Debit * step.DureeUs / 1e6);
        EXPECT_EQ(step.Debit, step.DureeUs == 0.0 ? 0.0 : step.Sens > 0 ? 8.0 : 4.0);
        RadioPingDeviceO150(1);
        const wxCriticalSectionLocker inside(Section);
        EXPECT_EQ(DetecteTurbineSpiro(nullptr), connecteur);
        EXPECT_EQ(GetCodeAdaptSpiro(connecteur), 482109);
        VerifCanaux();
    }
}

TEST_F(SpiroThread, StartsAndStopsInQuickSuccession) {
    PlugTurbine();
    DoMesureSpiro(true);
    for (int round = 0; round < 100; ++round) {
        EXPECT_TRUE(Start());
        EXPECT_TRUE(round % 3 != 0 || Start());
        if (round % 4 == 0) { // A host may also stop it while it holds its own objects.
            const wxMutexLocker lock(Mutex);
            const wxCriticalSectionLocker inside(Section);
            wxMilliSleep(1);
            HostPaused = 0;
            StopThreadSpiro();
            EXPECT_LT(HostPaused, 1000U) << "the thread waits for neither";
        } else if (round % 4 != 1) {
            StopThreadSpiro();
        }
        EXPECT_TRUE(round % 4 == 1 || Told().NbEchantillons == 0);
    }
    EXPECT_FALSE(StartThreadSpiro(nullptr, &Condition, 0, 0.0, &Section) ||
                 StartThreadSpiro(&Mutex, nullptr, 0, 0.0, &Section) ||
                 StartThreadSpiro(&Mutex, &Condition, 0, 0.0, nullptr));
}

TEST_F(SpiroThread, LeavesAHostWaitingForASlowConsoleAfterOneSecond) {
    static std::binary_semaphore asked{0};
    static std::binary_semaphore answered{0};
    PlugTurbine();
    Console.OnCall = [](const std::string& operation) {
        if (operation == "OVReadValue") {
            asked.release();
            answered.acquire();
        }
    };
    DoMesureSpiro(true);
    ASSERT_TRUE(Start());
    asked.acquire();
    HostPaused = 0;
    StopThreadSpiro();
    EXPECT_EQ(HostPaused, 1000U);
    EXPECT_FALSE(Start()) << "never two threads";
    Console.OnCall = nullptr;
    answered.release();
    StopThreadSpiro();
    EXPECT_TRUE(Start());
}

TEST_F(SpiroThread, HasItsTurnBesideAHostThatHardlyLeavesItsSection) {
    static std::atomic<int> steps{0};
    platform::InstalledClock = nullptr;
    Console.OnCall = [](const std::string& operation) { steps += operation == "OVReadValue"; };
    PlugTurbine();
    DoMesureSpiro(true);
    ASSERT_TRUE(Start());
    const auto workFor = [](std::chrono::microseconds time) {
        const auto end = std::chrono::steady_clock::now() + time;
        while (std::chrono::steady_clock::now() < end) {
        }
    };
    // Counted in stays and not in seconds: a busy machine holds up both threads.
    for (int stays = 0; stays < 4000 && steps < 20; ++stays) {
        Section.Enter();
        workFor(500us);
        Section.Leave();
        workFor(5us);
    }
    EXPECT_GE(steps, 20);
}

TEST_F(SpiroThread, FailsItsStartAndNothingElseWhileMemoryRunsOut) {
    PlugTurbine();
    constexpr std::size_t allocationsOfStart = 2; // The rest are the thread's own.
    for (std::size_t n = 1; n <= 40; ++n) {
        allocation_failures::FailOne(n);
        const bool started = Start();
        FindsTurbine(started ? 2 : 0);
        StopThreadSpiro();
        allocation_failures::End();
        EXPECT_EQ(started, n > allocationsOfStart) << n;
        ASSERT_TRUE(Start()) << n;
        EXPECT_TRUE(FindsTurbine()) << n;
    }
}

TEST_F(SpiroThread, StartsInAChildOfTheProcessToo) {
#ifdef __SANITIZE_THREAD__
    GTEST_SKIP() << "ThreadSanitizer allows no thread in a child";
#endif
    PlugTurbine();
    ASSERT_TRUE(Start());
    // AddressSanitizer allows no fork while a thread is still being started.
    ASSERT_TRUE(FindsTurbine());
    wxMutex mutexOfChild;
    wxCondition conditionOfChild(mutexOfChild);
    wxCriticalSection sectionOfChild;
    Section.Enter(); // The thread is nowhere among the channels.
    const pid_t child = fork();
    if (child == 0) {
        const bool forgotten = Told().NbEchantillons == 0;
        const bool started =
            StartThreadSpiro(&mutexOfChild, &conditionOfChild, 0, 0.0, &sectionOfChild);
        const bool found = FindsTurbine();
        StopThreadSpiro();
        _exit(forgotten && started && found ? 0 : 1);
    }
    Section.Leave();
    int status = -1;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
}

TEST_F(SpiroThread, IsNotStartedWithoutTheToolkit) {
    EXPECT_EXIT(
        {
            wxUninitialize();
            _exit(Start() ? 1 : 0);
        },
        testing::ExitedWithCode(0), "");
}

} // namespace

/// The toolkit loses the buffer of a text when memory runs out in the middle of its conversion.
extern "C" ORVANE_EXPORT const char*
__lsan_default_suppressions() { // NOLINT(bugprone-reserved-identifier)
    return "leak:wxMBConv::cMB2WC\n";
}
