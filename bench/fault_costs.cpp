// What the layer of the faults costs: a call of an operation that has none, and of one that has.

#include "console/stack/fault_plan.h"
#include "console/stack/layers.h"
#include "cost_table.h"

#include <cstdlib>

namespace orvane {

namespace {

using namespace console_stack;

/// Calls an operation that does nothing, with these faults of the console.
void Call(benchmark::State& state, const std::vector<PlannedFault>& faults) {
    PortTable console{};
    console.OVReadValue = [](uint8_t, uint8_t, uint32_t, uint32_t, double*) { return true; };
    RequestedFaults.Faults = faults;
    const PortTable& top = Faults(console);
    double value = 0.0;
    Measure(state, [&] {
        auto* const read = top.OVReadValue;
        benchmark::DoNotOptimize(read);
        return read(0, 0, 1, 0, &value);
    });
}

const std::vector<PlannedFault> OfAnother{{.Operation = PortOperation::OVAutoStart, .Refusals = 1}};
const std::vector<PlannedFault> NotYet{
    {.Operation = PortOperation::OVReadValue, .FromCall = allCalls, .Refusals = 1}};
const std::vector<PlannedFault> Drawn{
    {.Operation = PortOperation::OVReadValue, .Refusals = allCalls, .Probability = 1e-3}};
const std::vector<PlannedFault> Timed{
    {.Operation = PortOperation::OVReadValue, .FromNs = INT64_MAX, .Refusals = 1}};

BENCHMARK(ClockRead);
BENCHMARK_CAPTURE(Call, None, std::vector<PlannedFault>{});
BENCHMARK_CAPTURE(Call, OfAnother, OfAnother);
BENCHMARK_CAPTURE(Call, NotYet, NotYet);
BENCHMARK_CAPTURE(Call, Drawn, Drawn);
BENCHMARK_CAPTURE(Call, Timed, Timed);

const std::vector<Bound> Bounds{
    {"Call/None", "no faults", 0.15},
    {"Call/OfAnother", "a fault of another operation", 0.15},
    {"Call/NotYet", "a fault from a later call on", 0.4},
    {"Call/Drawn", "a fault by chance", 1.0},
    {"Call/Timed", "a fault at a later time (a clock read)", 1.75},
};

} // namespace

} // namespace orvane

using namespace orvane;

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    CostCollector costs;
    benchmark::RunSpecifiedBenchmarks(&costs);
    PrintCosts(costs, "ClockRead", Bounds);
    return EXIT_SUCCESS;
}
