#pragma once

#include "console/laboratory/scenario/scenario.h"

#include <array>
#include <cstdint>

namespace orvane::laboratory {

constexpr size_t consoleMemorySize = 32768;

/// The console's memory: its identity texts and its radio block.
using ConsoleMemory = std::array<uint8_t, consoleMemorySize>;

ConsoleMemory ConsoleMemoryOf(const Scenario& scenario);

} // namespace orvane::laboratory
