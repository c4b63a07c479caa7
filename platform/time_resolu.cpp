#include "lifecycle_exports.h"
#include "platform/monotonic_counter.h"
#include "platform/user_message.h"

namespace orvane {

double platform::ReadStandIn(const CounterStandIn& counter) {
    if (counter.Frequency == 0) {
        platform::RingBell();
        return 0.0;
    }
    return Microseconds(counter.Frequency, counter.Read());
}

} // namespace orvane

using namespace orvane;

double GetTimeResolu() {
    return platform::TimeInMicroseconds();
}
