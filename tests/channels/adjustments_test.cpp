// Adjustments: given to an adapter, and asked back.

#include "adjustment_exports.h"
#include "channels/adjustments.h"
#include "tests/support/fake_time.h"
#include "tests/support/started_driver.h"

#include <cmath>

using namespace orvane;

namespace {

/// A measuring channel 0, the adjustment 1 whose value is on channel 4, its state 2, and a value
/// channel 3.
class Adjustments : public testing::Test {
protected:
    Adjustments() {
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
        StartDriver();
    }
    /// What the host is told, and how many values its preset and its adjustment send.
    static std::string Answers(int index) {
        int number = -1;
        const std::string status = Text(QuelStatusPour(index, &number), number);
        EXPECT_EQ(Text(QuelStatusPour(index, nullptr), number), status);
        const std::string answers =
            Text(QuelReglagePour(index), QuelValeurReglagePour(index), QuelValeurStatusPour(index),
                 QuelLibelleReglagePour(index));
        Console.TakeCalls();
        PresetAdaptateurPour(index, 1); // This value doesn't wait.
        MetReglagePour(index, 0.5);
        return status + answers + Text(Console.TakeCalls().size());
    }
};

TEST_F(Adjustments, EachModeAnswersItsQuestions) {
    constexpr const char* answers[][2] = {
        {" | 0 | 0 | 0 | 0 | Débit | 1 | ", " | 0 | 0 | 0 | 0 |  | 0 | "},
        {" | 0 | 104 | -44 | 0 | Débit | 1 | ", " | 0 | 104 | 0 | 0 |  | 0 | "},
        {"on | 1 | 106 | 0 | 0 | Débit | 2 | ", " | 0 | 106 | 0 | 0 |  | 0 | "},
        {"on | 1 | 0 | 0 | 0 | Débit | 1 | ", " | 0 | 0 | 0 | 0 |  | 0 | "},
        {" | 0 | 105 | -44 | 1 | Débit | 1 | ", " | 0 | 105 | 0 | 0 |  | 0 | "},
        {" | 0 | 107 | -44 | 1 | Débit | 1 | ", " | 0 | 107 | 0 | 0 |  | 0 | "},
        {" | 0 | 0 | 0 | 0 | Débit | 1 | ", " | 0 | 0 | 0 | 0 |  | 0 | "}};
    Console.AcceptBeyond = true;
    for (const int links : {0, 1}) { // With links and without.
        for (int mode = 0; mode < std::ssize(answers); ++mode) {
            Voie().ModeReglage = mode;
            EXPECT_EQ(Answers(0), answers[mode][links]) << mode;
            EXPECT_EQ(Answers(1), answers[0][1]);
        }
        Voie().VoieReglage = Voie().VoieValeur = Voie().VoieEtat = -1;
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
    EXPECT_EQ(Calls(),
              "OVGetFunctionDesc(1, 1, 0) OVGetFunctionDesc(1, 3, 0) OVReadValue(1, 3, 1, 0) ");
    Channel(1).Functions[0].Desc.NbVoiesLiees = 0;
    EXPECT_EQ(QuelValeurReglagePour(0), 33) << "the second source gives its own value";
    Channel(3).Functions[0].Desc.NbVoiesLiees = 0;
    EXPECT_EQ(QuelValeurReglagePour(0), 0);
}

TEST_F(Adjustments, WholeNumbersAreRoundedForTheTextAndCutElsewhere) {
    // Text, rounded number and cut number.
    constexpr std::pair<double, const char*> rows[] = {
        {1.5, "hot | 2 | 1 | "},
        {-0.7, "off | 0 | 0 | "},
        {7.0, "hot | 7 | 7 | "},
        {1e300, "hot | 2147483647 | 2147483647 | "},
        {-HUGE_VAL, "off | -2147483648 | -2147483648 | "},
        {NAN, "off | 0 | 0 | "}};
    for (const auto& [value, told] : rows) {
        Channel(2).Value = value;
        Voie().ModeReglage = 3;
        int number = -1;
        const wxString status = QuelStatusPour(0, &number);
        Voie().ModeReglage = 5;
        EXPECT_EQ(Text(status, number, QuelValeurStatusPour(0)), told);
    }
    EXPECT_EQ(StateText(L"whole", 3), L"whole");
    EXPECT_EQ(StateText(L"a||c|", 1), L"");
}

TEST_F(Adjustments, PresetWaitsForTheStateToBeZeroAndGoesOnAtSixSeconds) {
    UseFakeTime();
    SetFakeTime(100.0005);
    Console.FailCall(3); // The second look, which then counts as the first.
    PresetAdaptateurPour(0, 0);
    EXPECT_EQ(Calls("OVWrite"), "OVWriteAdjustment(1, 1, 0) ");
    EXPECT_EQ(FakeNanoseconds, 106'100'500'000) << "the sixth second is over";
    Voie().VoieEtat = -1;
    SetFakeTime(0.0005);
    PresetAdaptateurPour(0, 2);
    EXPECT_EQ(FakeNanoseconds, 100'500'000) << "one pause, although there is no state to read";
    Voie().VoieReglage = -1;
    PresetAdaptateurPour(0, 2);
    EXPECT_EQ(FakeNanoseconds, 100'500'000) << "nothing to adjust, nothing to wait for";
}

} // namespace
