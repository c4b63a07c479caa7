// The clock that stands in for a running acquisition: a count that follows the elapsed time and is
// updated only when it is read. One clock for all channels; runs on the host's thread.

#include "console/console_port.h"
#include "platform/clock.h"

#include <algorithm>

namespace orvane {

namespace {

struct AcquisitionClock {
    uint32_t ClockPeriodeNs = 0; ///< Period of the points, ns.
    uint32_t ClockTotal = 0;     ///< The count stops there.
    uint32_t ClockPoints = 0;    ///< The count at the last read.
    double ClockDepart = 0.0;    ///< Time of the set-up, s.
    double ClockProchain = 0.0;  ///< From then on a read updates the count, s.
};

AcquisitionClock Clock;

double NowInSeconds() {
    return platform::TimeInMicroseconds() / 1e6;
}

/// The whole periods in a time, at most `total`; a period of 0 counts as full.
uint32_t PointsIn(double elapsed, double period, uint32_t total) {
    const double points = elapsed / period;
    return points < total ? static_cast<uint32_t>(std::max(points, 0.0)) : total;
}

} // namespace

} // namespace orvane

using namespace orvane;

bool OVAutoConfigAcq(uint32_t dt, uint32_t nbPoints) {
    const double now = NowInSeconds();
    Clock = {dt, nbPoints, 0, now, now};
    return true;
}

bool OVAutoGetPointCount(uint8_t /*connector*/, uint8_t /*channel*/, uint32_t /*reserved*/,
                         uint32_t* count) {
    if (Clock.ClockPoints < Clock.ClockTotal) {
        const double now = NowInSeconds();
        if (now >= Clock.ClockProchain) {
            const double period = Clock.ClockPeriodeNs / 1e9;
            Clock.ClockPoints = PointsIn(now - Clock.ClockDepart, period, Clock.ClockTotal);
            Clock.ClockProchain = now + period;
        }
    }
    *count = Clock.ClockPoints;
    return true;
}

bool OVAutoGetDt(uint32_t* dt) {
    *dt = Clock.ClockPeriodeNs;
    return true;
}
