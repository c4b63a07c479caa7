#pragma once

/// \file
/// The console's time: ns since OVStartLibrary, the machine's, a multiple of it, or one that moves
/// by what happens. Any thread reads it.

#include "console/laboratory/scenario/scenario.h"

#include <cstdint>
#include <optional>
#include <string>

namespace orvane::laboratory {

/// What ORVANE_CLOCK says: "real", "virtual", "scaled" or "scaled:60". Nothing for any other text.
/// \param scenario what it overrides; "scaled" keeps its factor
std::optional<ClockSetting> ParseClock(const std::string& text, const ClockSetting& scenario);

/// Begins to count from 0, and makes the driver live by this clock where it isn't the machine's.
void StartClock(const ClockSetting& setting);

/// The driver lives by the machine's clock again. This one goes on.
void StopClock();

/// The driver lives by this clock again.
void ContinueClock();

/// The console's time in ns.
int64_t NowNs();

/// How long it is on the machine's clock until this time of the console, an hour at most. A virtual
/// clock can't tell: a moment.
int64_t MachineNsUntil(int64_t ns);

/// Whether this is the thread that started the clock.
bool IsHostThread();

/// \name What moves a virtual clock beside the driver's pauses; the others don't care
/// @{
void TickMeasurement();              ///< A value was measured: 1 µs.
void TickPoll(int64_t unfinishedNs); ///< A run of this length was found unfinished.
void TickLog();                      ///< A log of gates was found unfinished: 10 ms.
/// @}

} // namespace orvane::laboratory
