#pragma once

/// \file
/// How the card falls.

#include "console/laboratory/scenario/scenario.h"

namespace orvane::laboratory {

constexpr double longestFall = 1e9; ///< s; nobody waits for what takes longer.

/// How long the card's lower edge takes from the release to a distance of 0 m or more below, in s.
/// At most longestFall.
double FallTime(const Card& card, double distance);

} // namespace orvane::laboratory
