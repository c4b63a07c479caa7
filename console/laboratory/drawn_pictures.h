#pragma once

/// \file
/// Pictures for what has none in the scenario: bitmaps of 32 by 32 pixels, magenta where they are
/// transparent.

#include "console/laboratory/scenario/scenario.h"

#include <cstddef>

namespace orvane::laboratory {

/// Of a function: a decaying oscillation over its axes.
Picture DrawFunction();

/// Of a state: one bar more than its number, at most eight.
Picture DrawState(size_t number);

} // namespace orvane::laboratory
