#include "console/laboratory/faults.h"

#include "console/laboratory/console_clock.h"

#include <cmath>

namespace orvane::laboratory {

namespace {

using namespace console_stack;

int64_t Nanoseconds(double seconds) {
    return std::llround(seconds * 1e9);
}

/// A fault refuses if it says so, or if it says nothing else.
PlannedFault PlannedFaultOf(const Fault& fault, double time) {
    PlannedFault planned{.Operation = OperationNamed(fault.Operation).value(),
                         .FromNs = Nanoseconds(time),
                         .FromCall = fault.From,
                         .Probability = fault.Probability.value_or(1.0),
                         .LatencyNs = Nanoseconds(fault.Latency.value_or(0.0)),
                         .MemorySize = fault.Size,
                         .Unterminated = fault.Unterminated};
    const bool other = fault.Latency || fault.Size || fault.Unterminated;
    if (fault.Refuse || fault.Probability || !other) {
        planned.Refusals = fault.Refuse.value_or(allCalls);
    }
    return planned;
}

} // namespace

FaultPlan FaultPlanOf(const Scenario& scenario) {
    constexpr int64_t refusalNs = 10'000'000; // A host that waits for a success gives up then.
    FaultPlan plan{.Seed = scenario.Seed,
                   .BusLatencyNs = Nanoseconds(scenario.BusLatency),
                   .RefusalNs = scenario.Time.Mode == ClockMode::Virtual ? refusalNs : 0,
                   .Now = NowNs};
    for (const TimelineEntry& entry : scenario.Timeline) {
        if (const auto* fault = std::get_if<Fault>(&entry.Event); fault != nullptr) {
            plan.Faults.push_back(PlannedFaultOf(*fault, entry.Time));
        }
    }
    return plan;
}

} // namespace orvane::laboratory
