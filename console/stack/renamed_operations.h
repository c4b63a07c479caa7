#pragma once

/// \file
/// Included with -include into the sources of a console at the bottom of the stack, and
/// nowhere else. It gives the operations their names for the linker.

#include "console/port_operations.h"
#include "console/stack/console_symbols.h"

#define ORVANE_RENAME(result, name, parameters, arguments)                                         \
    result name parameters ORVANE_CONSOLE_SYMBOL(name);
ORVANE_PORT_OPERATIONS(ORVANE_RENAME)
#undef ORVANE_RENAME
