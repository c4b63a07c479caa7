// The top of the stack, which the driver calls, and its bottom, the console. A call goes through
// one pointer, and through the layers that were requested at the start.

#include "console/refusing/refuse.h"
#include "console/stack/console_symbols.h"
#include "console/stack/fault_plan.h"
#include "console/stack/layers.h"

#include <atomic>
#include <new>

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

/// The console decides in its OVStartLibrary which layers it wants.
template <class... Arguments> bool StartLibrary(const Arguments&... arguments) {
    try {
        RequestedFaults = {};
        BuildStack();
        const bool started = Top.load(std::memory_order_relaxed)->OVStartLibrary(arguments...);
        BuildStack();
        return started;
    } catch (const std::bad_alloc&) {
        return false;
    }
}

template <PortOperation Operation, auto Member, class... Arguments>
auto Forward(const Arguments&... arguments) {
    if constexpr (Operation == PortOperation::OVStartLibrary) {
        return StartLibrary(arguments...);
    } else {
        return (Top.load(std::memory_order_acquire)->*Member)(arguments...);
    }
}

} // namespace
} // namespace orvane::console_stack

// NOLINTBEGIN(bugprone-macro-parentheses): the arguments come with theirs.
#define ORVANE_FORWARD(result, name, parameters, arguments)                                        \
    result name parameters {                                                                       \
        using namespace orvane;                                                                    \
        return console_stack::Forward<PortOperation::name, &PortTable::name> arguments;            \
    }
// NOLINTEND(bugprone-macro-parentheses)
ORVANE_PORT_OPERATIONS(ORVANE_FORWARD)
