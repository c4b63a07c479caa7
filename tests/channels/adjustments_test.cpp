// Adjustments: given to an adapter, and asked back.

#include "adjustment_exports.h"
#include "channel_exports.h"
#include "channels/adjustments.h"
#include "channels/channel_lists.h"
#include "lifecycle_exports.h"
#include "platform/number_conversion.h"
#include "tests/support/fake_time.h"
#include "tests/support/scripted_console.h"

#include <gmock/gmock.h>

#include <chrono>
#include <climits>
#include <limits>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

/// A measuring channel 0, the adjustment 1 whose value is on channel 4, its state 2, and a value
/// channel 3.
class Adjustments : public testing::Test {
protected:
    Adjustments() {
        Console.Memory.assign(32768, 0);
        Console.Connectors[1] =
            Adapter("482034", {InputChannel("U", -12, 12), AdjustmentChannel("Reglage=2", "Débit"),
                               StateChannel("Reglage=2", "off|on|hot"),
                               InputChannel("Value", 0, 100), PlainChannel("Linked", 5, 1)});
        Channel(1).Functions[0].Desc.NbVoiesLiees = 1;
        Channel(1).Functions[0].Desc.VoieLiee = 4;
        Channel(0).Functions.push_back(Channel(0).Functions[0]);
        Channel(3).Desc.Genre = 2;
        Channel(2).Value = 1.0;
        Channel(3).Value = 33.9;
        Channel(4).Value = -44.9;
        StartDll(0, "", "fr", 0);
        CombienDeCanauxEnEntree();
        Console.TakeCalls();
    }
    static ScriptedChannel& Channel(std::size_t canal) {
        return Console.Connectors[1].Channels[canal];
    }
    static TvlVoieOrvane& Voie() {
        return *InputChannels[0];
    }
    static wxString Status(int expectedNumber) {
        int number = -1;
        const wxString text = QuelStatusPour(0, &number);
        EXPECT_EQ(number, expectedNumber) << text;
        return text;
    }
};

TEST_F(Adjustments, AnswerNeutrallyOutsideTheListAndWithoutLinks) {
    for (const int index : {-1, 1, INT_MAX}) {
        int number = 7;
        EXPECT_EQ(QuelStatusPour(index, &number), "");
        EXPECT_EQ(number, 0);
        EXPECT_EQ(QuelStatusPour(index, nullptr), "");
        EXPECT_EQ(QuelReglagePour(index), 0);
        EXPECT_EQ(QuelLibelleReglagePour(index), "");
        EXPECT_EQ(QuelValeurReglagePour(index) + QuelValeurStatusPour(index), 0);
        MetReglagePour(index, 1.0);
        PresetAdaptateurPour(index, 0);
    }
    Voie().VoieReglage = Voie().VoieValeur = Voie().VoieEtat = -1;
    for (int mode = 0; mode <= 5; ++mode) {
        Voie().ModeReglage = mode;
        EXPECT_EQ(QuelLibelleReglagePour(0), "");
        EXPECT_EQ(QuelValeurReglagePour(0) + QuelValeurStatusPour(0), 0);
        EXPECT_EQ(Status(0), "");
        MetReglagePour(0, 1.0);
        PresetAdaptateurPour(0, 0);
    }
    EXPECT_THAT(Console.TakeCalls(), IsEmpty());
}

TEST_F(Adjustments, EachModeAnswersItsQuestions) {
    struct Row {
        int Mode, Code;
        std::size_t Writes;
        const char* Status;
        int Number, Value, StateNumber;
    };
    constexpr Row rows[] = {
        {-1, 0, 0, "", 0, 0, 0},    {0, 0, 0, "", 0, 0, 0},   {1, 104, 0, "", 0, -44, 0},
        {2, 106, 1, "on", 1, 0, 0}, {3, 0, 0, "on", 1, 0, 0}, {4, 105, 0, "", 0, -44, 1},
        {5, 107, 0, "", 0, -44, 1}, {6, 0, 0, "", 0, 0, 0},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.Mode);
        Voie().ModeReglage = row.Mode;
        EXPECT_EQ(QuelReglagePour(0), row.Code);
        EXPECT_EQ(Status(row.Number), row.Status);
        EXPECT_EQ(QuelStatusPour(0, nullptr), row.Status);
        EXPECT_EQ(QuelValeurReglagePour(0), row.Value);
        EXPECT_EQ(QuelValeurStatusPour(0), row.StateNumber);
        EXPECT_EQ(QuelLibelleReglagePour(0), wxString::FromUTF8("Débit"));
        Console.TakeCalls();
        PresetAdaptateurPour(0, 1);
        EXPECT_THAT(Console.TakeCalls(), SizeIs(row.Writes)) << "and the value 1 doesn't wait";
        MetReglagePour(0, 0.5);
        EXPECT_THAT(Console.TakeCalls(), ElementsAre("OVWriteAdjustment(1, 1, 0.5)"));
    }
}

TEST_F(Adjustments, FunctionTellsItsKindBeforeTheMode) {
    constexpr int codes[] = {106, 101, 102, 103, 0};
    for (uint8_t type = 0; type < 5; ++type) {
        Channel(0).Functions[0].Desc.TypeReglage = type;
        EXPECT_EQ(QuelReglagePour(0), codes[type]);
    }
    Channel(0).Functions[0].Desc.TypeReglage = 255;
    EXPECT_EQ(QuelReglagePour(0), 0);
    Channel(0).Functions[0].Desc.TypeReglage = 1;
    Console.FailCall(1);
    EXPECT_EQ(QuelReglagePour(0), 0);
}

TEST_F(Adjustments, OfOneFunctionAreAnsweredForItAlone) {
    Voie().CodeReference = 482049;
    Voie().ModeReglage = 1;
    EXPECT_EQ(QuelReglagePour(0), 0);
    Voie().Desc.FonctionCourante = 1;
    EXPECT_EQ(QuelReglagePour(0), 104);
    Console.TakeCalls();
    EXPECT_EQ(QuelValeurReglagePour(0), 33);
    EXPECT_THAT(Console.TakeCalls(), ElementsAre("OVReadValue(1, 3, 1, 0)"));
    Voie().ModeReglage = 4;
    Voie().Desc.FonctionCourante = 0;
    EXPECT_EQ(QuelReglagePour(0), 105);
    EXPECT_EQ(QuelValeurReglagePour(0), -44);
}

TEST_F(Adjustments, ValueComesFromTheFirstSourceThatNamesAChannel) {
    Voie().ModeReglage = 1;
    Channel(1).Functions[0].Desc.NbVoiesLiees = 0;
    EXPECT_EQ(QuelValeurReglagePour(0), 0) << "neither does";
    Channel(3).Functions[0].Desc.NbVoiesLiees = 4294967295;
    Channel(3).Functions[0].Desc.VoieLiee = 4;
    Console.TakeCalls();
    EXPECT_EQ(QuelValeurReglagePour(0), 33) << "the second source gives its own value";
    EXPECT_THAT(Console.TakeCalls(),
                ElementsAre("OVGetFunctionDesc(1, 1, 0)", "OVGetFunctionDesc(1, 3, 0)",
                            "OVReadValue(1, 3, 1, 0)"));
    Channel(1).Functions[0].Desc.NbVoiesLiees = 1;
    EXPECT_EQ(QuelValeurReglagePour(0), -44);
    Console.FailCall(1);
    EXPECT_EQ(QuelValeurReglagePour(0), 33) << "a record that can't be read is passed over";
    Console.Fail("OVReadValue");
    EXPECT_EQ(QuelValeurReglagePour(0), 0);
}

TEST_F(Adjustments, WholeNumbersAreRoundedForTheTextAndCutElsewhere) {
    struct Row {
        double Value;
        int Rounded, Cut;
        const char* Text;
    };
    constexpr Row rows[] = {{1.5, 2, 1, "hot"},
                            {0.49, 0, 0, "off"},
                            {-0.7, 0, 0, "off"},
                            {-3.0, -2, -3, "off"},
                            {7.0, 7, 7, "hot"},
                            {2147483648.0, INT_MAX, INT_MAX, "hot"},
                            {-1e300, INT_MIN, INT_MIN, "off"},
                            {infinity, INT_MAX, INT_MAX, "hot"},
                            {notANumber, 0, 0, "off"}};
    for (const Row& row : rows) {
        SCOPED_TRACE(row.Value);
        Channel(2).Value = row.Value;
        Voie().ModeReglage = 3;
        EXPECT_EQ(Status(row.Rounded), row.Text);
        Voie().ModeReglage = 5;
        EXPECT_EQ(QuelValeurStatusPour(0), row.Cut);
    }
    EXPECT_EQ(ToInt32(-2147483648.9), INT_MIN);
    EXPECT_EQ(ToInt32(2147483647.9), INT_MAX);
    Voie().ModeReglage = 3;
    Channel(2).Value = 1.0;
    Console.Fail("OVReadValue");
    EXPECT_EQ(Status(0), "off");
    Console.Fail("OVGetChannelDesc");
    EXPECT_EQ(Status(0), "");
    EXPECT_EQ(QuelLibelleReglagePour(0), "");
}

TEST(StateTexts, AreTheFieldsBetweenTheBars) {
    EXPECT_EQ(StateText("whole", 3), "whole");
    EXPECT_EQ(StateText("a||c", 1), "");
    EXPECT_EQ(StateText("a|b|", 2), "");
    EXPECT_EQ(StateText("", INT_MAX), "");
}

TEST_F(Adjustments, PresetWaitsForTheStateToBeZero) {
    UseFakeTime();
    SetFakeTime(100.0005);
    Console.OnCall = [](const std::string& operation) {
        if (operation == "OVReadValue" && Console.CallsOf("OVReadValue").size() == 3) {
            Console.SetValue(1, 2, 0.99);
        }
    };
    PresetAdaptateurPour(0, 2);
    EXPECT_THAT(Console.TakeCalls(),
                ElementsAre("OVWriteAdjustment(1, 1, 2)", "OVReadValue(1, 2, 1, 0)",
                            "OVReadValue(1, 2, 1, 0)", "OVReadValue(1, 2, 1, 0)"));
    Voie().VoieEtat = -1;
    SetFakeTime(0.0005);
    PresetAdaptateurPour(0, 0);
    EXPECT_THAT(Console.TakeCalls(), ElementsAre("OVWriteAdjustment(1, 1, 0)"));
    EXPECT_EQ(FakeNanoseconds, 100'500'000) << "one pause, although there is no state to read";
}

TEST_F(Adjustments, PresetGoesOnAtSixSecondsAndEndsBehindThem) {
    UseFakeTime();
    SetFakeTime(100.0005);
    Console.FailCall(3);
    PresetAdaptateurPour(0, 0);
    EXPECT_THAT(Console.CallsOf("OVReadValue"), SizeIs(61));
}

TEST_F(Adjustments, PresetWaitsForReal) {
    const auto seconds = [](auto wait) {
        const auto start = std::chrono::steady_clock::now();
        wait();
        return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    };
    const double longest = seconds([] { PresetAdaptateurPour(0, 0); });
    EXPECT_GT(longest, 6.0);
    EXPECT_LT(longest, 7.0);
    Channel(2).Value = 0.0;
    const double shortest = seconds([] { PresetAdaptateurPour(0, 0); });
    EXPECT_GE(shortest, 0.1);
    EXPECT_LT(shortest, 1.0);
}

} // namespace
