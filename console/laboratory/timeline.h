#pragma once

/// \file
/// Adapters that are plugged and pulled at their time on the console's clock. What is due happens
/// at the beginning of the next operation, on the thread that calls it, and is reported there.

#include "console/console_port.h"

#include <atomic>
#include <cstdint>
#include <limits>

namespace orvane::laboratory {

/// When the next event is due; the greatest number: never. Read by any thread.
inline std::atomic<int64_t> NextEventNs{std::numeric_limits<int64_t>::max()};

/// Begins the scenario's timeline anew. What is due by now happens without a report.
void StartTimeline();

/// Nothing is due any more.
void StopTimeline();

/// Lets everything that is due happen, in its order. Does nothing inside a report.
void FireEvents();

/// At the beginning of each operation that the spirometer's thread never calls.
void FireDueEvents();

/// At the beginning of the others. On any thread but the one that started the clock, what is due
/// waits.
void FireDueEventsOfHost();

/// Registers the plug notification and reports what is plugged in; null clears it.
void RegisterPlugCallback(tPlugCallback callback);

} // namespace orvane::laboratory
