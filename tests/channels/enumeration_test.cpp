// From the console's report to the lists of channels.

#include "adapter_exports.h"
#include "channel_exports.h"
#include "channels/adapter_map.h"
#include "channels/channel_lists.h"
#include "channels/channel_text.h"
#include "channels/record_text.h"
#include "connection/connection_state.h"
#include "lifecycle_exports.h"
#include "tests/support/scripted_console.h"

#include <gmock/gmock.h>

using namespace orvane;

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

class Enumeration : public testing::Test {
protected:
    Enumeration() {
        Console.Memory.assign(32768, 0);
    }
    static int Enumerate() {
        EXPECT_TRUE(StartDll(0, "", "fr", 0));
        return CombienDeCanauxEnEntree();
    }
};

TEST_F(Enumeration, OrdersTheConsoleBeforeItsAdapters) {
    Console.Connectors[0].Channels = {
        InputChannel("SYNCHRO EXTERNE", 0, 5), OutputChannel("Sortie analogique 1", -5, 5),
        OutputChannel("sortie analogique", -5, 5), OutputChannel("Analog output", -5, 5)};
    Console.Connectors[3] = Adapter("482070",
                                    {OutputChannel("Sortie a", -1, 1), InputChannel("A", -1, 1),
                                     InputChannel("Extern trigger 2", -1, 1)},
                                    21);
    Console.Connectors[1] = Adapter("Reference", {InputChannel("B", -2, 2)});
    Console.Connectors[2] = Adapter("99999999999", {});
    ASSERT_EQ(Enumerate(), 4);
    EXPECT_EQ(CombienDeCanauxEnSortie(), 2);
    EXPECT_EQ(CombienDeCanauxDeSynchro(), 4);
    EXPECT_THAT(SynchroChannels, ElementsAre(0, 1, 2, 3));
    std::vector<std::vector<int>> rows;
    for (int i = 0; i < 4; ++i) {
        rows.push_back({QuelVoiePhysiquePour(i), QuelCanalPour(i), QuelReferencePour(i),
                        QuelCodePour(i), IsSynchroExternePour(i) ? 1 : 0});
    }
    EXPECT_THAT(rows,
                ElementsAre(ElementsAre(0, 0, 999999, 0, 1), ElementsAre(1, 0, 0, 0, 0),
                            ElementsAre(3, 1, 482070, 21, 0), ElementsAre(3, 2, 482070, 21, 0)));
    EXPECT_EQ(OutputChannels[1]->Canal, 3);
    EXPECT_EQ(OutputChannels[1]->CodeReference, -1);
    EXPECT_EQ(OutputChannels[1]->MaxCalibre, 5.0);
}

TEST_F(Enumeration, TakesNoTextFromBytesThatAreNoUtf8) {
    Console.Connectors[0].Channels = {OutputChannel("Sortie a\xE9", -5, 5),
                                      InputChannel("Synchro externe\xE9", 0, 5)};
    Console.Connectors[1] = Adapter("482080\xE9", {InputChannel("A", 0, 1)});
    Console.Model = 12336;
    ASSERT_EQ(Enumerate(), 2);
    EXPECT_EQ(CombienDeCanauxEnSortie(), 0);
    EXPECT_FALSE(IsSynchroExternePour(0));
    EXPECT_EQ(QuelReferencePour(1), 0);
    EXPECT_THAT(Console.CallsOf("OVSelectFunction"), IsEmpty());
}

TEST_F(Enumeration, FindsTheLinksOfAnAdapter) {
    Console.Connectors[1] = Adapter(
        "1", {StateChannel("no line of it"), AdjustmentChannel("Etiquette=3\r\n\nReglage=2"),
              PlainChannel("v", 2, 1), InputChannel("U", 0, 1), StateChannel("  Reglage  =  5x\r"),
              AdjustmentChannel("Reglage = 4\nReglages = 9"), PlainChannel("v", 2, 1)});
    Console.Connectors[2] = Adapter("2", {InputChannel("I", 0, 1), AdjustmentChannel("Reglage=7")});
    Console.Fail("OVReadChannelText", 0);
    ASSERT_EQ(Enumerate(), 2);
    const TvlVoieOrvane& voie = *InputChannels[0];
    EXPECT_EQ(voie.VoieReglage, 1) << "the first of its kind";
    EXPECT_EQ(voie.VoieValeur, 2);
    EXPECT_EQ(voie.VoieEtat, 4);
    EXPECT_EQ(voie.ModeReglage, 4) << "the last line of the adapter";
    EXPECT_EQ(InputChannels[1]->VoieEtat, -1);
    Console.Fail("OVReadChannelText");
    EXPECT_EQ(CombienDeCanauxEnEntree(), 2);
    EXPECT_EQ(InputChannels[1]->VoieReglage, -1) << "a text that is not delivered is empty";
}

TEST_F(Enumeration, ReadsNumbersOfTheText) {
    const auto number = [](std::string_view text) { return FirstNumber(text, "Reglage"); };
    EXPECT_EQ(number("Reglage=12"), 12);
    EXPECT_EQ(number("x\r\n  Reglage  =  -3.7"), -3);
    EXPECT_EQ(number("Reglage = \t+8"), 8);
    EXPECT_EQ(number("Reglage = word"), 0);
    EXPECT_EQ(number("Reglage=\n5"), 0) << "the number does not come from the next line";
    EXPECT_EQ(number("Reglage=99999999999"), 2147483647);
    EXPECT_EQ(number("Reglage=-99999999999"), -2147483648);
    for (const char* none :
         {"reglage=1", "Reglage", "Reglage 1", "Reglagex=1", "\tReglage=1", "", "x Reglage=1"}) {
        EXPECT_EQ(number(none), std::nullopt) << none;
    }
    EXPECT_EQ(LastNumber("Reglage=1\nReglage=2\n", "Reglage"), 2);
    EXPECT_EQ(ReferenceNumber("482034"), 482034);
    EXPECT_EQ(ReferenceNumber("482034-A"), 482034);
    EXPECT_EQ(ReferenceNumber("-5"), 0);
    EXPECT_EQ(ReferenceNumber("99999999999999999999"), 2147483647);
}

TEST_F(Enumeration, SelectsAFunctionOnceMoreOnOneModelOnly) {
    ScriptedChannel channel = InputChannel("A", 0, 1);
    channel.Functions.push_back(channel.Functions[0]);
    channel.Desc.FonctionCourante = 1;
    Console.Connectors[2] = Adapter("482080", {channel});
    Enumerate();
    EXPECT_THAT(Console.CallsOf("OVSelectFunction"), IsEmpty());
    Console.Model = 12336;
    Enumerate();
    EXPECT_THAT(Console.CallsOf("OVSelectFunction"), ElementsAre("OVSelectFunction(2, 0, 1)"));
}

TEST_F(Enumeration, StartsAfreshEachTime) {
    Console.Connectors[1] = Adapter("1", {InputChannel("U", -12, 12)});
    Enumerate();
    InputChannels[0]->Ampli = 3.0;
    EXPECT_EQ(CombienDeCanauxEnEntree(), 1);
    EXPECT_EQ(InputChannels[0]->Ampli, 1.0);
    Console.Fail("OVGetChannelDesc");
    EXPECT_EQ(CombienDeCanauxEnEntree(), 0) << "a channel that can't be read is left out";
    EXPECT_EQ(InputChannels.capacity(), 0U);
}

TEST(AdapterMap, FollowsTheNotifications) {
    Console.Connectors[1] = Adapter("1", {});
    EXPECT_EQ(GetEtatVerifCanaux(), 0);
    EXPECT_FALSE(VerifCanaux()) << "nothing was noted since the library was loaded";
    EXPECT_TRUE(VerifCanaux());
    EXPECT_EQ(GetEtatVerifCanaux(), 1);
    AdapterCb(1, true);
    AdapterCb(1, true);
    EXPECT_EQ(Adapters.size(), 1U);
    AdapterCb(9, true);
    AdapterCb(8, false);
    EXPECT_EQ(Adapters.size(), 1U) << "no record, no entry";
    EXPECT_FALSE(VerifCanaux());
    EXPECT_EQ(GetEtatVerifCanaux(), 2);
    Console.Connectors[5] = Adapter("5", {});
    AdapterCb(5, true);
    Console.Connectors[3] = Adapter("3", {});
    AdapterCb(3, true);
    std::vector<int> connectors;
    for (const auto& [connector, desc] : PluggedAdapters()) {
        connectors.push_back(connector);
    }
    EXPECT_THAT(connectors, ElementsAre(1, 3, 5));
}

TEST(ChannelList, GrowsByItsOwnSizeAndBySixteenAtLeast) {
    std::vector<int32_t> list;
    std::vector<std::size_t> capacities;
    for (int i = 0; i < 33; ++i) {
        Append(list, i);
        if (capacities.empty() || capacities.back() != list.capacity()) {
            capacities.push_back(list.capacity());
        }
    }
    EXPECT_THAT(capacities, ElementsAre(16U, 32U, 64U));
    Clear(list);
    EXPECT_EQ(list.capacity(), 0U);
}

} // namespace
