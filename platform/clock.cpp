#include "platform/clock.h"

#include "platform/user_message.h"

#include <cerrno>

namespace orvane {

double platform::ReadClock(const Clock& clock) {
    if (clock.Frequency == 0) {
        RingBell();
        return 0.0;
    }
    return clock.Read != nullptr ? Microseconds(clock.Frequency, clock.Read())
                                 : Microseconds(machineFrequency, MachineNanoseconds());
}

void platform::PauseOnMachine(unsigned long milliseconds) {
    constexpr long second = 1'000'000'000;
    timespec end = ReadMachineCounter();
    end.tv_nsec += static_cast<long>(milliseconds % 1000) * 1'000'000;
    end.tv_sec += static_cast<time_t>(milliseconds / 1000) + end.tv_nsec / second;
    end.tv_nsec %= second;
    while (clock_nanosleep(CLOCK_MONOTONIC, TIMER_ABSTIME, &end, nullptr) == EINTR) {
    }
}

} // namespace orvane
