#include "hosts/session/driver_time.h"

#include <algorithm>
#include <chrono>
#include <thread>

namespace orvane {

double DriverSeconds(const DriverExports& driver) {
    constexpr double usPerSecond = 1e6;
    return driver.GetTimeResolu() / usPerSecond;
}

void WaitFor(const DriverExports& driver, double seconds, const GoesOn& goesOn) {
    using Clock = std::chrono::steady_clock;
    using Seconds = std::chrono::duration<double>;
    constexpr double longestSleepSec = 20e-3;
    const double driverBegin = DriverSeconds(driver);
    const auto begin = Clock::now();
    // The first sleep is short, because only then the speeds of the clocks can be compared.
    double sleepSec = 1e-3;
    double rest = seconds;
    while (goesOn() && rest > 0.0) {
        std::this_thread::sleep_for(Seconds(std::min(sleepSec, rest)));
        const double passed = Seconds(Clock::now() - begin).count();
        const double driverPassed = DriverSeconds(driver) - driverBegin;
        rest = seconds - std::max(passed, driverPassed);
        const double ratio = driverPassed > passed ? passed / driverPassed : 1.0;
        sleepSec = std::min(longestSleepSec, rest * ratio);
    }
}

PollEnd PollUntil(const DriverExports& driver, Polling polling, const std::function<bool()>& isDone,
                  const GoesOn& goesOn) {
    const double end = DriverSeconds(driver) + polling.TimeoutSec;
    while (!isDone()) {
        if (!goesOn()) {
            return PollEnd::GivenUp;
        }
        if (DriverSeconds(driver) >= end) {
            return PollEnd::TimedOut;
        }
        WaitFor(driver, polling.PauseSec, goesOn);
    }
    return PollEnd::Done;
}

} // namespace orvane
