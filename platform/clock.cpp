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

void platform::PauseOnMachine(int64_t nanoseconds) {
    const int64_t end = MachineNanoseconds() + nanoseconds;
    const timespec when{end / machineFrequency, end % machineFrequency};
    while (clock_nanosleep(CLOCK_MONOTONIC, TIMER_ABSTIME, &when, nullptr) == EINTR) {
    }
}

} // namespace orvane
