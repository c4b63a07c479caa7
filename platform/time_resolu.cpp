#include "lifecycle_exports.h"
#include "platform/monotonic_counter.h"
#include "platform/user_message.h"

double platform::ReadStandIn(const CounterStandIn& counter) {
    if (counter.Frequency == 0) {
        platform::RingBell();
        return 0.0;
    }
    return Microseconds(counter.Frequency, counter.Read());
}

double GetTimeResolu() {
    return platform::TimeInMicroseconds();
}
