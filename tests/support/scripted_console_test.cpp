#include "tests/support/scripted_console.h"

#include <gmock/gmock.h>

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
