// The values that the laboratory's channels measure, held against closed formulas.

#include "console/laboratory/signal/elementary.h"
#include "console/laboratory/signal/normal.h"
#include "console/laboratory/signal/signal.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <numeric>
#include <random>
#include <thread>

using namespace orvane::laboratory;

namespace {

using std::numbers::pi;
using testing::AllOf;
using testing::DoubleNear;
using testing::Each;
using testing::Ge;
using testing::Le;

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr int64_t second = 1'000'000'000;
constexpr int64_t farthest = std::numeric_limits<int64_t>::max();

/// A console with two outputs and a channel whose limits are out of the way.
struct Channel {
    Scenario Source;
    OutputHistories Outputs;
    PreparedSignal Signal;
    Correction Used;

    explicit Channel(std::vector<Term> terms, const Noise& noise = {}, Range limits = {-1e6, 1e6},
                     uint32_t key = 1) {
        Source.Outputs.resize(2, {.Name = "", .Limits = {-10.0, 10.0}});
        Source.Adapters.resize(1);
        Source.Adapters[0].Channels.resize(1);
        std::vector<Function>& functions = Source.Adapters[0].Channels[0].Functions;
        functions.resize(1);
        functions[0].Signal = std::move(terms);
        functions[0].Added = noise;
        Outputs = MakeOutputHistories(Source);
        Signal = PrepareSignal(functions[0], {.Name = "", .Limits = limits}, 2024, key);
    }

    std::vector<double> Samples(const SampleGrid& grid, size_t count) const {
        std::vector<double> samples(count);
        ComputeSamples(Signal, Used, Outputs, grid, samples);
        return samples;
    }
    double At(int64_t ns) const {
        return Samples({.FirstNs = ns}, 1)[0];
    }
    double AtSecond(double t) const {
        return At(std::llround(t * 1e9));
    }
};

double MeanProduct(const std::vector<double>& a, const std::vector<double>& b, size_t lag = 0) {
    double sum = 0.0;
    for (size_t i = lag; i < a.size(); ++i) {
        sum += a[i] * b[i - lag];
    }
    return sum / static_cast<double>(a.size() - lag);
}

TEST(Elementary, FunctionsAreThoseOfMathematics) {
    for (double x = -700.0; x < 700.0; x += 0.37) {
        EXPECT_NEAR(Exponential(x) / std::exp(x), 1.0, 2e-16 * (4.0 + std::fabs(x)));
        EXPECT_NEAR(SineOfTurns(x), std::sin(2.0 * pi * std::remainder(x, 1.0)), 1e-15);
    }
    EXPECT_NEAR(ExponentialMinusOne(-1e-12) / std::expm1(-1e-12), 1.0, 1e-15);
    EXPECT_NEAR(ExponentialMinusOne(-0.5), std::expm1(-0.5), 1e-15);
    EXPECT_THAT(SineOfTurns(1e300), AllOf(Ge(-1.0), Le(1.0)));
}

TEST(Terms, AreWhatTheirFormulasSay) {
    const auto at = [](const Term& term, double t) { return Channel({term}).AtSecond(t); };
    const SinTerm sine{.Offset = 1, .Amplitude = 2, .Frequency = 3, .Delay = 0.1, .Damping = 4};
    EXPECT_EQ(at(sine, 0.05), 1.0);
    EXPECT_NEAR(at(sine, 0.3), 1 + 2 * std::sin(6 * pi * 0.2) * std::exp(-0.8), 1e-14);
    const ExpTerm curve{1, 3, 0.1, 0.2, 0.4, 0.5};
    EXPECT_EQ(at(curve, 0.1), 1.0);
    EXPECT_NEAR(at(curve, 0.3), 1 + 2 * (1 - std::exp(-1)), 1e-14);
    EXPECT_NEAR(at(curve, 0.9), 1 + 2 * (1 - std::exp(-4)) - 2 * (1 - std::exp(-1)), 1e-14);
    const DampedTerm swing{.Amplitude = 2, .Frequency = 0.7, .Time = 1.5};
    EXPECT_NEAR(at(swing, 2.0), 2 * std::cos(2.8 * pi) * std::exp(-2 / 1.5), 1e-14);
    EXPECT_NEAR(at(swing, -1.0), 2.0, 1e-15);
    const PwlTerm lines{.Times = {0.001, 0.003}, .Values = {1, 5}};
    EXPECT_EQ(at(lines, 0.0), 1.0);
    EXPECT_NEAR(at(lines, 0.0015), 2.0, 1e-14);
    EXPECT_EQ(at(lines, 0.003), 5.0);
    const FileTerm file{.Values = {1, 2, 3}, .Period = 0.1, .Loop = false};
    const FileTerm loop{.Values = {1, 2, 3}, .Period = 0.1, .Loop = true};
    EXPECT_EQ(at(file, -1.0), 1.0);
    EXPECT_EQ(at(file, 0.1), 2.0);
    EXPECT_EQ(at(file, 9.0), 3.0);
    EXPECT_EQ(at(loop, 1e6), 2.0);
    EXPECT_EQ(at(FileTerm{.Values = {1, 2}, .Period = 1e-300, .Loop = false}, 0.0), 1.0);
}

TEST(Terms, PulsesKeepTheirEdgesAfterAnyNumberOfPeriods) {
    const PulseTerm trapezium{1, 5, 0.1, 0.2, 0.4, 0.2, 1};
    const Channel slow({trapezium});
    for (const auto& [t, value] :
         {std::pair{0.05, 1.0}, {0.2, 3.0}, {0.4, 5.0}, {0.7, 3.0}, {1.05, 1.0}, {7.2, 3.0}}) {
        EXPECT_NEAR(slow.AtSecond(t), value, 1e-14) << t;
    }
    const Channel square({PulseTerm{-1, 1, 0, 0, 0, 1.05e-3, 2.1e-3}});
    for (int64_t edge = 0; edge < 1'000'000'000'000'000; edge = edge * 3 + 2'100'000) {
        EXPECT_EQ(square.At(edge), 1.0) << edge;
        EXPECT_EQ(square.At(edge + 1'050'000), -1.0) << edge;
        EXPECT_EQ(square.At(edge + 2'099'999), -1.0) << edge;
    }
    EXPECT_EQ(Channel({PulseTerm{0, 1, 0.5, 0, 0, infinity, 0}}).At(farthest), 1.0);
}

TEST(LowPass, FollowsConstantsAndPassesAsAnRcCircuitDoes) {
    constexpr double rc = 0.3;
    Channel channel({OutputTerm{.Output = 1, .Gain = 2, .Delay = 0.25, .LowPass = rc}});
    AppendConstant(channel.Outputs, 1, 0, 4.0);
    AppendWaveform(channel.Outputs, 1, second, second / 2, {-3.0, 1.0}, false);
    const double charged = 4 * (1 - std::exp(-1 / rc));
    const double middle = -3 + (charged + 3) * std::exp(-0.5 / rc);
    const double end = 1 + (middle - 1) * std::exp(-0.5 / rc);
    const auto expectAll = [&] {
        EXPECT_NEAR(channel.AtSecond(1.25), 2 * charged, 1e-14);
        EXPECT_NEAR(channel.AtSecond(1.75), 2 * middle, 1e-14);
        EXPECT_NEAR(channel.AtSecond(2.85), 2 * (1 + (end - 1) * std::exp(-0.6 / rc)), 1e-14);
    };
    EXPECT_EQ(channel.AtSecond(0.25), 0.0);
    expectAll();
    EXPECT_NEAR(channel.At(farthest), 2.0, 1e-14);
    ForgetBefore(channel.Outputs, 5 * second / 4); // The delay still needs the constant.
    expectAll();
    AppendConstant(channel.Outputs, 1, 3 * second / 2, 1.0); // Breaks the pass off.
    EXPECT_NEAR(channel.AtSecond(1.85), 2 * (1 + (middle - 1) * std::exp(-0.1 / rc)), 1e-14);
}

TEST(LowPass, SettlesOnLoopsAsTheirFormulasSay) {
    constexpr double rc = 2e-3;
    constexpr size_t points = 1000;
    constexpr int64_t step = 20'000; // 50 Hz
    const double omega = 2 * pi * 50;
    Channel channel({OutputTerm{.Output = 0, .LowPass = rc}});
    std::vector<double> sine(points);
    for (size_t i = 0; i < points; ++i) {
        sine[i] = std::sin(2 * pi * static_cast<double>(i) / points);
    }
    AppendWaveform(channel.Outputs, 0, 0, step, sine, true);
    // A held sample comes half a step late on average.
    const double gain = std::sin(pi / points) / (pi / points) / std::hypot(1, omega * rc);
    const double late = std::atan(omega * rc) + pi / points;
    for (int i = 0; i < 40; ++i) {
        const double t = 1 + i * 0.511e-3;
        EXPECT_NEAR(channel.AtSecond(t), gain * std::sin(omega * t - late), 1e-3) << t;
    }
    EXPECT_NEAR(channel.AtSecond(1e9), gain * std::sin(-late), 1e-3);
    const double settled = channel.AtSecond(10.0);
    EXPECT_NEAR(channel.At(0) - settled, -settled, 1e-14); // From 0 it goes there by exp(-t/RC).
    EXPECT_NEAR(channel.AtSecond(0.02) - settled, -settled * std::exp(-0.02 / rc), 1e-14);

    AppendWaveform(channel.Outputs, 0, second, 500'000, {1.0, -1.0}, true);
    const double peak = std::tanh(1e-3 / (4 * rc));
    EXPECT_NEAR(channel.AtSecond(2.0005), peak, 1e-13);
    EXPECT_NEAR(channel.AtSecond(2.001), -peak, 1e-13);
}

TEST(Outputs, TakeWhateverTheyAreTold) {
    Channel channel({OutputTerm{.Output = 0, .LowPass = 1e-9}, OutputTerm{.Output = 1}});
    AppendWaveform(channel.Outputs, 0, 0, 0, {1.0, 2.0}, true);
    AppendWaveform(channel.Outputs, 1, 0, 5, {}, true);
    EXPECT_NEAR(channel.At(second), 2.0, 1e-15);
    AppendWaveform(channel.Outputs, 1, farthest - 3, farthest, {1.0, 4.0}, false);
    EXPECT_NEAR(channel.At(farthest - 1), 3.0, 1e-15);
    EXPECT_NEAR(channel.At(farthest), 6.0, 1e-15);
    AppendWaveform(channel.Outputs, 1, -10, 5, {6.0, 7.0}, true); // In place of the later one.
    EXPECT_EQ(OutputValue(channel.Outputs, 1, -11), 0.0);
    EXPECT_EQ(OutputValue(channel.Outputs, 1, -6), 6.0);
    EXPECT_EQ(OutputValue(channel.Outputs, 1, -5), 7.0);
    EXPECT_EQ(OutputValue(channel.Outputs, 1, 0), 6.0);
    EXPECT_THAT(channel.Samples({.FirstNs = farthest - 5, .StepNs = farthest}, 300),
                Each(AllOf(Ge(8.0), Le(9.0))));
}

TEST(White, DeviatesAreNormal) {
    for (uint64_t word = 0; word < uint64_t{1} << 31; word = word * 17 / 16 + 1) {
        const double z = NormalDeviate(static_cast<uint32_t>(word));
        const double beyond = (static_cast<double>(word) + 0.5) * 0x1p-32;
        const double density = std::exp(-z * z / 2) / std::sqrt(2 * pi);
        EXPECT_NEAR(std::erfc(z / std::numbers::sqrt2) / 2, beyond, 2e-7 * z * density + 1e-16)
            << word;
        EXPECT_EQ(NormalDeviate(static_cast<uint32_t>(word) | 0x80000000U), -z);
    }
}

TEST(White, SamplesAreIndependentOfEachOtherAndOfOtherChannels) {
    constexpr size_t count = 200'000;
    const double bound = 5 / std::sqrt(static_cast<double>(count));
    const Channel one({}, {.White = 1.0});
    const Channel other({}, {.White = 1.0}, {-1e6, 1e6}, 2);
    const auto a = one.Samples({.StepNs = 1}, count);
    const auto b = other.Samples({.StepNs = 1}, count);
    const auto nextRun = one.Samples({.StepNs = 1, .Stream = 1}, count);
    EXPECT_NEAR(MeanProduct(a, std::vector<double>(count, 1.0)), 0.0, bound);
    EXPECT_NEAR(MeanProduct(a, a), 1.0, std::numbers::sqrt2 * bound);
    EXPECT_NEAR(MeanProduct(a, b), 0.0, bound);
    EXPECT_NEAR(MeanProduct(a, nextRun), 0.0, bound);
    for (size_t lag = 1; lag < 9; ++lag) {
        EXPECT_NEAR(MeanProduct(a, a, lag), 0.0, bound) << lag;
    }
}

/// The power in octaves of frequencies, the highest first: mean square differences of neighbouring
/// means over 1, 2, 4 and so on samples (Allan's variance).
std::vector<double> OctavePowers(const std::vector<double>& samples, size_t octaves) {
    std::vector<double> sums(samples.size() + 1);
    std::partial_sum(samples.begin(), samples.end(), sums.begin() + 1);
    std::vector<double> powers;
    for (size_t length = 1; powers.size() < octaves; length *= 2) {
        std::vector<double> differences;
        for (size_t i = 2 * length; i < sums.size(); ++i) {
            differences.push_back((sums[i] - 2 * sums[i - length] + sums[i - 2 * length]) /
                                  static_cast<double>(length));
        }
        powers.push_back(MeanProduct(differences, differences) / 2);
    }
    return powers;
}

TEST(Flicker, HasEqualPowerInEachOctave) {
    constexpr size_t octaves = 10;
    const auto samples =
        Channel({}, {.Flicker = 3.0}).Samples({.StepNs = 1, .FirstNumber = 12345}, 1U << 20U);
    EXPECT_NEAR(std::sqrt(MeanProduct(samples, samples)), 3.0, 0.3);
    const auto powers = OctavePowers(samples, octaves);
    // Power in an octave is density times frequency, so at a slope of -1 it stays.
    const double slope = -1 - std::log2(powers.back() / powers.front()) / (octaves - 1);
    EXPECT_NEAR(slope, -1.0, 0.1);
    EXPECT_THAT(powers, Each(DoubleNear(powers[0], 0.1 * powers[0])));
}

TEST(Drift, IsSlowAndBoundedAndHasItsRms) {
    const Channel channel({}, {.DriftRms = 2.0, .DriftTime = 60.0});
    const auto samples = channel.Samples({.FirstNs = -10 * second, .StepNs = second}, 600'000);
    EXPECT_NEAR(std::sqrt(MeanProduct(samples, samples)), 2.0, 0.06);
    EXPECT_THAT(samples, Each(DoubleNear(0.0, 2.51 * 2)));
    for (size_t i = 1; i < samples.size(); ++i) {
        ASSERT_NEAR(samples[i], samples[i - 1], 0.15) << i;
    }
}

TEST(Converter, GivesStepsWithinItsLimits) {
    Channel channel({PwlTerm{.Times = {0, 40}, .Values = {-20, 20}}}, {.Bits = 4}, {-12, 12});
    for (const double sample : channel.Samples({.StepNs = second / 10}, 401)) {
        EXPECT_THAT(sample, AllOf(Ge(-12.0), Le(12.0)));
        EXPECT_EQ(std::remainder(sample, 1.5), 0.0);
    }
    EXPECT_EQ(channel.AtSecond(20.7), 0.0);
    EXPECT_EQ(channel.AtSecond(20.8), 1.5);
    channel.Used = {.Gain = 2.0, .Shift = -0.5};
    EXPECT_EQ(channel.AtSecond(22.0), 3.0);
    channel.Used = {.Gain = infinity, .Shift = -infinity};
    EXPECT_EQ(channel.AtSecond(30.0), -12.0);
}

TEST(Trigger, FindsTheFirstCrossing) {
    const Channel channel({SinTerm{.Amplitude = 1, .Frequency = 1}});
    const SampleGrid grid{.StepNs = second / 1000};
    const auto find = [&](Edge edge, uint64_t from, uint64_t to) {
        return FirstCrossing(channel.Signal, {}, channel.Outputs, grid, edge, from, to);
    };
    // sin(2 pi t) is 1/2 at 1/12 and 5/12 of each second.
    EXPECT_EQ(find({.Rising = true, .Level = 0.5}, 0, 5000), 84U);
    EXPECT_EQ(find({.Rising = true, .Level = 0.5}, 84, 5000), 84U);
    EXPECT_EQ(find({.Rising = true, .Level = 0.5}, 85, 5000), 1084U);
    EXPECT_EQ(find({.Rising = false, .Level = 0.5}, 0, 5000), 417U);
    EXPECT_EQ(find({.Rising = true, .Level = 0.5}, 85, 1084), std::nullopt);
    EXPECT_EQ(find({.Rising = true, .Level = 2.0}, 0, 100'000), std::nullopt);
}

/// A signal of all forms with arguments at random.
Channel AnySignal(std::mt19937& random) {
    std::uniform_real_distribution<double> any(0.01, 3.0);
    const auto next = [&] { return any(random); };
    const double rise = next();
    const double width = next();
    Channel channel(
        {SinTerm{next(), next(), 100 * next(), next(), 0},
         SinTerm{next(), next(), next(), 0, next()},
         PulseTerm{next(), next(), next(), rise, 0.1, width, rise + width + next()},
         ExpTerm{next(), next(), next(), next(), 3 + next(), next()},
         PwlTerm{.Times = {0, next(), 3 + next()}, .Values = {next(), next(), next()}},
         DampedTerm{next(), next(), next()},
         FileTerm{.Values = {next(), next(), next()}, .Period = next() / 10, .Loop = true},
         OutputTerm{.Output = 0, .Gain = next(), .Delay = next(), .LowPass = next() / 10},
         OutputTerm{.Output = 1, .Gain = next()}},
        {next(), next(), next(), next() / 10, static_cast<uint32_t>(random() % 25)});
    channel.Signal.Breathed = PrepareBreath(
        {next(), 60 * next(), ForcedBreath{.Every = 2 + next(), .Fvc = 4, .Fev1 = 3.5, .Pef = 8}});
    AppendConstant(channel.Outputs, 0, second, next());
    AppendWaveform(channel.Outputs, 0, 2 * second, 1 + static_cast<int64_t>(random()) % 10'000'000,
                   {next(), next(), next()}, true);
    AppendWaveform(channel.Outputs, 1, 0, second / 7, {next(), next()}, false);
    return channel;
}

TEST(Signal, HasTheSameBitsHoweverItIsRead) {
    constexpr size_t count = 1500;
    std::mt19937 random(7);
    for (int round = 0; round < 40; ++round) {
        const Channel channel = AnySignal(random);
        const auto below = [&](int64_t end) { return static_cast<int64_t>(random()) % end; };
        const SampleGrid grid{.ZeroNs = below(second),
                              .FirstNs = below(second) - second / 2,
                              .StepNs = below(10'000'000),
                              .FirstNumber = random(),
                              .Stream = random()};
        const auto from = [&grid](size_t i) {
            SampleGrid moved = grid;
            moved.FirstNs += static_cast<int64_t>(i) * grid.StepNs;
            moved.FirstNumber += i;
            return moved;
        };
        const auto block = channel.Samples(grid, count);
        std::vector<double> cut(count);
        std::thread other([&] {
            for (size_t i = 0; i < count;) {
                const size_t length = std::min<size_t>(random() % 700 + 1, count - i);
                std::ranges::copy(channel.Samples(from(i), length), cut.data() + i);
                i += length;
            }
        });
        std::vector<double> singly(count);
        for (size_t i = count; i-- > 0;) {
            singly[i] = channel.Samples(from(i), 1)[0];
        }
        other.join();
        ASSERT_EQ(singly, block) << round;
        ASSERT_EQ(cut, block) << round;
    }
}

} // namespace
