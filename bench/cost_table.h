#pragma once

/// \file
/// The table of costs: what each benchmark took in CPU time, as a ratio to a bare clock read of the
/// same run.

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

namespace orvane {

/// Reads the monotonic clock: the unit of the other costs.
void ClockRead(benchmark::State& state);

/// Measures one call.
template <class Call> void Measure(benchmark::State& state, Call call) {
    for ([[maybe_unused]] auto _ : state) {
        benchmark::DoNotOptimize(call());
    }
}

/// What a benchmark may cost. Its name is that of the benchmark, arguments included.
struct Bound {
    std::string Benchmark;
    std::string Label;
    double MaxClockReads; ///< 0: no bound.
};

/// Collects the CPU time of every repetition while the console reporter prints.
class CostCollector : public benchmark::ConsoleReporter {
public:
    void ReportRuns(const std::vector<Run>& runs) override;

    /// Nanoseconds of CPU time for one iteration and thread: the median of the repetitions.
    double Median(const std::string& benchmark) const;

private:
    std::map<std::string, std::vector<double>> nanoseconds;
};

/// Prints the table, a row for each bound, in clock reads of the benchmark `clockRead`.
void PrintCosts(const CostCollector& costs, const std::string& clockRead,
                const std::vector<Bound>& bounds);

} // namespace orvane
