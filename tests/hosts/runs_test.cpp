// What the hosts share, without a program around it: runs, requests, files, pictures.

#include "hosts/plot/axis_ticks.h"
#include "hosts/plot/chart_drawing.h"
#include "hosts/session/acquisition_recording.h"
#include "hosts/session/channel_setup.h"
#include "hosts/session/durations.h"
#include "hosts/session/host_error.h"
#include "hosts/session/run_follower.h"
#include "hosts/session/sample_series.h"
#include "tests/hosts/file_content.h"
#include "tests/hosts/full_driver.h"

#include <wx/image.h>

#include <gmock/gmock.h>
#include <sys/stat.h>

#include <array>

using namespace orvane;
using namespace testing;

/// What the text library keeps from its first chart to the end of the process.
extern "C" __attribute__((visibility("default"))) const char*
__lsan_default_suppressions() { // NOLINT(bugprone-reserved-identifier)
    return "leak:libfontconfig\nleak:libpango\n";
}

namespace {

AcquisitionRequest Request(double periodSec, int32_t points, std::vector<int> channels = {}) {
    return {periodSec, points, std::move(channels), std::nullopt, false};
}

ChannelInfo Channel(int index, const char* name) {
    ChannelInfo channel;
    channel.Index = index;
    channel.Name = name;
    return channel;
}

/// What kind of error comes of it; none: it is done.
template <class Act> std::optional<ErrorKind> ErrorOf(const Act& act) {
    try {
        act();
    } catch (const HostError& error) {
        return error.Kind;
    }
    return std::nullopt;
}

TEST(Run, HasPreTriggerPointsAndTimesInWholeNanoseconds) {
    const DriverExports driver = FullDriver();
    Answers.PreTriggerPoints = 50;
    Answers.Samples = 800;
    AcquisitionRequest request = Request(129e-6, 400, {1, 0});
    request.PreTrigger = true;
    const auto run = RecordAcquisition(driver, request, [](size_t) { return true; });
    EXPECT_EQ(Answers.Stops, 1);
    EXPECT_EQ(KeptSamples(run), run.Fetched);
    EXPECT_EQ(run.Live, run.Fetched);
    EXPECT_EQ(Summarise(Samples{6.0, 1.0, 2.0}).Mean, 3.0);
    const fs::path file = fs::path(std::getenv("HOME")) / "run.csv";
    PendingFile csv(file);
    ChannelInfo volts = Channel(0, "=a");
    volts.Unit = "V";
    SaveCsv(csv, {volts, Channel(1, "\"b\"")}, PointTimes(run), run.Fetched);
    const auto lines = Lines(Content(file));
    ASSERT_THAT(lines, SizeIs(451));
    EXPECT_EQ(lines[0], "time (s),'=a (V),\"\"\"b\"\"\"");
    EXPECT_EQ(lines[1], "-0.00645,950,-50");
    EXPECT_EQ(lines[450], "0.051471,1399,399");
}

TEST(Run, KeepsWhatCameInAndStopsOnceWhenItEndsEarly) {
    const DriverExports driver = FullDriver();
    Answers.Samples = 100;
    const AcquisitionRequest request = Request(1e-3, 100, {0});
    Answers.UnchangedLooks = 1; // The change comes while the samples are fetched.
    const auto changed = RecordAcquisition(driver, request, [](size_t) { return true; });
    EXPECT_EQ(changed.End, RunEnd::AdaptersChanged);
    EXPECT_THAT(KeptSamples(changed), ElementsAre(SizeIs(100)));
    EXPECT_THAT(changed.Fetched, ElementsAre(IsEmpty()));
    EXPECT_EQ(Answers.Stops, 1);

    Answers = {.Full = false, .Samples = 70};
    const auto stopped = RecordAcquisition(driver, request, [](size_t done) { return done == 0; });
    EXPECT_EQ(stopped.End, RunEnd::Interrupted);
    EXPECT_THAT(KeptSamples(stopped), ElementsAre(SizeIs(70)));
    EXPECT_EQ(Answers.Stops, 1);
    { const FollowedRun forgotten(driver, request); }
    EXPECT_EQ(Answers.Stops, 2);
}

TEST(Request, LiesWithinTheLimits) {
    const DriverExports driver = FullDriver();
    std::vector<ChannelInfo> channels(2);
    channels[0].Max = 1.0;
    channels[0].ShortestPeriodSec = 1e-3;
    const auto complete = [&](AcquisitionRequest request) {
        return ErrorOf([&] { CompleteRequest(std::move(request), driver, channels); });
    };
    const auto wrong = ErrorKind::WrongArguments;
    EXPECT_EQ(complete(Request(1e-3, 1)), std::nullopt);
    EXPECT_EQ(complete(Request(4.294967295, 1)), std::nullopt);
    EXPECT_EQ(complete(Request(9e-4, 1)), wrong);
    EXPECT_EQ(complete(Request(9e-4, 1, {1})), std::nullopt);
    EXPECT_EQ(complete(Request(1e-3, 1 << 30)), wrong);
    AcquisitionRequest triggered = Request(1e-3, 1);
    triggered.Trigger = {0, 1.0, true};
    EXPECT_EQ(complete(triggered), std::nullopt);
    triggered.Trigger->Level = 1.1;
    EXPECT_EQ(complete(triggered), wrong);
    triggered.Trigger->Channel = 2;
    EXPECT_EQ(complete(triggered), wrong);
}

TEST(Channels, AreNamedByNumberOrByANameThatOnlyOneHas) {
    const std::vector<ChannelInfo> channels{Channel(0, "U"), Channel(1, "a:b"), Channel(2, "U")};
    EXPECT_EQ(ChannelNamed(channels, "2"), 2);
    const ChannelSetup setup = ParseChannelSetup("a:b:calibre=0,5V,ampli=2,unit=a:b");
    EXPECT_EQ(ChannelNamed(channels, setup.Channel), 1);
    EXPECT_EQ(setup.Calibre, "0,5V");
    EXPECT_EQ(setup.Ampli, 2.0);
    for (const char* text : {"U", "3", "-1", "V"}) {
        EXPECT_EQ(ErrorOf([&] { ChannelNamed(channels, text); }), ErrorKind::WrongArguments);
    }
}

TEST(Durations, AreReadAndShownInTheUnitThatSuits) {
    for (const auto& [text, seconds] : {std::pair{"1 ms", 1e-3},
                                        {"999 µs", 999e-6},
                                        {"1 s", 1.0},
                                        {"4.294967295 s", 4.294967295},
                                        {"15 ns", 15e-9}}) {
        EXPECT_EQ(DurationText(seconds), text);
    }
    EXPECT_EQ(ParseDuration("100us"), 1e-4);
    EXPECT_EQ(ParseDuration("100µs"), 1e-4);
    EXPECT_EQ(ParseDuration("0.5"), 0.5);
    for (int ns = 1; ns < 1'000'000; ns += 977) {
        ASSERT_EQ(static_cast<int>(PeriodForDriver(ns / 1e9) * 1e9), ns);
    }
}

TEST(Files, KeepTheirModesAndLinks) {
    const fs::path folder = std::getenv("HOME");
    const auto write = [&](const char* name) {
        PendingFile file(folder / name);
        Append(file, name);
        Publish(file);
    };
    const auto mode = [&](const char* name) { return fs::status(folder / name).permissions(); };
    umask(027);
    write("new");
    EXPECT_EQ(mode("new"), fs::perms{0640});
    fs::permissions(folder / "new", fs::perms{0604});
    fs::create_symlink("new", folder / "link");
    write("link");
    EXPECT_TRUE(fs::is_symlink(folder / "link"));
    EXPECT_EQ(Content(folder / "new"), "link");
    EXPECT_EQ(mode("new"), fs::perms{0604});
}

TEST(Charts, HaveTicksOnAnyAxis) {
    for (const AxisRange range : {AxisRange{0.0, 1.0}, {-3e-7, 8e-7}, {1.0, 1.0 + 1e-9}}) {
        EXPECT_GE(TicksOf(range, 10.0, 90.0).Count, 3U) << range.To;
    }
    for (const AxisRange range :
         {AxisRange{0.0, 5e-324}, {1.0, 1.0}, {-1e308, 1e308}, {NAN, 1.0}}) {
        EXPECT_EQ(TicksOf(range, 300.0, 90.0).Count, 0U) << range.To;
    }
    EXPECT_EQ(TickText(TicksOf({-0.25, 0.25}, 300.0, 90.0), 0, ','), "\u22120,2");
}

TEST(Charts, HaveDotsAndCurvesInTheirPlaces) {
    ChartLane lane;
    lane.Curves = {{.Points = {{0.5}, {10.0}}, .Ink = {1}, .LineWidth = 0.0, .DotWidth = 8.0},
                   {.Points = {{0.0, 1.0}, {0.0, 0.0}}, .Ink = {0}, .LineWidth = 4.0}};
    Chart chart{.Lanes = {lane, lane}, .X = {0.0, 1.0}};
    chart.Width = 600;
    chart.Height = 1000;
    const fs::path file = fs::path(std::getenv("HOME")) / "chart.png";
    DrawToFile({&chart, 1}, file, file.string());
    wxImage::AddHandler(new wxPNGHandler); // NOLINT: the toolkit deletes it
    const wxImage image(file.string());
    ASSERT_TRUE(image.IsOk());
    for (const ChartArea& area : AreasOf(chart)) {
        const auto colour = [&](double time, double value) {
            const auto x = static_cast<int>(PixelX(area, time));
            const auto y = static_cast<int>(PixelY(area, value));
            return std::array<int, 3>{image.GetRed(x, y), image.GetGreen(x, y),
                                      image.GetBlue(x, y)};
        };
        EXPECT_THAT(colour(0.5, 10.0), ElementsAre(0xd5, 0x5e, 0));
        EXPECT_THAT(colour(0.25, 0.0), ElementsAre(0, 0x72, 0xb2));
        EXPECT_THAT(colour(0.25, 10.0), Each(Gt(220)));
    }
}

} // namespace
