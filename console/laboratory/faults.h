#pragma once

#include "console/laboratory/scenario/scenario.h"
#include "console/stack/fault_plan.h"

namespace orvane::laboratory {

/// The faults and the latency of a scenario, for the stack above the console. Its clock has to be
/// running.
console_stack::FaultPlan FaultPlanOf(const Scenario& scenario);

} // namespace orvane::laboratory
