#pragma once

/// \file
/// The operations of the port by number and by name.

#include "console/port_operations.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

namespace orvane {

/// In the order of the list.
enum class PortOperation : uint8_t {
#define ORVANE_ENUMERATOR(result, name, parameters, arguments) name,
    ORVANE_PORT_OPERATIONS(ORVANE_ENUMERATOR)
#undef ORVANE_ENUMERATOR
};

inline constexpr std::array PortOperationNames = std::to_array<std::string_view>({
#define ORVANE_NAME(result, name, parameters, arguments) #name,
    ORVANE_PORT_OPERATIONS(ORVANE_NAME)
#undef ORVANE_NAME
});

constexpr std::optional<PortOperation> OperationNamed(std::string_view name) {
    const auto* const found = std::ranges::find(PortOperationNames, name);
    return found != PortOperationNames.end()
               ? std::optional(static_cast<PortOperation>(found - PortOperationNames.begin()))
               : std::nullopt;
}

/// Whether a connection begins or ends with an operation. On these all else depends.
constexpr bool BeginsOrEnds(PortOperation operation) {
    return operation == PortOperation::OVStartLibrary ||
           operation == PortOperation::ShutdownConsole || operation == PortOperation::OVRelease;
}

} // namespace orvane
