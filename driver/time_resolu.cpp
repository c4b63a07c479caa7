#include "lifecycle_exports.h"
#include "platform/clock.h"

double GetTimeResolu() {
    return orvane::platform::TimeInMicroseconds();
}
