#pragma once

/// \file
/// The operations of one console, or of one layer above it, as a table.

#include "console/port_operations.h"

namespace orvane {

struct PortTable {
// NOLINTNEXTLINE(bugprone-macro-parentheses): a declaration.
#define ORVANE_MEMBER(result, name, parameters, arguments) decltype(&::name) name{};
    ORVANE_PORT_OPERATIONS(ORVANE_MEMBER)
#undef ORVANE_MEMBER
};

} // namespace orvane
