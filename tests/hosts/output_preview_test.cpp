// What a host says that an output will play, against what the console gets.

#include "hosts/session/host_error.h"
#include "hosts/session/output_preview.h"
#include "hosts/session/recent_readings.h"
#include "lifecycle_exports.h"
#include "output_exports.h"
#include "tests/support/started_driver.h"

#include <sstream>

using namespace orvane;
using namespace testing;

namespace {

constexpr OutputLimits generator{
    .Least = -10.0, .Most = 10.0, .HighestHz = 5e5, .ShortestStepSec = 1e-6};

/// The exports of the outputs, of a started driver whose channel 1 is output 0.
DriverExports StartWithOutput() {
    Console.Connectors[0] =
        Adapter("", {InputChannel("In", -1, 1), OutputChannel("Sortie analogique", -1, 1)});
    Console.Connectors[0].Channels[1].Desc.TempsMinNs = 1000;
    StartDriver(12368);
    DriverExports driver{};
    driver.GetOutValMin = GetOutValMin;
    driver.GetOutValMax = GetOutValMax;
    driver.KiroDACParam = KiroDACParam;
    driver.KiroDACCreneau = KiroDACCreneau;
    driver.KiroDACSinus = KiroDACSinus;
    driver.KiroDACTriangle = KiroDACTriangle;
    driver.KiroDACGenerer = KiroDACGenerer;
    return driver;
}

void ExpectSent(const PlannedSignal& planned) {
    const auto stepNs = static_cast<long>(planned.StepSec * 1e9 + 0.5);
    EXPECT_THAT(Calls("OVDacConfig"),
                StartsWith("OVDacConfig(0, 1, " + std::to_string(stepNs) + ", " +
                           std::to_string(planned.Played.size()) + ", "));
    EXPECT_THAT(planned.Played, Pointwise(DoubleNear(1e-9), Console.DacLoads.back()));
}

TEST(OutputPreview, IsWhatTheConsoleGets) {
    const DriverExports driver = StartWithOutput();
    for (const char* shape : {"square", "sine", "triangle"}) {
        for (const double frequency : {0.6, 3.0, 440.0, 3e4, 1.7e5, 4.9e5}) {
            const OutputSignal signal{.Shape = shape,
                                      .Amplitude = 24.0,
                                      .Offset = 2.0,
                                      .FrequencyHz = frequency,
                                      .Loop = true};
            SCOPED_TRACE(shape + std::to_string(frequency));
            PlayCutSignal(driver, 0, signal);
            ExpectSent(PlanSignal(signal, generator));
        }
    }
    for (const double stepSec : {1e-6, 1.29e-4, 3.001e-3}) {
        std::istringstream file("0\n4095\r\n\n 2048\n");
        const OutputCodes codes{.Codes = ReadCodes(file), .StepSec = stepSec, .Loop = false};
        PlayCodes(driver, 0, codes);
        ExpectSent(PlanCodes(codes, generator));
    }
}

TEST(OutputPreview, TellsWhatIsCutAndWhatCannotBe) {
    const DriverExports driver = StartWithOutput();
    OutputSignal signal{
        .Shape = "sine", .Amplitude = 24.0, .Offset = 2.0, .FrequencyHz = 440.0, .Loop = true};
    const PlannedSignal planned = PlanSignal(signal, generator);
    EXPECT_NEAR(planned.CutPart, 0.27, 0.005);
    EXPECT_NEAR(1.0 / planned.PeriodSec(), 440.141, 0.001);
    EXPECT_NEAR(*std::ranges::max_element(planned.Asked), 14.0, 1e-5);
    signal.Offset = 30.0;
    EXPECT_THROW(PlanSignal(signal, generator), HostError);
    EXPECT_THROW(PlayCutSignal(driver, 0, signal), HostError);
    signal.Offset = 0.0;
    signal.FrequencyHz = 5e5; // The driver would send no point at all.
    EXPECT_THROW(PlanSignal(signal, generator), HostError);
    for (const char* text : {"", "1\n4096\n", "1\n-1", "one"}) {
        std::istringstream file(text);
        EXPECT_THROW(ReadCodes(file), HostError) << text;
    }
    EXPECT_EQ(Calls(), "");
}

TEST(RecentReadings, AreJudgedByTheLastSeconds) {
    RecentReadings readings;
    const auto last = [&] { return SpreadOf(readings, 2.0, 10.0); };
    for (int i = 0; i < 100; ++i) { // 20 s
        Append(readings, 0.2 * i, i < 89 ? 5.0 : 1.0 + (i % 2 == 0 ? 0.1 : -0.1));
    }
    EXPECT_NEAR(last().Half, 0.1, 1e-9);
    EXPECT_TRUE(last().Steady);
    EXPECT_NEAR(readings.TimesSec.front(), 0.2 * 99 - RecentReadings::LengthSec, 0.2);
    Append(readings, 20.0, 1.5);
    Append(readings, 20.2, 2.0);
    EXPECT_FALSE(last().Steady);
}

} // namespace
