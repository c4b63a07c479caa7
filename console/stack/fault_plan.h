#pragma once

/// \file
/// Faults that a console has on purpose. A console requests them in its OVStartLibrary; the stack
/// above it makes them. Without a stack there are none.

#include "console/port_operation_names.h"
#include "platform/clock.h"

#include <limits>
#include <optional>
#include <vector>

namespace orvane::console_stack {

constexpr uint64_t allCalls = std::numeric_limits<uint64_t>::max();

/// What one operation does wrong. Several faults of an operation add up. Those with which a
/// connection begins or ends have no faults: the first requests them, the others have to end
/// threads and release memory in any case.
struct PlannedFault {
    PortOperation Operation{};
    int64_t FromNs = 0;       ///< Since the start. Calls before are not concerned and not counted.
    uint64_t FromCall = 1;    ///< The first call that it concerns, counted from 1.
    uint64_t Refusals = 0;    ///< So many calls are refused.
    double Probability = 1.0; ///< That a call is one of them.
    int64_t LatencyNs = 0;    ///< What a call takes besides.
    std::optional<uint32_t> MemorySize{}; ///< Given in place of the size (OVGetMemorySize).
    bool Unterminated = false; ///< Texts are filled up with blanks, without a terminator.
};

/// All of a console's faults, from one OVStartLibrary to the next.
struct FaultPlan {
    uint64_t Seed = 0;                               ///< Of what is drawn.
    int64_t BusLatencyNs = 0;                        ///< What a call of any operation takes.
    int64_t RefusalNs = 0;                           ///< What a refused call takes besides.
    int64_t (*Now)() = platform::MachineNanoseconds; ///< Time for FromNs. On any thread.
    std::vector<PlannedFault> Faults{};
};

/// Cleared before each OVStartLibrary and read after it.
inline FaultPlan RequestedFaults;

} // namespace orvane::console_stack
