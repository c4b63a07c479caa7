#pragma once

/// \file
/// The layers that may stand between the driver and the console at the bottom of the stack.

#include "console/stack/port_table.h"

namespace orvane::console_stack {

/// Called twice at each start: before the console's OVStartLibrary, so that the layer may see that
/// too, and after it, since the console may have requested the layer there. Returns the table of
/// the layer, which forwards to `below`, or `below` itself if the layer was not requested. Both
/// tables stay unchanged until the next start.
using Layer = const PortTable& (*)(const PortTable& below);

/// Refuses calls, delays them and spoils answers, as the console requested (`fault_plan.h`).
const PortTable& Faults(const PortTable& below);

/// Is to record the calls of the port. Not implemented yet.
const PortTable& Recorder(const PortTable& below);

/// From the bottom up: the recorder sees what the driver sees, faults included.
inline constexpr Layer Layers[] = {Faults, Recorder};

} // namespace orvane::console_stack
