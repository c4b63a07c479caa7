// The cost of a period of a signal, from the export to the console's port. The console ignores the
// samples.

#include "channels/channel_lists.h"
#include "cost_table.h"
#include "output_exports.h"

#include <array>
#include <cstdlib>

namespace orvane {

namespace {

constexpr int64_t points = 10'000;
constexpr double frequence = 1.0; // At the shortest period of 100 us a second holds all points.

/// Cost of one point of a period that is computed and sent.
template <class Send> void Point(benchmark::State& state, Send send) {
    while (state.KeepRunningBatch(points)) {
        if (!send()) {
            state.SkipWithError("Not sent");
            return;
        }
    }
}

void Square(benchmark::State& state) {
    Point(state, [] { return KiroDACCreneau(0, 1.5, 0.1, frequence, 1); });
}

void Sine(benchmark::State& state) {
    Point(state, [] { return KiroDACSinus(0, 1.5, 0.1, frequence, 1); });
}

void Triangle(benchmark::State& state) {
    Point(state, [] { return KiroDACTriangle(0, 1.5, 0.1, frequence, 1); });
}

void Codes(benchmark::State& state) {
    static std::array<int32_t, points> codes{};
    for (std::size_t i = 0; i < codes.size(); ++i) {
        codes[i] = static_cast<int32_t>(i % 4096);
    }
    Point(state, [] { return KiroDACGenerer(0, points, codes.data(), 1e5, 1); });
}

BENCHMARK(ClockRead);
BENCHMARK(Square);
BENCHMARK(Sine);
BENCHMARK(Triangle);
BENCHMARK(Codes);

// Clock reads of 22 ns: at most 12 ns for a point of a square and 25 ns for one of a sine.
const std::vector<Bound> Bounds{
    {"Square", "one point of a square", 0.54},
    {"Sine", "one point of a sine", 1.13},
    {"Triangle", "one point of a triangle", 0},
    {"Codes", "one point of 12-bit codes", 0},
};

} // namespace

} // namespace orvane

using namespace orvane;

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    auto output = std::make_unique<TvlVoieOrvane>();
    output->Desc.TempsMinNs = 100'000;
    Append(OutputChannels, std::move(output));
    CostCollector costs;
    benchmark::RunSpecifiedBenchmarks(&costs);
    PrintCosts(costs, "ClockRead", Bounds);
    return EXIT_SUCCESS;
}
