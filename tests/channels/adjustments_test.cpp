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

#include <climits>
#include <cmath>

using namespace orvane;

namespace {

using testing::ElementsAre;
using testing::SizeIs;

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
    struct Answers {
        int Code, Presets;
        const char* Status;
        int Number, Value, StateNumber;
    };
    static void ExpectAnswers(int index, const Answers& expected) {
        int number = -1;
        EXPECT_EQ(QuelReglagePour(index), expected.Code);
        EXPECT_EQ(QuelStatusPour(index, &number), expected.Status);
        EXPECT_EQ(number, expected.Number);
        EXPECT_EQ(QuelStatusPour(index, nullptr), expected.Status);
        EXPECT_EQ(QuelValeurReglagePour(index), expected.Value);
        EXPECT_EQ(QuelValeurStatusPour(index), expected.StateNumber);
        Console.TakeCalls();
        PresetAdaptateurPour(index, 1); // This value doesn't wait.
        EXPECT_EQ(std::ssize(Console.TakeCalls()), expected.Presets);
    }
};

TEST_F(Adjustments, EachModeAnswersItsQuestions) {
    constexpr Answers modes[] = {{0, 0, "", 0, 0, 0},     {104, 0, "", 0, -44, 0},
                                 {106, 1, "on", 1, 0, 0}, {0, 0, "on", 1, 0, 0},
                                 {105, 0, "", 0, -44, 1}, {107, 0, "", 0, -44, 1},
                                 {0, 0, "", 0, 0, 0}};
    for (int mode = 0; mode <= 6; ++mode) {
        SCOPED_TRACE(mode);
        Voie().ModeReglage = mode;
        ExpectAnswers(0, modes[mode]);
        EXPECT_EQ(QuelLibelleReglagePour(0), wxString::FromUTF8("Débit"));
        MetReglagePour(0, 0.5);
        EXPECT_THAT(Console.CallsOf("OVWrite"), ElementsAre("OVWriteAdjustment(1, 1, 0.5)"));
    }
    Voie().VoieReglage = Voie().VoieValeur = Voie().VoieEtat = -1;
    Console.AcceptBeyond = true;
    for (const int mode : {1, 2, 3, 4, 5}) {
        SCOPED_TRACE("without links");
        Voie().ModeReglage = mode;
        ExpectAnswers(0, {modes[mode].Code, 0, "", 0, 0, 0});
        ExpectAnswers(1, {});
        EXPECT_EQ(QuelLibelleReglagePour(0), "");
        MetReglagePour(0, 0.5);
        EXPECT_THAT(Console.TakeCalls(), SizeIs(0));
    }
}

TEST_F(Adjustments, FunctionTellsItsKindBeforeTheMode) {
    constexpr int codes[] = {106, 101, 102, 103, 0};
    for (uint8_t type = 5; type-- > 0;) {
        Channel(0).Functions[0].Desc.TypeReglage = type;
        EXPECT_EQ(QuelReglagePour(0), codes[type]);
    }
    Console.FailCall(1);
    EXPECT_EQ(QuelReglagePour(0), 0);
    Voie().CodeReference = 482049; // Adjusts its function 1 alone.
    Voie().ModeReglage = 1;
    EXPECT_EQ(QuelReglagePour(0), 0);
    EXPECT_EQ(QuelValeurReglagePour(0), 33) << "of channel 3, whatever the links say";
    Channel(0).Functions.push_back(Channel(0).Functions[0]);
    Voie().Desc.FonctionCourante = 1;
    EXPECT_EQ(QuelReglagePour(0), 104);
    Voie().ModeReglage = 4;
    EXPECT_EQ(QuelValeurReglagePour(0), -44);
}

TEST_F(Adjustments, ValueComesFromTheFirstSourceThatNamesAChannel) {
    Voie().ModeReglage = 1;
    Channel(3).Functions[0].Desc.NbVoiesLiees = 4294967295;
    Channel(3).Functions[0].Desc.VoieLiee = 4;
    Console.FailCall(1);
    EXPECT_EQ(QuelValeurReglagePour(0), 33) << "a record that can't be read is passed over";
    EXPECT_THAT(Console.TakeCalls(),
                ElementsAre("OVGetFunctionDesc(1, 1, 0)", "OVGetFunctionDesc(1, 3, 0)",
                            "OVReadValue(1, 3, 1, 0)"));
    Channel(1).Functions[0].Desc.NbVoiesLiees = 0;
    EXPECT_EQ(QuelValeurReglagePour(0), 33) << "the second source gives its own value";
    Channel(3).Functions[0].Desc.NbVoiesLiees = 0;
    EXPECT_EQ(QuelValeurReglagePour(0), 0);
}

TEST_F(Adjustments, WholeNumbersAreRoundedForTheTextAndCutElsewhere) {
    struct Row {
        double Value;
        int Rounded, Cut;
        const char* Text;
    };
    constexpr Row rows[] = {{1.5, 2, 1, "hot"},
                            {-0.7, 0, 0, "off"},
                            {7.0, 7, 7, "hot"},
                            {1e300, INT_MAX, INT_MAX, "hot"},
                            {-HUGE_VAL, INT_MIN, INT_MIN, "off"},
                            {NAN, 0, 0, "off"}};
    for (const Row& row : rows) {
        SCOPED_TRACE(row.Value);
        Channel(2).Value = row.Value;
        Voie().ModeReglage = 3;
        int number = -1;
        EXPECT_EQ(QuelStatusPour(0, &number), row.Text);
        EXPECT_EQ(number, row.Rounded);
        Voie().ModeReglage = 5;
        EXPECT_EQ(QuelValeurStatusPour(0), row.Cut);
    }
    EXPECT_EQ(ToInt32(-2147483648.9), INT_MIN);
    EXPECT_EQ(ToInt32(2147483647.9), INT_MAX);
    EXPECT_EQ(StateText(L"whole", 3), L"whole");
    EXPECT_EQ(StateText(L"a||c|", 1), L"");
    EXPECT_EQ(StateText(L"a||c|", INT_MAX), L"");
}

TEST_F(Adjustments, PresetWaitsForTheStateToBeZeroAndGoesOnAtSixSeconds) {
    UseFakeTime();
    SetFakeTime(100.0005);
    Console.FailCall(3); // The second look, which then counts as the first.
    PresetAdaptateurPour(0, 0);
    EXPECT_THAT(Console.CallsOf("OVReadValue(1, 2, 1, 0)"), SizeIs(61));
    Voie().VoieEtat = -1;
    SetFakeTime(0.0005);
    PresetAdaptateurPour(0, 2);
    EXPECT_EQ(FakeNanoseconds, 100'500'000) << "one pause, although there is no state to read";
}

} // namespace
