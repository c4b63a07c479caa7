// What is computed of samples, and the files that they are read back from.

#include "hosts/session/host_error.h"
#include "hosts/session/samples_file.h"
#include "hosts/session/series_measures.h"
#include "hosts/session/unit_prefix.h"
#include "hosts/spectrum/spectrum.h"
#include "tests/hosts/file_content.h"

#include <gmock/gmock.h>

#include <cmath>
#include <numbers>

using namespace orvane;
using namespace testing;

namespace {

Samples Sine(size_t count, double samplesInPeriod, double amplitude, double mean) {
    Samples samples(count);
    for (size_t i = 0; i < count; ++i) {
        samples[i] = mean + amplitude * std::sin(2.0 * std::numbers::pi * static_cast<double>(i) /
                                                 samplesInPeriod);
    }
    return samples;
}

TEST(Measures, AreThoseOfTheFormulasWithAndWithoutAnOutline) {
    for (const size_t count : {20'000UL, 1'000'000UL}) {
        for (const double period : {50.0, 5000.0}) {
            const Samples samples = Sine(count, period, 2.0, 1.0);
            SeriesOutline outline;
            Extend(outline, samples);
            for (const SeriesOutline& used : {SeriesOutline{}, outline}) {
                const SeriesMeasures measures = MeasuresOf(samples, used, {100, count}, 1e-3);
                EXPECT_NEAR(measures.Min, -1.0, 0.005);
                EXPECT_NEAR(measures.Max, 3.0, 0.005);
                EXPECT_NEAR(measures.Mean, 1.0, 0.02);
                EXPECT_NEAR(measures.Rms, std::sqrt(1.0 + 2.0), 0.02);
                ASSERT_TRUE(measures.FrequencyHz);
                EXPECT_NEAR(*measures.FrequencyHz * period * 1e-3, 1.0, 1e-3);
            }
        }
    }
    EXPECT_FALSE(MeasuresOf(Samples{0, 1, 0, 0, 0, 0, 1, 0, 1, 0, 1, 1, 1, 0, 1}, {}, {0, 15}, 1.0)
                     .FrequencyHz);
}

TEST(Spectrum, HasASineInItsLineWhateverTheWindow) {
    for (const auto window :
         {SpectrumWindow::Hann, SpectrumWindow::Hamming, SpectrumWindow::Blackman,
          SpectrumWindow::FlatTop, SpectrumWindow::Rectangular}) {
        // 40 periods of 25 samples at 1 kHz, 1000 in all.
        const Spectrum spectrum = SpectrumOf(Sine(1000, 25.0, 3.0, 7.0), 1e-3, window);
        ASSERT_THAT(spectrum.Amplitudes, SizeIs(501));
        EXPECT_NEAR(spectrum.StepHz, 1.0, 1e-12);
        EXPECT_NEAR(spectrum.Amplitudes[40], 3.0, 1e-6);
        EXPECT_NEAR(spectrum.Amplitudes[0], 7.0, 1e-9);
        EXPECT_NEAR(spectrum.Amplitudes[200], 0.0, 1e-6);
        EXPECT_NEAR(PeakFrequencyHz(spectrum), 40.0, 1e-6);
    }
    // Between two lines; Hann loses at most 15 % of the height.
    const Spectrum between =
        SpectrumOf(Sine(1000, 1000.0 / 40.5, 3.0, 0.0), 1e-3, SpectrumWindow::Hann);
    EXPECT_NEAR(between.Amplitudes[40], 3.0 * 0.85, 0.02);
    EXPECT_NEAR(PeakFrequencyHz(between), 40.5, 0.05);
}

TEST(Told, ValuesHaveThePrefixAndTheDecimalsOfTheirRange) {
    ChannelInfo amperes;
    amperes.Unit = "A";
    amperes.Min = -0.01;
    amperes.Max = 0.01;
    EXPECT_EQ(ToldRange(amperes), "±10 mA");
    EXPECT_EQ(ToldValue(amperes, -0.001817), "\u22121.817");
    EXPECT_EQ(ToldValue(amperes, -1e-9), "0.000");
    EXPECT_EQ(ToldValue(amperes, std::nan("")), "");
    ChannelInfo degrees;
    degrees.Unit = "°C";
    degrees.Max = 0.5;
    EXPECT_EQ(ToldRange(degrees), "0…0.5 °C");
    EXPECT_EQ(ToldFrequency(50.0), "50.00 Hz");
    EXPECT_EQ(ToldFrequency(123456.0), "123.5 kHz");
}

TEST(SamplesFile, IsReadBackAsItWasSaved) {
    fs::current_path(std::getenv("HOME"));
    ChannelInfo volts;
    volts.Index = 2;
    volts.Name = "=a, \"b\"; c";
    volts.Unit = "V";
    volts.Quantity = "u";
    volts.Calibres = {"+-12V"};
    volts.Min = -12.0;
    volts.Max = 12.0;
    AcquisitionRecording recording;
    recording.PeriodSec = 129e-6;
    recording.PreTriggerPoints = 2;
    recording.Fetched = {{0.1, -2.0, 1e-7, 4.0}, {5.0, 6.0, 7.0, 8.0}};
    PendingFile file("run.csv");
    SaveSamplesFile(file, {volts, ChannelInfo{}}, recording, {"2026-03-01 14:05:09", "", "school"});
    const SamplesFile read = ReadSamplesFile("run.csv");
    EXPECT_EQ(read.Recording.Fetched, recording.Fetched);
    EXPECT_EQ(read.Recording.PeriodSec, 129e-6);
    EXPECT_EQ(read.Recording.PreTriggerPoints, 2U);
    EXPECT_EQ(read.Notes.Scenario, "school");
    EXPECT_EQ(read.Notes.Date, "2026-03-01 14:05:09");
    EXPECT_EQ(read.Channels[0].Index, 2);
    EXPECT_EQ(read.Channels[0].Max, 12.0);
    EXPECT_EQ(read.Channels[0].Quantity, "u");

    std::ofstream("cli.csv") << "run,time (s),Courant (A)\n1,0,1\n1,0.5,2\n2,0,3\n2,0.5,4\n";
    const SamplesFile plain = ReadSamplesFile("cli.csv");
    EXPECT_THAT(plain.Recording.Fetched, ElementsAre(ElementsAre(3.0, 4.0)));
    EXPECT_EQ(plain.Recording.PeriodSec, 0.5);
    EXPECT_EQ(plain.Channels[0].Unit, "A");
    for (const char* content :
         {"", "a,b\n1,2\n", "time (s),a\n", "time (s),a\n0,1\n1,x\n", "time (s),a\n1,1\n0,1\n"}) {
        std::ofstream("bad.csv") << content;
        EXPECT_THROW(ReadSamplesFile("bad.csv"), HostError) << content;
    }
    EXPECT_THROW(ReadSamplesFile("/nowhere.csv"), HostError);
}

} // namespace
