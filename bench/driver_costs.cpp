// The cost of a value, a sample and a query through the loaded library, and the memory of a run.

#include "cost_table.h"
#include "driver/data_folder.h"
#include "driver_loader.h"
#include "platform/zeroed_buffer.h"

#include <wx/init.h>

#include <malloc.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>

namespace orvane {

namespace {

LoadedDriver Driver;
LoadedDriver Stacked; ///< The same console at the bottom of a stack without layers.
const DriverExports& Exports = Driver.Exports;

/// Samples of a whole fetch, cost of one. The console is full at once with a period of 0.
void FetchSample(benchmark::State& state) {
    const auto points = static_cast<int32_t>(state.range(0));
    Exports.InitAcqBuff(0.0, points, 1, 0);
    Exports.StartAcqBuff(0, 0, 0.0, 0);
    while (state.KeepRunningBatch(points)) {
        Exports.StopAcqBuff();
    }
}

/// The same into buffers that nobody has written to yet.
void FetchFresh(benchmark::State& state) {
    int32_t points = 10'000'000;
    while (state.KeepRunningBatch(points)) {
        state.PauseTiming();
        points ^= 1; // Another count, so that the set-up is a full one.
        Exports.InitAcqBuff(0.0, points, 1, 0);
        Exports.StartAcqBuff(0, 0, 0.0, 0);
        state.ResumeTiming();
        Exports.StopAcqBuff();
    }
}

/// What writing to such memory costs in itself.
void WriteFresh(benchmark::State& state) {
    constexpr int32_t points = 10'000'000;
    while (state.KeepRunningBatch(points)) {
        state.PauseTiming();
        const auto buffer = platform::AllocateZeroed<double>(points);
        state.ResumeTiming();
        std::fill_n(buffer.get(), points, 1.0);
        benchmark::ClobberMemory();
    }
}

void Value(benchmark::State& state) {
    Measure(state, [] { return Exports.QuelValeurPour(0); });
}

void StackedValue(benchmark::State& state) {
    Measure(state, [] { return Stacked.Exports.QuelValeurPour(0); });
}

void LivePoint(benchmark::State& state) {
    Exports.InitAcqBuff(1.0, 10, 1, 0);
    Exports.StartAcqBuff(0, 0, 0.0, 0);
    Measure(state, [] { return Exports.RecuperationPoint(0, 0); });
    Exports.StopAcqBuff();
}

void BufferedPoint(benchmark::State& state) {
    Exports.InitAcqBuff(0.0, 1000, 1, 0);
    Exports.StartAcqBuff(0, 0, 0.0, 0);
    Exports.StopAcqBuff();
    uint32_t point = 0;
    Measure(state, [&] { return Exports.RecuperationPoint(0, ++point % 1000); });
}

void CachedSetup(benchmark::State& state) {
    Exports.InitAcqBuff(1e-3, 100, 3, 0);
    Exports.StartAcqBuff(0, 0, 0.0, 0);
    Measure(state, [] { return Exports.InitAcqBuff(1e-3, 100, 3, 0); });
    Exports.StopAcqBuff();
}

void FieldQuestion(benchmark::State& state) {
    Measure(state, [] { return Exports.QuelReferencePour(1); });
}

void LimitQuestion(benchmark::State& state) {
    Measure(state, [] { return Exports.QuelMaxPour(1); });
}

void RecordNumber(benchmark::State& state) {
    Measure(state, [] { return Exports.CombienDeCalibrePour(1); });
}

void CalibreNumber(benchmark::State& state) {
    Measure(state, [] { return Exports.QuelMaxPourCalibrePour(1, 1); });
}

void AdjustmentCode(benchmark::State& state) {
    Measure(state, [] { return Exports.QuelReglagePour(1); });
}

void RecordText(benchmark::State& state) {
    Measure(state, [] { return Exports.QuelUnitePour(1); });
}

void FunctionName(benchmark::State& state) {
    Measure(state, [] { return Exports.QuelNomPourFonction(1, 0); });
}

void CalibreName(benchmark::State& state) {
    Measure(state, [] { return Exports.QuelNomPourCalibre(1, 1); });
}

void ChannelName(benchmark::State& state) {
    Measure(state, [] { return Exports.QuelNomPour(1, 0); });
}

/// A start up to the list of channels, with the stop that makes the next one a start.
void StartAndEnumerate(benchmark::State& state) {
    for ([[maybe_unused]] auto _ : state) {
        Exports.StartDll(0, "", "fr", 0);
        Exports.VerifCanaux();
        benchmark::DoNotOptimize(Exports.CombienDeCanauxEnEntree());
    }
}

void DataFolder(benchmark::State& state) {
    std::array<char, 512> folder{};
    for ([[maybe_unused]] auto _ : state) {
        FindDataFolder(folder.data(), folder.size());
        benchmark::DoNotOptimize(folder);
    }
}

std::size_t BytesInUse() {
    const auto memory = mallinfo2();
    return memory.uordblks + memory.hblkhd;
}

/// The memory that a run of two channels takes besides its samples.
void PrintMemory() {
    constexpr std::size_t points = 1'000'000;
    constexpr std::size_t samples = 2 * points * sizeof(double);
    const std::size_t before = BytesInUse();
    Exports.StartDll(0, "", "fr", 0);
    Exports.CombienDeCanauxEnEntree();
    Exports.InitAcqBuff(0.0, points, 3, 0);
    Exports.StartAcqBuff(0, 0, 0.0, 0);
    Exports.StopAcqBuff();
    std::printf("\nA run with %zu bytes of samples takes %zu bytes besides.\n", samples,
                BytesInUse() - before - samples);
    Exports.StopDll();
    std::printf("After the stop %zu bytes are left.\n", BytesInUse() - before);
}

BENCHMARK(ClockRead);
BENCHMARK(Value);
BENCHMARK(Value)->Threads(2)->Name("Value");
BENCHMARK(StackedValue);
BENCHMARK(LivePoint);
BENCHMARK(FetchSample)->Arg(10'000)->Arg(1'000'000)->Arg(30'000'000)->MinTime(1.0);
BENCHMARK(FetchFresh);
BENCHMARK(WriteFresh);
BENCHMARK(BufferedPoint);
BENCHMARK(CachedSetup);
BENCHMARK(FieldQuestion);
BENCHMARK(LimitQuestion);
BENCHMARK(RecordNumber);
BENCHMARK(CalibreNumber);
BENCHMARK(AdjustmentCode);
BENCHMARK(RecordText);
BENCHMARK(FunctionName);
BENCHMARK(CalibreName);
BENCHMARK(ChannelName);
BENCHMARK(StartAndEnumerate);
BENCHMARK(DataFolder);

const std::vector<Bound> Bounds{
    {"Value", "one value read (QuelValeurPour)", 1.3},
    {"Value/threads", "the same on two threads at once", 0},
    {"StackedValue", "the same through a stack without layers", 0},
    {"LivePoint", "one live sample (RecuperationPoint)", 1.3},
    {"FetchSample/10000", "one sample of a fetch of 10^4", 0.08},
    {"FetchSample/1000000", "one sample of a fetch of 10^6", 0.08},
    {"FetchSample/30000000", "one sample of a fetch of 3*10^7", 0.08},
    {"FetchFresh", "one of 10^7 into memory that is new to the process", 0},
    {"WriteFresh", "writing such memory, a sample", 0},
    {"BufferedPoint", "one sample from the buffer", 0.15},
    {"FieldQuestion", "a field of the channel", 0.15},
    {"LimitQuestion", "a limit of the channel", 0.15},
    {"RecordNumber", "a number from a function's record", 1.5},
    {"CalibreNumber", "a number from a calibre's record", 1.5},
    {"AdjustmentCode", "the kind of an adjustment", 1.5},
    {"RecordText", "a unit", 5.5},
    {"FunctionName", "a function's name", 5.5},
    {"CalibreName", "a calibre's name", 5.5},
    {"ChannelName", "a channel's name", 5.5},
    {"CachedSetup", "a repeated set-up", 0.2},
};

/// Loads a driver and starts it up to the list of channels.
bool Begin(LoadedDriver& driver, const char* library) {
    driver = LoadDriver(library);
    if (driver.Library == nullptr || !driver.Missing.empty()) {
        std::fprintf(stderr, "%s does not load: %s\n", library, driver.Error.c_str());
        return false;
    }
    driver.Exports.StartDll(0, "", "fr", 0);
    driver.Exports.VerifCanaux();
    driver.Exports.CombienDeCanauxEnEntree();
    return true;
}

/// Prints the difference between two benchmarks, unless one was filtered out.
void PrintDifference(const CostCollector& costs, const char* label, const char* benchmark,
                     const char* without, double maxNs) {
    const double cost = costs.Median(benchmark);
    const double base = costs.Median(without);
    if (cost > 0.0 && base > 0.0) {
        std::printf("\n%s: %.1f ns (at most %.0f)\n", label, cost - base, maxNs);
    }
}

} // namespace

} // namespace orvane

using namespace orvane;

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    const wxInitializer toolkit;
    if (!Begin(Driver, ORVANE_LIBRARY) || !Begin(Stacked, ORVANE_STACKED_LIBRARY)) {
        return EXIT_FAILURE;
    }
    // Each start reports on standard error that the console has no memory.
    if (std::freopen("/dev/null", "w", stderr) == nullptr) {
        return EXIT_FAILURE;
    }
    CostCollector costs;
    benchmark::RunSpecifiedBenchmarks(&costs);
    PrintCosts(costs, "ClockRead", Bounds);
    PrintDifference(costs, "A start with enumeration, without the data folder", "StartAndEnumerate",
                    "DataFolder", 26'000);
    PrintDifference(costs, "What a stack adds to a value", "StackedValue", "Value", 2);
    Exports.StopDll();
    PrintMemory();
    UnloadDriver(Driver);
    Stacked.Exports.StopDll();
    UnloadDriver(Stacked);
    return EXIT_SUCCESS;
}
