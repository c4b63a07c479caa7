// What the host asks about a channel and sets on it, and the channels' names.

#include "channels/channel_names.h"
#include "connection/connection_state.h"
#include "settings_exports.h"
#include "tests/support/started_driver.h"

using namespace orvane;

namespace {

/// One channel with two functions, the first of two calibres, enumerated.
class Queries : public testing::Test {
protected:
    Queries() {
        ScriptedChannel channel = InputChannel("U", -12, 12);
        channel.Functions[0].Calibres.push_back(Calibre("+-24V", -24, 24));
        channel.Functions.push_back(Function("RMS", "U", "Vrms", {Calibre("é", 0, 5)}));
        channel.Text = "Reglage=1\nEtiquette = 42\nEtiquette=43";
        channel.Value = 3.0;
        Console.Connectors[1] = Adapter("482034", {channel});
        StartDriver();
    }
};

TEST_F(Queries, AnswerNeutrallyOutsideTheList) {
    for (const int i : {-1, 1, 2147483647}) {
        MetAmpliPour(i, 2.0);
        MetFonctionPour(i, 1);
        ParDefautCalibrationPour(i);
        EXPECT_EQ(Text(QuelReferencePour(i), CombienDeFonctionPour(i), CombienDeCalibrePour(i),
                       QuelNbDecimalPour(i), QuelEtiquettePour(i), IsSynchroExternePour(i),
                       QuelMinPour(i), QuelMaxPourCalibrePour(i, 0), QuelValeurPour(i),
                       ConvertirSeuilSynchroPour(i, 1.0), QuelTempsMinPour(i), QuelUnitePour(i),
                       QuelNomPour(i, 0), QuelNomPourSynchro(i), QuelNomPourFonction(i, 0)),
                  "0 | 0 | 0 | 0 | 0 | 0 | 0 | 0 | 0 | 0 | 0 |  |  |  |  | ");
    }
    EXPECT_EQ(Calls(), "");
}

TEST_F(Queries, FieldsAreAnsweredWithoutTheConsole) {
    EXPECT_EQ(Text(QuelReferencePour(0), CombienDeFonctionPour(0), QuelFonctionPour(0),
                   QuelDefaultPeriodSecPour(0), QuelNbDecimalPour(0), QuelBitCodagePour(0)),
              "482034 | 2 | 0 | 0.001 | -1 | 0 | ");
    Voie().CodeReference = 482091;
    EXPECT_EQ(QuelNbDecimalPour(0), -1);
    Voie().Canal = 1;
    EXPECT_EQ(QuelNbDecimalPour(0), 0);
    Voie().Desc.TailleTexte = 0;
    EXPECT_EQ(QuelEtiquettePour(0), -1);
    EXPECT_EQ(Calls(), "");
}

TEST_F(Queries, RecordsAreReadAtTheCall) {
    Channel().Functions[0].Desc.CalibreCourant = 1;
    EXPECT_EQ(Text(CombienDeCalibrePour(0), QuelNomPourFonction(0, 1), QuelNomPourCalibre(0, 1),
                   QuelCalibrePour(0), QuelMaxPour(0)), // The limits are those of the last refresh.
              "2 | RMS | +-24V | 1 | 12 | ");
    for (const int beyond : {2, 257, -1, -256}) {
        EXPECT_EQ(Text(QuelNomPourFonction(0, beyond), QuelNomPourCalibre(0, beyond),
                       QuelMinPourCalibrePour(0, beyond)),
                  " |  | 0 | ");
    }
    SetText(Channel().Functions[0].Desc.Unite, std::string(256, 'V'));
    Channel().Functions[0].Desc.TypeReglage = 'V'; // The byte behind it.
    EXPECT_EQ(QuelUnitePour(0).length(), 256U) << "up to the field's end";
    SetText(Channel().Functions[0].Desc.Unite, "\xC3(");
    EXPECT_EQ(QuelUnitePour(0), "") << "no UTF-8, no text";
    Console.Fail("OVGetFunctionDesc");
    EXPECT_EQ(Text(CombienDeCalibrePour(0), QuelGrandeurPour(0)), "0 |  | ");
    EXPECT_EQ(QuelEtiquettePour(0), 42) << "the first of the text";
    Console.Fail("OVReadChannelText");
    EXPECT_EQ(QuelEtiquettePour(0), -1);
}

TEST_F(Queries, ScaleOfTheHostAppliesWhereItShould) {
    MetAmpliPour(0, 2.0);
    MetOffsetPour(0, 1.0);
    EXPECT_EQ(Text(QuelMaxPour(0), QuelMaxPourCalibrePour(0, 1), QuelMinPourCalibrePour(0, 7),
                   ConvertirSeuilSynchroPour(0, 5.0)), // No calibre, no limit but the offset.
              "25 | 49 | 1 | 2 | ");
    const auto values = [] {
        return Text(QuelValeurPour(0), QuelValeurSansPersonnalisationPour(0));
    };
    EXPECT_EQ(values(), "7 | 3 | ");
    Channel().Value = 100.0;
    EXPECT_EQ(values(), "25 | 12 | ");
    Voie().Ampli = -1.0;
    EXPECT_EQ(values(), "13 | 12 | ") << "below the lower limit alone";
    Console.Fail("OVReadValue"); // Counts as 0.0.
    EXPECT_EQ(values(), "-11 | 0 | ") << "the upper limit comes first, and lies lower";
    Voie().MinCalibre = 2.0;
    EXPECT_EQ(values(), "-11 | 2 | ");
    Voie().Ampli = 0.0;
    EXPECT_EQ(Text(ConvertirSeuilSynchroPour(0, 5.0)), "inf | ");
}

TEST_F(Queries, SpecialModeSwitchesTheTextsAndItsEndClearsTheScale) {
    const auto answers = [](int mode) {
        MetModeSpecialPour(0, mode);
        return Text(QuelGrandeurPour(0), QuelUnitePour(0), QuelMaxPour(0));
    };
    MetAmpliPour(0, 2.0);
    MetOffsetPour(0, 1.0);
    MetUnitPour(0, L"µbar");
    EXPECT_EQ(answers(0x101), " | µbar | 25 | ");
    EXPECT_EQ(answers(0x100), "u | V | 12 | ") << "only the low byte counts";
    MetGrandeurPour(0, L"pression");
    EXPECT_EQ(answers(-1), "pression | µbar | 12 | ") << "the texts are kept for the next time";
    MetGrandeurPour(0, nullptr);
    EXPECT_EQ(answers(1), " | µbar | 12 | ");
}

TEST_F(Queries, FunctionIsSelectedReadAndRefreshed) {
    const auto calls = [](int fonction) {
        MetFonctionPour(0, fonction);
        return Calls();
    };
    EXPECT_EQ(calls(0x100), "") << "it is the selected one";
    Channel().Desc.TempsMinNs = 4294967295U;
    const std::string refresh = "OVGetFunctionDesc(1, 0, 1) OVGetCalibreDesc(1, 0, 1, 0) ";
    EXPECT_EQ(calls(1), "OVSelectFunction(1, 0, 1) OVGetChannelDesc(1, 0) " + refresh);
    Channel().Functions[1].Calibres[0].Max = 6;
    EXPECT_EQ(calls(2), "OVSelectFunction(1, 0, 2) " + refresh) << "refused: only a refresh";
    Console.Fail("OVGetFunctionDesc");
    Voie().Desc.TempsMinNs = Voie().Desc.PeriodeDefautNs = 1;
    Voie().RafraichirCalibre();
    EXPECT_EQ(Text(QuelMaxPour(0), QuelTempsMinPour(0), QuelDefaultPeriodSecPour(0)),
              "6 | 4.29497 | 0.001 | ")
        << "what can't be read stays";
}

TEST_F(Queries, CalibreIsSelectedIfItIsAnotherAndRefreshedInEveryCase) {
    const auto callsAndLimit = [](int calibre) {
        MetCalibrePour(0, calibre);
        return Calls() + Text(QuelMaxPour(0));
    };
    const std::string read = "OVGetFunctionDesc(1, 0, 0) ";
    const std::string refresh = read + "OVGetCalibreDesc(1, 0, 0, 1) ";
    EXPECT_EQ(callsAndLimit(1),
              read + "OVSelectCalibre(1, 0, 1) OVGetChannelDesc(1, 0) " + refresh + "24 | ");
    Channel().Functions[0].Calibres[1].Max = 30;
    for (const int calibre : {1, 257, -1}) { // The selected one, and two that no byte can carry.
        EXPECT_EQ(callsAndLimit(calibre), read + refresh + "30 | ");
    }
    EXPECT_EQ(callsAndLimit(2), read + "OVSelectCalibre(1, 0, 2) " + refresh + "30 | ");
    Console.FailCall(1);
    EXPECT_EQ(callsAndLimit(0), read + refresh + "30 | ") << "nothing selected without the record";
    Console.Fail("OVGetCalibreDesc");
    Channel().Functions[0].Calibres[1].Max = 40;
    MetCalibrePour(0, 1);
    EXPECT_EQ(QuelMaxPour(0), 30.0) << "what can't be read stays";
}

TEST_F(Queries, CalibrationPassesThrough) {
    Console.Fail("OVSelectFunction");
    DebutCalibrationPour(0);
    MetCalibrationValuePour(0, -1, 0.1);
    AbandonCalibrationPour(0);
    ParDefautCalibrationPour(0);
    EXPECT_EQ(Calls(), "OVSelectFunction(1, 0, 0) OVCalibrationStart(1, 0) "
                       "OVSetCalibrationValue(1, 0, 4294967295, 0.1) "
                       "OVCalibrationAbort(1, 0) OVCalibrationDefault(1, 0) ");
}

/// The name of a channel in English and in another language; without a catalogue the text of a row
/// is its key.
std::string Names(const char* nom, int32_t reference, uint8_t canal = 0) {
    TvlVoieOrvane voie;
    SetText(voie.Desc.Nom, nom);
    voie.CodeReference = reference;
    voie.Canal = canal;
    EXPECT_EQ(NomDeVoie(voie, "fr"), nom);
    EXPECT_EQ(NomDeVoie(voie, "fr_FR"), NomDeVoie(voie, "EN"));
    return Text(NomDeVoie(voie, "en"), NomDeVoie(voie, ""));
}

TEST(Names, FollowTheLanguage) {
    EXPECT_EQ(Names("n", 482201), "Voltmeter | IDS_482201_CHANNEL1_NAME | ");
    EXPECT_EQ(Names("n", 482101), "Thermometer | IDS_482101_CHANNEL1_NAME | ");
    EXPECT_EQ(Names("n", 482034, 1), "n | IDS_482034_CHANNEL1_NAME | ");
    EXPECT_EQ(Names("n", 482070, 1), "n | IDS_482070_CHANNEL2_NAME | ");
    EXPECT_EQ(Names("n", 482070, 2), "n | n | ");
    EXPECT_EQ(Names("n", 999999, 3), "n | IDS_DIRECT_CHANNEL4_NAME | ");
    EXPECT_EQ(Names("n", 999999, 4), "n | n | ");
    EXPECT_EQ(Names("n", 0, 5), "n | IDS_EXTERN_TRIGGER_CHANNEL1_NAME | ");
    const std::string trigger = "Extern trigger | ";
    EXPECT_EQ(Names("Extern trigger", 482034, 2), trigger + "IDS_EXTERN_TRIGGER_CHANNEL1_NAME | ");
    EXPECT_EQ(Names("Extern trigger", 999999, 1), trigger + trigger);
    EXPECT_EQ(Names("extern trigger", 482040), "extern trigger | extern trigger | ");
    std::string named; // The other references with a row.
    for (int32_t reference = 482000; reference < 482300; ++reference) {
        const auto number = std::to_string(reference);
        if (Names("n", reference) == "n | IDS_" + number + "_CHANNEL1_NAME | ") {
            named += number.substr(3) + " ";
        }
    }
    EXPECT_EQ(named, "034 035 036 037 038 039 043 044 045 046 047 048 049 050 051 052 053 054 055 "
                     "056 061 068 070 080 085 102 103 104 105 106 107 109 202 203 204 ");
}

TEST_F(Queries, NamesWantAChannelAndAKnownModel) {
    EXPECT_EQ(Text(QuelNomPour(0, 0), QuelNomPourSynchro(0)), "U | U | ");
    SynchroChannels[0] = 5;
    EXPECT_EQ(QuelNomPourSynchro(0), "");
    Connection.ConsoleModel = 1;
    EXPECT_EQ(QuelNomPour(0, 0), "");
}

} // namespace
