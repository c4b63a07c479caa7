#include "console/laboratory/fall.h"

#include <algorithm>
#include <cmath>

namespace orvane::laboratory {

namespace {

/// arcosh(exp(x)), which neither overflows nor loses the digits of a small x.
double ArcoshOfExp(double x) {
    return x + std::log1p(std::sqrt(-std::expm1(-2.0 * x)));
}

/// With a drag that grows as the square of the speed.
double TimeWithDrag(double gravity, double terminalSpeed, double distance) {
    const double x = gravity * (distance / terminalSpeed) / terminalSpeed;
    return terminalSpeed / gravity * ArcoshOfExp(x);
}

} // namespace

double FallTime(const Card& card, double distance) {
    const double time = card.TerminalSpeed
                            ? TimeWithDrag(card.Gravity, *card.TerminalSpeed, distance)
                            : std::sqrt(2.0 * distance / card.Gravity);
    return std::min(longestFall, time); // The limit also where the time is not a number.
}

} // namespace orvane::laboratory
