// What hosts share, over exports of the test's own.

#include "hosts/session/driver_time.h"
#include "hosts/session/host_error.h"
#include "hosts/session/spirometer.h"

#include <gmock/gmock.h>

#include <chrono>
#include <limits>
#include <thread>

namespace orvane {
namespace {

const GoesOn always = [] { return true; };

double MachineSeconds() {
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch())
        .count();
}

DriverExports DriverWithClock(double (*microseconds)()) {
    DriverExports driver;
    driver.GetTimeResolu = microseconds;
    return driver;
}

TEST(DriverTime, IsWaitedForAsLongAsEitherClockTakes) {
    constexpr double factor = 500.0;
    const DriverExports fast = DriverWithClock([] { return MachineSeconds() * factor * 1e6; });
    const double driverBegin = DriverSeconds(fast);
    const double begin = MachineSeconds();
    WaitFor(fast, 25.0, always);
    EXPECT_GE(DriverSeconds(fast) - driverBegin, 25.0);
    EXPECT_LT(MachineSeconds() - begin, 2.0);

    const DriverExports stopped = DriverWithClock([] { return 0.0; });
    const double stoppedBegin = MachineSeconds();
    WaitFor(stopped, 0.03, always);
    EXPECT_GE(MachineSeconds() - stoppedBegin, 0.03);
    int asked = 0;
    WaitFor(stopped, std::numeric_limits<double>::infinity(), [&] { return ++asked < 3; });
    EXPECT_EQ(asked, 3);
}

double Now = 0.0; // microseconds

TEST(DriverTime, LimitsPollsThatMoveIt) {
    const DriverExports driver = DriverWithClock([] { return Now; });
    const auto poll = [&](double endSec, const GoesOn& goesOn) {
        const auto isDone = [&] { return (Now += 1e6) >= endSec * 1e6; };
        Now = 0.0;
        return PollUntil(driver, {1e-4, 60.0}, isDone, goesOn);
    };
    EXPECT_EQ(poll(59.0, always), PollEnd::Done);
    EXPECT_EQ(poll(100.0, always), PollEnd::TimedOut);
    EXPECT_EQ(Now, 60e6);
    EXPECT_EQ(poll(59.0, [] { return false; }), PollEnd::GivenUp);
    EXPECT_EQ(poll(1.0, [] { return false; }), PollEnd::Done);
}

wxCriticalSection* Section = nullptr;
bool Entered = false;

TEST(Spirometer, AsksForChannelsInsideItsSection) {
    DriverExports driver = DriverWithClock([] { return MachineSeconds() * 1e6; });
    driver.DoMesureSpiro = [](bool) {};
    driver.StopThreadSpiro = [] {};
    driver.StartThreadSpiro = [](wxMutex*, wxCondition*, int32_t, double,
                                 wxCriticalSection* section) {
        Section = section;
        return true;
    };
    driver.VerifCanaux = [] {
        std::thread([] { Entered = Section->TryEnter(); }).join();
        return false;
    };
    wxCriticalSection section;
    Spirometer spirometer(driver, section);
    EXPECT_THROW(NextReading(spirometer, 0), HostError);
    EXPECT_FALSE(Entered);
    EXPECT_TRUE(Section->TryEnter()) << "it is left again";
    Section->Leave();
}

} // namespace
} // namespace orvane
