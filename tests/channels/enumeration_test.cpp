// From the console's report to the lists of channels.

#include "adapter_exports.h"
#include "channels/adapter_map.h"
#include "channels/channel_text.h"
#include "channels/record_text.h"
#include "tests/support/started_driver.h"

using namespace orvane;

namespace {

TEST(Enumeration, OrdersTheConsoleBeforeItsAdapters) {
    std::vector<ScriptedChannel>& channels = Console.Connectors[0].Channels;
    for (const char* name :
         {"Sortie analogique 1", "sortie analogique", "Analog output", "Sortie a\xE9", "Analog"}) {
        channels.push_back(OutputChannel(name, -5, 5));
    }
    channels.push_back(PlainChannel("Sortie a", 0, 2));
    channels.push_back(PlainChannel("Sortie a", 1, 0));
    for (const char* name : {"SYNCHRO EXTERNE", "extern TRIGGER", "Synchro externe\xE9"}) {
        channels.push_back(InputChannel(name, 0, 5));
    }
    Console.Connectors[3] = Adapter("482070",
                                    {OutputChannel("Sortie a", -1, 1), InputChannel("A", -1, 1),
                                     InputChannel("Extern trigger 2", -1, 1)},
                                    21);
    Console.Connectors[1] = Adapter("Reference", {InputChannel("B", -2, 2)});
    Console.Connectors[2] = Adapter("99999999999", {});
    StartDriver();
    Voie().Ampli = 3.0;
    EXPECT_EQ(CombienDeCanauxEnEntree(), 6);
    EXPECT_EQ(Voie().Ampli, 1.0) << "a list starts afresh";
    std::string rows;
    for (const int i : SynchroChannels) {
        rows += Text(QuelVoiePhysiquePour(i), QuelCanalPour(i), QuelReferencePour(i),
                     QuelCodePour(i), IsSynchroExternePour(i));
    }
    EXPECT_EQ(rows, "0 | 7 | 999999 | 0 | 1 | 0 | 8 | 999999 | 0 | 1 | 0 | 9 | 999999 | 0 | 0 | "
                    "1 | 0 | 0 | 0 | 0 | 3 | 1 | 482070 | 21 | 0 | 3 | 2 | 482070 | 21 | 0 | ");
    ASSERT_EQ(CombienDeCanauxEnSortie(), 2);
    const TvlVoieOrvane& output = *OutputChannels[1];
    EXPECT_EQ(Text(+output.Canal, output.CodeReference, output.MaxCalibre), "2 | -1 | 5 | ");
    Console.Fail("OVGetChannelDesc");
    EXPECT_EQ(CombienDeCanauxEnEntree(), 0) << "a channel that can't be read is left out";
    EXPECT_EQ(InputChannels.capacity(), 0U);
}

TEST(Enumeration, FindsTheLinksOfAnAdapter) {
    Console.Connectors[1] = Adapter(
        "1", {StateChannel("no line of it"), AdjustmentChannel("Etiquette=3\r\n\nReglage=2"),
              PlainChannel("v", 2, 1), InputChannel("U", 0, 1), StateChannel("  Reglage  =  5x\r"),
              AdjustmentChannel("Reglage = 4\nReglages = 9"), PlainChannel("v", 2, 1)});
    Console.Connectors[2] = Adapter("2", {InputChannel("I", 0, 1), AdjustmentChannel("Reglage=7")});
    StartDriver();
    const auto links = [](const TvlVoieOrvane& voie) {
        return Text(voie.VoieReglage, voie.VoieValeur, voie.VoieEtat, voie.ModeReglage);
    };
    EXPECT_EQ(links(*InputChannels[0]), "1 | 2 | 4 | 4 | ") << "the first links, the last mode";
    EXPECT_EQ(links(*InputChannels[1]), "1 | -1 | -1 | 7 | ");
    Console.Fail("OVReadChannelText");
    EXPECT_EQ(CombienDeCanauxEnEntree(), 2);
    EXPECT_EQ(links(*InputChannels[0]), "-1 | 2 | -1 | 0 | ") << "a text that is not delivered";
}

TEST(Enumeration, ReadsNumbersOfTheText) {
    const std::pair<const char*, std::optional<int>> lines[] = {
        {"x\r\n  Reglage  =  -3.7", -3},
        {"Reglage = \t+8", 8},
        {"Reglage = +-8", 0},
        {"Reglage=\n5", 0}, // The number does not come from the next line.
        {"Reglage=99999999999", 2147483647},
        {"Reglage=-99999999999", -2147483648},
        {"reglage=1\nReglage\nReglage 1\nReglagex=1\n\tReglage=1\nx Reglage=1", std::nullopt}};
    for (const auto& [text, number] : lines) {
        EXPECT_EQ(FirstNumber(text, "Reglage"), number) << text;
    }
    EXPECT_EQ(Text(ReferenceNumber("482034-A"), ReferenceNumber("-5"),
                   ReferenceNumber("4000000000"), ReferenceNumber("99999999999999999999")),
              "482034 | 0 | 2147483647 | 2147483647 | ");
}

TEST(Enumeration, SelectsAFunctionOnceMoreOnOneModelOnly) {
    ScriptedChannel channel = InputChannel("A", 0, 1);
    channel.Functions.push_back(channel.Functions[0]);
    channel.Desc.FonctionCourante = 1;
    Console.Connectors[2] = Adapter("482080", {channel});
    Console.Connectors[3] = Adapter("482080\xE9", {channel});
    StartDriver(12304);
    CombienDeCanauxEnEntree();
    EXPECT_EQ(Calls("OVSelectFunction"), "");
    StartDriver(12336);
    CombienDeCanauxEnEntree();
    EXPECT_EQ(Calls("OVSelectFunction"), "OVSelectFunction(2, 0, 1) ");
}

TEST(AdapterMap, FollowsTheNotifications) {
    const auto connectors = [] {
        std::string plugged;
        for (const auto& [connector, desc] : PluggedAdapters()) {
            plugged += Text(+connector);
        }
        return plugged;
    };
    EXPECT_FALSE(VerifCanaux()) << "nothing was noted since the library was loaded";
    EXPECT_TRUE(VerifCanaux());
    for (const uint8_t connector : std::initializer_list<uint8_t>{5, 3, 1, 3}) {
        Console.Connectors[connector] = Adapter("1", {});
        AdapterCb(connector, true);
        AdapterCb(9, true);
    }
    EXPECT_FALSE(VerifCanaux());
    EXPECT_EQ(connectors(), "1 | 3 | 5 | ") << "no record, no entry";
    AdapterCb(3, false);
    EXPECT_FALSE(VerifCanaux()) << "unplugging is a change, too";
    EXPECT_EQ(connectors(), "1 | 5 | ");
    EXPECT_EQ(GetEtatVerifCanaux(), 3);
}

TEST(ChannelList, GrowsByItsOwnSizeAndBySixteenAtLeast) {
    std::vector<int32_t> list;
    std::string capacities;
    for (int i = 0; i < 33; ++i) {
        Append(list, i);
        capacities += i % 16 == 0 ? Text(list.capacity()) : "";
    }
    EXPECT_EQ(capacities, "16 | 32 | 64 | ");
}

} // namespace
