#include "tests/support/scripted_console.h"

#include <gmock/gmock.h>

#include <limits>
#include <thread>

using testing::ElementsAre;
using testing::IsEmpty;

TEST(ScriptedConsole, RecordsArgumentsThatReadExactly) {
    OVStartLibrary("ctx", wxString::FromUTF8("fr\u00E9"));
    OVOpen(ConsoleInterfaceId);
    OVRadioSetLevel(-4);
    OVWriteAdjustment(1, -1, 0.1);
    OVSetCalibrationValue(1, 0, std::numeric_limits<uint32_t>::max(), 0.1F);
    OVRadioSetConfig(RadioPilote, 11, 1050);
    OVSetPlugCallback(nullptr);
    EXPECT_THAT(Console.CallsOf("OVRadio"),
                ElementsAre("OVRadioSetLevel(-4)", "OVRadioSetConfig(17, 11, 1050)"));
    EXPECT_THAT(Console.TakeCalls(),
                ElementsAre("OVStartLibrary(\"ctx\", \"fr\u00E9\")",
                            "OVOpen(0820032E8E4A8E4A88DAC0F1B5377E0A)", "OVRadioSetLevel(-4)",
                            "OVWriteAdjustment(1, -1, 0.1)",
                            "OVSetCalibrationValue(1, 0, 4294967295, 0.1)",
                            "OVRadioSetConfig(17, 11, 1050)", "OVSetPlugCallback(null)"));
    EXPECT_THAT(Console.TakeCalls(), IsEmpty());
}

TEST(ScriptedConsole, TreeTellsTrueCountsOrTheLiesOfTheTestAndRefusesBeyond) {
    Console.Plug(1,
                 Adapter("482034", {InputChannel("U", -12, 12), AdjustmentChannel("Reglage=2")}));
    tAdapterDesc adapter{};
    tChannelDesc channel{};
    Console.Connectors[1].Desc.NbVoies = 255;
    EXPECT_TRUE(OVGetAdapterDesc(1, &adapter));
    EXPECT_EQ(adapter.NbVoies, 255);
    EXPECT_FALSE(OVGetChannelDesc(1, 2, &channel));
    Console.AcceptBeyond = true;
    EXPECT_TRUE(OVGetChannelDesc(1, 2, &channel));
    EXPECT_EQ(channel.TailleTexte, 0U);
    EXPECT_TRUE(OVGetChannelDesc(1, 1, &channel));
    EXPECT_EQ(channel.TailleTexte, 9U);

    char text[12] = "-----------";
    EXPECT_TRUE(OVReadChannelText(1, 1, text, 11));
    EXPECT_STREQ(text, "Reglage=2--");
}

TEST(ScriptedConsole, FailuresDoNothingAndAreCountedFromNow) {
    const auto configure = [](uint32_t dt) { return OVAutoConfigAcq(dt, 10); };
    Console.Fail("OVAutoConfigAcq", 2);
    EXPECT_FALSE(configure(1));
    EXPECT_TRUE(OVAutoStop());
    EXPECT_FALSE(configure(2));
    EXPECT_EQ(Console.ConfiguredDt, 0U);
    EXPECT_TRUE(configure(3));
    Console.FailCall(2);
    EXPECT_TRUE(OVAutoStop());
    EXPECT_EQ(OVCountInterfaces(2), 0);
    EXPECT_TRUE(OVAutoStop());
    Console.FailFrom(1);
    EXPECT_FALSE(OVAutoStop());
    EXPECT_FALSE(configure(4));
    Console.FailNothing();
    uint32_t dt = 0;
    EXPECT_TRUE(OVAutoGetDt(&dt));
    EXPECT_EQ(dt, 3U);
}

TEST(ScriptedConsole, AnswersASecondThreadWhileTheTestLooks) {
    Console.Plug(1, Adapter("482109", {InputChannel("Flow", -20, 20)}));
    double flow = 0.0;
    std::thread reader([&] {
        while (OVReadValue(1, 0, 1, 0, &flow) && flow < 1.0) {
        }
    });
    while (Console.CallsOf("OVReadValue").empty()) {
        std::this_thread::yield();
    }
    Console.SetValue(1, 0, 1.0);
    reader.join();
    EXPECT_EQ(flow, 1.0);
    EXPECT_EQ(Console.TakeCalls().size(), Console.CallCount());
}
