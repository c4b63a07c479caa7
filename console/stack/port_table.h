#pragma once

/// \file
/// The operations of one console, or of one layer above it, as a table.

#include "console/port_operations.h"

namespace orvane {

struct PortTable {
#define ORVANE_MEMBER(result, name, parameters, arguments) result(*name) parameters;
    ORVANE_PORT_OPERATIONS(ORVANE_MEMBER)
#undef ORVANE_MEMBER
};

} // namespace orvane
