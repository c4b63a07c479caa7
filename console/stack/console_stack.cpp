// The top of the stack, which the driver calls, and its bottom, the console. A call goes through
// one pointer, and through the layers that were requested at the start.

#include "console/refusing/refuse.h"
#include "console/stack/console_symbols.h"
#include "console/stack/layers.h"

#include <atomic>
#include <string_view>

namespace orvane::console_stack {

/// The console's operations, under their names for the linker.
namespace bottom {

#define ORVANE_DECLARE(result, name, parameters, arguments)                                        \
    result name parameters ORVANE_CONSOLE_SYMBOL(name);
ORVANE_PORT_OPERATIONS(ORVANE_DECLARE)
ORVANE_OPTIONAL_OPERATIONS(ORVANE_REFUSE)

#define ORVANE_ENTRY(result, name, parameters, arguments) &(name),
constexpr PortTable Table{ORVANE_PORT_OPERATIONS(ORVANE_ENTRY)};

} // namespace bottom

namespace {

/// Written at each start, read by every thread that calls the port.
std::atomic<const PortTable*> Top{&bottom::Table};

void BuildStack() {
    const PortTable* top = &bottom::Table;
    for (const Layer layer : Layers) {
        top = &layer(*top);
    }
    Top.store(top, std::memory_order_release);
}

} // namespace
} // namespace orvane::console_stack

#define ORVANE_FORWARD(result, name, parameters, arguments)                                        \
    result name parameters {                                                                       \
        if constexpr (std::string_view(#name) == "OVStartLibrary") {                               \
            orvane::console_stack::BuildStack();                                                   \
        }                                                                                          \
        return orvane::console_stack::Top.load(std::memory_order_acquire)->name arguments;         \
    }
ORVANE_PORT_OPERATIONS(ORVANE_FORWARD)
