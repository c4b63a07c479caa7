#include "cost_table.h"

#include <algorithm>
#include <cstdio>
#include <ctime>

namespace orvane {

void ClockRead(benchmark::State& state) {
    for ([[maybe_unused]] auto _ : state) {
        timespec now{};
        clock_gettime(CLOCK_MONOTONIC, &now);
        benchmark::DoNotOptimize(now);
    }
}

void CostCollector::ReportRuns(const std::vector<Run>& runs) {
    for (const Run& run : runs) {
        if (run.run_type == Run::RT_Iteration && !run.error_occurred) {
            const double perIteration =
                run.cpu_accumulated_time / static_cast<double>(run.iterations) * 1e9;
            nanoseconds[run.run_name.function_name +
                        (run.run_name.args.empty() ? "" : "/" + run.run_name.args) +
                        (run.threads > 1 ? "/threads" : "")]
                .push_back(perIteration);
        }
    }
    ConsoleReporter::ReportRuns(runs);
}

double CostCollector::Median(const std::string& benchmark) const {
    const auto found = nanoseconds.find(benchmark);
    if (found == nanoseconds.end()) {
        return 0.0;
    }
    std::vector<double> sorted = found->second;
    std::ranges::sort(sorted);
    return sorted[sorted.size() / 2];
}

void PrintCosts(const CostCollector& costs, const std::string& clockRead,
                const std::vector<Bound>& bounds) {
    const double unit = costs.Median(clockRead);
    std::printf("\nOne clock read: %.1f ns of CPU time\n\n", unit);
    std::printf("| what | ns | clock reads | at most |\n| --- | ---: | ---: | ---: |\n");
    for (const Bound& bound : bounds) {
        const double cost = costs.Median(bound.Benchmark);
        if (cost == 0.0) {
            continue; // Filtered out of this run.
        }
        std::printf("| %s | %.1f | %.2f | ", bound.Label.c_str(), cost, cost / unit);
        if (bound.MaxClockReads > 0.0) {
            const bool over = cost > bound.MaxClockReads * unit;
            std::printf("%.2f%s |\n", bound.MaxClockReads, over ? " (over)" : "");
        } else {
            std::printf("|\n");
        }
    }
}

} // namespace orvane
