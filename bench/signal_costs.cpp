// What the laboratory's values cost: single ones with the clock read that belongs to each, and
// those of a block.

#include "console/laboratory/signal/signal.h"
#include "cost_table.h"
#include "platform/clock.h"

#include <array>
#include <cmath>
#include <cstdlib>
#include <numbers>

namespace orvane {

namespace {

using namespace laboratory;

constexpr int64_t blockSize = 4096;

/// A scenario's channel with the outputs that it loops back.
struct MeasuredChannel {
    Scenario Source;
    OutputHistories Outputs;
    PreparedSignal Signal;
};

/// Output 0 plays a sine of 50 Hz, 1000 points a period.
MeasuredChannel MakeChannel(std::vector<Term> terms, const Noise& noise) {
    MeasuredChannel made;
    made.Source.Outputs.resize(1);
    made.Source.Adapters.resize(1);
    made.Source.Adapters[0].Channels.resize(1);
    std::vector<Function>& functions = made.Source.Adapters[0].Channels[0].Functions;
    functions.resize(1);
    functions[0].Signal = std::move(terms);
    functions[0].Added = noise;
    made.Outputs = MakeOutputHistories(made.Source);
    std::vector<double> sine(1000);
    for (size_t i = 0; i < sine.size(); ++i) {
        sine[i] = std::sin(2.0 * std::numbers::pi * static_cast<double>(i) / 1000.0);
    }
    AppendWaveform(made.Outputs, 0, 0, 20'000, sine, true);
    made.Signal = PrepareSignal(functions[0], {.Name = "", .Limits = {-12.0, 12.0}}, 2024, 1);
    return made;
}

const SinTerm Sine{.Offset = 0.5, .Amplitude = 2.0, .Frequency = 50.0};
const DampedTerm Damped{.Amplitude = 2.0, .Frequency = 0.7, .Time = 1e4};
const PulseTerm Pulse{.First = 0.0,
                      .Second = 1.0,
                      .Delay = 0.0,
                      .Rise = 1e-3,
                      .Fall = 1e-3,
                      .Width = 8e-3,
                      .Period = 20e-3};
const OutputTerm Loopback{.Output = 0, .LowPass = 2e-3};
const Noise White{.White = 5e-3, .Bits = 12};

const MeasuredChannel SineAndDamped = MakeChannel({Sine, Damped}, White);
const MeasuredChannel SineAndPulse = MakeChannel({Sine, Pulse}, White);
const MeasuredChannel LoopbackAndSine = MakeChannel({Loopback, Sine}, White);
const MeasuredChannel LoopbackAlone = MakeChannel({Loopback}, {});
const MeasuredChannel WhiteAlone = MakeChannel({}, {.White = 5e-3});
const MeasuredChannel Flicker = MakeChannel({}, {.Flicker = 5e-3});
const MeasuredChannel Drift = MakeChannel({}, {.DriftRms = 5e-3, .DriftTime = 60.0});

/// A turbine with the school's breath; quiet and forced breaths as often as they come.
MeasuredChannel MakeTurbine() {
    MeasuredChannel made = MakeChannel({}, {});
    made.Signal.Breathed = PrepareBreath({.Tidal = 0.5, .Rate = 15.0, .Forced = ForcedBreath{}});
    return made;
}

const MeasuredChannel Turbine = MakeTurbine();

void Live(benchmark::State& state, const MeasuredChannel& channel) {
    Measure(state, [&] {
        const int64_t now = platform::MachineNanoseconds();
        double value = 0.0;
        ComputeSamples(channel.Signal, {}, channel.Outputs,
                       {.FirstNs = now, .FirstNumber = static_cast<uint64_t>(now)}, {&value, 1});
        return value;
    });
}

void Block(benchmark::State& state, const MeasuredChannel& channel) {
    static std::array<double, blockSize> samples{};
    SampleGrid grid{.FirstNs = 10'000'000'000, .StepNs = 1'000'000, .Stream = 1};
    while (state.KeepRunningBatch(blockSize)) {
        ComputeSamples(channel.Signal, {}, channel.Outputs, grid, samples);
        benchmark::DoNotOptimize(samples);
        grid.FirstNumber += blockSize;
        grid.FirstNs += blockSize * grid.StepNs;
    }
}

BENCHMARK(ClockRead);
BENCHMARK_CAPTURE(Live, SineAndDamped, SineAndDamped);
BENCHMARK_CAPTURE(Live, SineAndPulse, SineAndPulse);
BENCHMARK_CAPTURE(Live, LoopbackAndSine, LoopbackAndSine);
BENCHMARK_CAPTURE(Live, Flicker, Flicker);
BENCHMARK_CAPTURE(Live, Turbine, Turbine);
BENCHMARK_CAPTURE(Block, SineAndDamped, SineAndDamped);
BENCHMARK_CAPTURE(Block, SineAndPulse, SineAndPulse);
BENCHMARK_CAPTURE(Block, LoopbackAndSine, LoopbackAndSine);
BENCHMARK_CAPTURE(Block, Loopback, LoopbackAlone);
BENCHMARK_CAPTURE(Block, White, WhiteAlone);
BENCHMARK_CAPTURE(Block, Flicker, Flicker);
BENCHMARK_CAPTURE(Block, Drift, Drift);
BENCHMARK_CAPTURE(Block, Turbine, Turbine);

// A live value has the clock read in it that tells when it is.
const std::vector<Bound> Bounds{
    {"Live/SineAndDamped", "live value: sine, damped sine, white noise", 2.5},
    {"Live/SineAndPulse", "live value: sine, pulse, white noise", 2.5},
    {"Live/LoopbackAndSine", "live value: low-passed output, sine, white noise", 0},
    {"Live/Flicker", "live value: flicker", 0},
    {"Live/Turbine", "live value: flow of a turbine", 0},
    {"Block/SineAndDamped", "sample of a block: sine, damped sine, white noise", 1.0},
    {"Block/SineAndPulse", "sample of a block: sine, pulse, white noise", 1.0},
    {"Block/LoopbackAndSine", "sample of a block: low-passed output, sine, white noise", 0},
    {"Block/Loopback", "sample of a block: low-passed output", 0.8},
    {"Block/White", "sample of a block: white noise", 0},
    {"Block/Flicker", "sample of a block: flicker", 0},
    {"Block/Drift", "sample of a block: drift", 0},
    {"Block/Turbine", "sample of a block: flow of a turbine", 1.0},
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
