// Signals and values of the analog outputs, as the console gets them.

#include "channel_exports.h"
#include "channels/channel_lists.h"
#include "lifecycle_exports.h"
#include "output_exports.h"
#include "tests/support/scripted_console.h"

#include <gmock/gmock.h>

#include <limits>

using namespace orvane;

namespace {

using testing::DoubleEq;
using testing::DoubleNear;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pointwise;

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

/// A started driver over a console whose channel 1 is output 0.
void StartWithOutput(uint16_t model, uint32_t tempsMinNs = 100'000, int32_t dacParam = -1) {
    Console.Model = model;
    Console.Memory.resize(32768);
    Console.Connectors[0] =
        Adapter("", {InputChannel("In", -1, 1), OutputChannel("Sortie analogique", -1, 1)});
    Console.Connectors[0].Channels[1].Desc.TempsMinNs = tempsMinNs;
    StartDll(0, "", "fr", dacParam);
    CombienDeCanauxEnEntree();
    Console.TakeCalls();
}

const std::vector<double>& Sent() {
    return Console.DacLoads.back();
}

TEST(Output, FrequencyGivesPointsAndSamplePeriod) {
    const auto config = [](double frequence) {
        EXPECT_TRUE(KiroDACTriangle(0, 1.0, 0.0, frequence, 0)) << frequence;
        return Console.TakeCalls().at(2);
    };
    StartWithOutput(12304);
    KiroDACSinus(0, 1.0, 0.0, 1000.0, 1);
    EXPECT_THAT(Console.TakeCalls(), ElementsAre("OVDacStop(0, 1)", "OVDacClear(0, 1)",
                                                 "OVDacConfig(0, 1, 100000, 10, 0)",
                                                 "OVDacLoad(0, 1, 10)", "OVDacStart(0, 1)"));
    EXPECT_EQ(config(50.0), "OVDacConfig(0, 1, 100000, 200, 1)");
    EXPECT_EQ(config(3.0), "OVDacConfig(0, 1, 100040, 3332, 1)");
    EXPECT_EQ(config(1.0), "OVDacConfig(0, 1, 100000, 10000, 1)");
    EXPECT_EQ(config(0.5), "OVDacConfig(0, 1, 200000, 10000, 1)");
    EXPECT_EQ(config(7000.0), "OVDacConfig(0, 1, 4294967295, 0, 1)");
    EXPECT_EQ(config(5e-324), "OVDacConfig(0, 1, 4294967295, 10000, 1)");
    StartWithOutput(12304, 0);
    Console.FailFrom(1); // What the console says to a signal changes nothing.
    EXPECT_EQ(config(2.5e8), "OVDacConfig(0, 1, 1, 4, 1)");
}

TEST(Output, RefusesWhatNoSignalCanBe) {
    StartWithOutput(12304);
    for (const auto signal : {KiroDACCreneau, KiroDACSinus, KiroDACTriangle}) {
        for (const double frequence : {0.0, -1.0, -infinity, infinity, notANumber, 20000.0}) {
            EXPECT_FALSE(signal(0, 1.0, 0.0, frequence, 1)) << frequence;
        }
        EXPECT_FALSE(signal(-1, 1.0, 0.0, 1000.0, 1));
        EXPECT_FALSE(signal(1, 1.0, 0.0, 1000.0, 1));
    }
    const int32_t code = 0;
    for (const double dtNs : {0.0, -1.0, infinity, notANumber}) {
        EXPECT_FALSE(KiroDACGenerer(0, 1, &code, dtNs, 1)) << dtNs;
    }
    EXPECT_FALSE(KiroDACGenerer(0, 0, &code, 1.0, 1));
    EXPECT_FALSE(KiroDACGenerer(0, std::numeric_limits<int32_t>::min(), &code, 1.0, 1));
    EXPECT_FALSE(KiroDACGenerer(0, 1, nullptr, 1.0, 1));
    EXPECT_FALSE(KiroDACGenerer(1, 1, &code, 1.0, 1));
    KiroDACEcrire(-1, 0.5);
    KiroDACEcrireNum(1, 2048);
    EXPECT_THAT(Console.TakeCalls(), IsEmpty());
}

TEST(Output, LimitsTheLevelsOfASquareOnOneSideOnly) {
    StartWithOutput(12304);
    KiroDACCreneau(0, 1.0, 5.0, 2500.0, 1);
    EXPECT_THAT(Sent(), ElementsAre(4.5, 4.5, 1.0, 1.0));
    KiroDACCreneau(0, 1.0, -5.0, 2500.0, 1);
    EXPECT_THAT(Sent(), ElementsAre(-1.0, -1.0, -4.5, -4.5));
}

TEST(Output, AddsUpTheAngleOfASine) {
    StartWithOutput(12368);
    KiroDACSinus(0, 50.0, 1.0, 2500.0, 1);
    EXPECT_THAT(Sent(), Pointwise(DoubleNear(1e-14), {1.0, 10.0, 1.0, -10.0}));
    KiroDACSinus(0, 2.0, 0.0, 1.0, 1);
    EXPECT_THAT(Sent().at(9999), DoubleEq(-0.0006283184885328714));
    KiroDACSinus(0, notANumber, 0.0, 2500.0, 1);
    EXPECT_THAT(Sent(), Each(-10.0));
}

TEST(Output, RestartsEachRunOfATriangle) {
    StartWithOutput(12368);
    KiroDACTriangle(0, 2.0, 0.0, 1000.0, 1);
    EXPECT_THAT(Sent(), Pointwise(DoubleNear(1e-15),
                                  {0.0, 0.4, 1.0, 0.6, 0.2, -0.2, -0.6, -1.0, -0.6, -0.2}));
    KiroDACTriangle(0, 24.0, 0.5, 2500.0, 1);
    EXPECT_THAT(Sent(), ElementsAre(0.5, 10.0, 0.5, -10.0));
    KiroDACTriangle(0, 2.0, 0.5, 5000.0, 1);
    EXPECT_THAT(Sent(), ElementsAre(1.5, -0.5));
}

TEST(Output, SpreadsCodesOverTheRange) {
    std::vector<int32_t> codes{0, 4095, 2048, 8190};
    StartWithOutput(12304);
    EXPECT_TRUE(KiroDACGenerer(0, 4, codes.data(), 1000.0, 0));
    EXPECT_THAT(Sent(), Pointwise(DoubleNear(1e-12), {-1.0, 1.0, 1.0 / 4095.0, 3.0}));
    StartWithOutput(12368);
    codes.resize(1000);
    EXPECT_TRUE(KiroDACGenerer(0, 1000, codes.data(), 1000.0, 0));
    EXPECT_THAT(Sent()[2], DoubleNear(0.002442, 1e-8));
    EXPECT_EQ(Console.TakeCalls().at(2), "OVDacConfig(0, 1, 1000, 1000, 1)");
}

TEST(Output, WritesAndStops) {
    StartWithOutput(12304);
    KiroDACEcrire(0, 12.5);
    KiroDACEcrireNum(0, 2047);
    KiroDACEcrireNum(0, 2048);
    EXPECT_THAT(Console.TakeCalls(), ElementsAre("OVDacWrite(0, 1, 12.5)", "OVDacStop(0, 1)",
                                                 "OVDacClear(0, 1)", "OVDacWrite(0, 1, 0)"));
    OutputChannels[0]->Connecteur = 1; // Only outputs of the console itself are served.
    KiroDACEcrire(0, 12.5);
    KiroDACEcrireNum(0, 2048);
    EXPECT_TRUE(KiroDACSinus(0, 1.0, 0.0, 1000.0, 1));
    EXPECT_THAT(Console.TakeCalls(), IsEmpty());
}

TEST(Output, TellsWhatTheModelCan) {
    const auto params = [] {
        std::vector<double> param(3);
        KiroDACParam(7, &param[0], nullptr, nullptr); // Each for itself.
        KiroDACParam(7, nullptr, &param[1], nullptr);
        KiroDACParam(7, nullptr, nullptr, &param[2]);
        return param;
    };
    StartWithOutput(12304);
    EXPECT_FALSE(KiroDACDisponible(0));
    EXPECT_THAT(params(), ElementsAre(5.0, 1.0, 500.0));
    StartWithOutput(12368);
    EXPECT_TRUE(KiroDACDisponible(0));
    EXPECT_FALSE(KiroDACDisponible(-1));
    EXPECT_FALSE(KiroDACDisponible(1));
    EXPECT_THAT(params(), ElementsAre(10.0, 1.0, 500000.0));
    StartWithOutput(12304, 0, 1200);
    EXPECT_THAT(params(), ElementsAre(5.0, 1.0, 1200.0));
}

} // namespace
