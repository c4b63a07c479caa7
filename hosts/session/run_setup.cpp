#include "hosts/session/run_setup.h"

#include <cmath>
#include <limits>

namespace orvane {

double SetUpRun(const DriverExports& driver, double periodSec, int32_t points, uint32_t mask,
                bool preTrigger) {
    // The driver answers a repeated request from its memory and leaves the console alone. A request
    // in between that differs, here by less than a nanosecond, makes the next one a full set-up.
    const double other = std::nextafter(periodSec, std::numeric_limits<double>::infinity());
    const uint8_t pre = preTrigger ? 1 : 0;
    if (driver.InitAcqBuff(other, points, mask, pre) <= 0.0) {
        return 0.0; // It would also refuse the run, with a second message.
    }
    return driver.InitAcqBuff(periodSec, points, mask, pre);
}

} // namespace orvane
