// Signals and values of the analog outputs, as the console gets them.

#include "output_exports.h"
#include "tests/support/started_driver.h"

#include <cmath>

using namespace orvane;

namespace {

/// A started driver over a console whose channel 1 is output 0.
void StartWithOutput(uint16_t model, uint32_t tempsMinNs = 100'000, int32_t dacParam = -1) {
    Console.Connectors[0] =
        Adapter("", {InputChannel("In", -1, 1), OutputChannel("Sortie analogique", -1, 1)});
    Console.Connectors[0].Channels[1].Desc.TempsMinNs = tempsMinNs;
    StartDriver(model, dacParam);
}

TEST(Output, FrequencyGivesPointsAndSamplePeriod) {
    const auto config = [](double frequence) {
        EXPECT_TRUE(KiroDACTriangle(0, 1.0, 0.0, frequence, 0)) << frequence;
        return Calls("OVDacConfig");
    };
    StartWithOutput(12304);
    KiroDACSinus(0, 1.0, 0.0, 1000.0, 1);
    EXPECT_EQ(Calls(), "OVDacStop(0, 1) OVDacClear(0, 1) OVDacConfig(0, 1, 100000, 10, 0) "
                       "OVDacLoad(0, 1, 10) OVDacStart(0, 1) ");
    EXPECT_EQ(config(3.0), "OVDacConfig(0, 1, 100040, 3332, 1) ");
    EXPECT_EQ(config(1.0), "OVDacConfig(0, 1, 100000, 10000, 1) ");
    EXPECT_EQ(config(0.6), "OVDacConfig(0, 1, 166666, 10000, 1) ");
    EXPECT_EQ(config(6000.0), "OVDacConfig(0, 1, 4294967295, 0, 1) ") << "1.67 points";
    EXPECT_EQ(config(5e-324), "OVDacConfig(0, 1, 4294967295, 10000, 1) ");
    StartWithOutput(12304, 0);
    Console.FailFrom(1); // What the console says to a signal changes nothing.
    EXPECT_EQ(config(2.5e8), "OVDacConfig(0, 1, 1, 4, 1) ");
    EXPECT_EQ(config(1e9), "OVDacConfig(0, 1, 4294967295, 0, 1) ");
}

TEST(Output, RefusesWhatNoSignalCanBe) {
    StartWithOutput(12304);
    for (const auto signal : {KiroDACCreneau, KiroDACSinus, KiroDACTriangle}) {
        for (const double frequence : {0.0, -1.0, -HUGE_VAL, HUGE_VAL, double{NAN}, 20000.0}) {
            EXPECT_FALSE(signal(0, 1.0, 0.0, frequence, 1)) << frequence;
        }
        EXPECT_FALSE(signal(-1, 1.0, 0.0, 1000.0, 1) || signal(1, 1.0, 0.0, 1000.0, 1));
    }
    const int32_t code = 0;
    for (const double dtNs : {0.0, -1.0, HUGE_VAL, double{NAN}}) {
        EXPECT_FALSE(KiroDACGenerer(0, 1, &code, dtNs, 1)) << dtNs;
    }
    EXPECT_FALSE(KiroDACGenerer(0, 0, &code, 1.0, 1) || KiroDACGenerer(0, -1, &code, -1.0, 1) ||
                 KiroDACGenerer(0, 1, nullptr, 1.0, 1) || KiroDACGenerer(1, 1, &code, 1.0, 1));
    KiroDACEcrire(-1, 0.5);
    KiroDACEcrireNum(1, 2048);
    EXPECT_EQ(Calls(), "");
}

TEST(Output, SignalsHaveTheirShapeWithinTheLimits) {
    const auto sent = [](auto signal, double amplitude, double offset, double frequence) {
        signal(0, amplitude, offset, frequence, 1);
        std::string samples;
        for (const double sample : Console.DacLoads.back()) {
            samples += Text(sample);
        }
        return samples;
    };
    StartWithOutput(12304);
    EXPECT_EQ(sent(KiroDACCreneau, 1.0, 5.0, 2500.0), "4.5 | 4.5 | 1 | 1 | ");
    EXPECT_EQ(sent(KiroDACCreneau, 1.0, -5.0, 2500.0), "-1 | -1 | -4.5 | -4.5 | ");
    StartWithOutput(12368);
    EXPECT_EQ(sent(KiroDACSinus, 50.0, 1.0, 2500.0), "1 | 10 | 1 | -10 | ");
    EXPECT_EQ(sent(KiroDACSinus, NAN, 0.0, 5000.0), "-10 | -10 | ");
    EXPECT_EQ(sent(KiroDACTriangle, 4.0, 0.5, 1000.0),
              "0.5 | 1.3 | 2.5 | 1.7 | 0.9 | 0.1 | -0.7 | -1.5 | -0.7 | 0.1 | ");
    EXPECT_EQ(sent(KiroDACTriangle, 24.0, 0.5, 2500.0), "0.5 | 10 | 0.5 | -10 | ");
    EXPECT_EQ(sent(KiroDACTriangle, 2.0, 0.5, 5000.0), "1.5 | -0.5 | ");
    const auto generate = [](int32_t, double, double, double, uint8_t) {
        const int32_t codes[] = {0, 4095, 2048, 8190};
        EXPECT_TRUE(KiroDACGenerer(0, 4, codes, 1000.0, 0));
    };
    EXPECT_EQ(sent(generate, 0.0, 0.0, 0.0), "-10 | 10 | 0.002442 | 30 | ");
    EXPECT_EQ(Console.CallsOf("OVDacConfig").back(), "OVDacConfig(0, 1, 1000, 4, 1)");
    sent(KiroDACSinus, 2.0, 0.0, 1.0);
    EXPECT_DOUBLE_EQ(Console.DacLoads.back().at(9999), -0.0006283184885328714)
        << "the angle is added up";
}

TEST(Output, WritesAndStops) {
    const auto calls = [] {
        KiroDACEcrire(0, 12.5);
        KiroDACEcrireNum(0, 2047);
        KiroDACEcrireNum(0, 2048);
        return Calls();
    };
    StartWithOutput(12304);
    EXPECT_EQ(calls(), "OVDacWrite(0, 1, 12.5) OVDacStop(0, 1) OVDacClear(0, 1) "
                       "OVDacWrite(0, 1, 0) ");
    OutputChannels[0]->Connecteur = 1; // Only outputs of the console itself are served.
    EXPECT_TRUE(KiroDACSinus(0, 1.0, 0.0, 1000.0, 1));
    EXPECT_EQ(calls(), "");
}

TEST(Output, TellsWhatTheModelCan) {
    const auto told = [] {
        double param[3] = {};
        KiroDACParam(7, &param[0], nullptr, &param[2]); // Each for itself.
        KiroDACParam(7, nullptr, &param[1], nullptr);
        return Text(param[0], param[1], param[2], KiroDACDisponible(0), KiroDACDisponible(-1),
                    KiroDACDisponible(1));
    };
    StartWithOutput(12304, 0, 1200);
    EXPECT_EQ(told(), "5 | 1 | 1200 | 0 | 0 | 0 | ");
    StartWithOutput(12304);
    EXPECT_EQ(told(), "5 | 1 | 500 | 0 | 0 | 0 | ");
    StartWithOutput(12368);
    EXPECT_EQ(told(), "10 | 1 | 500000 | 1 | 0 | 0 | ");
}

} // namespace
