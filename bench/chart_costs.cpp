// How long the charts of the window take to draw: 16 channels of 10^7 points, whole and zoomed.

#include "hosts/plot/chart_drawing.h"
#include "hosts/plot/run_picture.h"
#include "hosts/session/series_measures.h"

#include <benchmark/benchmark.h>
#include <cairo.h>

#include <cmath>

using namespace orvane;

namespace {

constexpr size_t channelCount = 16;
constexpr size_t pointCount = 10'000'000;
constexpr int width = 910;
constexpr int height = 1700; // of 16 lanes, which scroll

struct LongRun {
    std::vector<ChannelInfo> Channels{channelCount};
    AcquisitionRecording Recording;
    std::vector<SeriesOutline> Outlines{channelCount};
};

const LongRun& TheRun() {
    static const LongRun run = [] {
        LongRun made;
        made.Recording.PeriodSec = 1e-6;
        made.Recording.Fetched.resize(channelCount);
        for (size_t channel = 0; channel < channelCount; ++channel) {
            made.Channels[channel].Index = static_cast<int>(channel);
            Samples& samples = made.Recording.Fetched[channel];
            samples.resize(pointCount);
            unsigned noise = 1;
            for (size_t i = 0; i < pointCount; ++i) {
                noise = noise * 1664525U + 1013904223U;
                samples[i] = std::sin(static_cast<double>(i) * 1e-5) + noise * 1e-10;
            }
            Extend(made.Outlines[channel], samples);
        }
        return made;
    }();
    return run;
}

/// \param part of the run that is shown
void DrawRun(benchmark::State& state, double part, bool laneEach) {
    const LongRun& run = TheRun();
    const double end = PointTime(run.Recording, pointCount);
    const AxisRange time{end * (0.5 - part / 2.0), end * (0.5 + part / 2.0)};
    cairo_surface_t* surface = cairo_image_surface_create(CAIRO_FORMAT_RGB24, width, height);
    cairo_t* context = cairo_create(surface);
    for ([[maybe_unused]] auto _ : state) {
        Chart chart = ChartOf({run.Channels, run.Recording, run.Recording.Fetched, run.Outlines},
                              time, width, {.OneEach = laneEach});
        chart.Width = width;
        chart.Height = laneEach ? height : height / 3;
        DrawChart(context, chart);
        cairo_surface_flush(surface);
    }
    cairo_destroy(context);
    cairo_surface_destroy(surface);
}

void MeasureRun(benchmark::State& state) {
    const LongRun& run = TheRun();
    for ([[maybe_unused]] auto _ : state) {
        for (size_t i = 0; i < channelCount; ++i) {
            benchmark::DoNotOptimize(MeasuresOf(run.Recording.Fetched[i], run.Outlines[i],
                                                {1, pointCount}, run.Recording.PeriodSec));
        }
    }
}

constexpr double tenth = 0.1;
constexpr double little = 5e-5; // 500 points

BENCHMARK_CAPTURE(DrawRun, whole_a_lane_each, 1.0, true)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(DrawRun, whole_in_one_lane, 1.0, false)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(DrawRun, a_tenth_of_it, tenth, true)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(DrawRun, five_hundred_points, little, true)->Unit(benchmark::kMillisecond);
BENCHMARK(MeasureRun)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
