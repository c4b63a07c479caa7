#pragma once

/// \file
/// The layers that may stand between the driver and the console at the bottom of the stack.

#include "console/stack/port_table.h"

namespace orvane::console_stack {

/// Asked at each OVStartLibrary: gives the table of the layer, which hands on to `below`, or
/// `below` itself where nobody wants the layer. Both tables stay as they are until the next start.
using Layer = const PortTable& (*)(const PortTable& below);

/// Refuses calls, delays them and pulls adapters out. Nothing asks for it yet.
const PortTable& Faults(const PortTable& below);

/// Writes down what crosses the port. Nothing asks for it yet.
const PortTable& Recorder(const PortTable& below);

/// From the bottom up: the recorder sees what the driver sees, faults included.
inline constexpr Layer Layers[] = {Faults, Recorder};

} // namespace orvane::console_stack
