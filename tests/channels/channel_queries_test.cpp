// What the host asks about a channel, and the channels' names.

#include "channel_exports.h"
#include "channels/channel_lists.h"
#include "channels/channel_names.h"
#include "connection/connection_state.h"
#include "lifecycle_exports.h"
#include "tests/support/scripted_console.h"

#include <gmock/gmock.h>

#include <cmath>

using namespace orvane;

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// One channel with two functions of two calibres each, enumerated.
class Queries : public testing::Test {
protected:
    Queries() {
        ScriptedChannel channel = InputChannel("U", -12, 12);
        channel.Functions[0].Calibres.push_back(Calibre("+-24V", -24, 24));
        channel.Functions.push_back(Function("RMS", "U", "Vrms", {Calibre("é", 0, 5)}));
        channel.Text = "Reglage=1\nEtiquette = 42\nEtiquette=43";
        channel.Value = 3.0;
        Console.Memory.assign(32768, 0);
        Console.Connectors[1] = Adapter("482034", {channel});
        StartDll(0, "", "fr", 0);
        CombienDeCanauxEnEntree();
        Console.TakeCalls();
    }
    static ScriptedChannel& Channel() {
        return Console.Connectors[1].Channels[0];
    }
};

TEST_F(Queries, AnswerNeutrallyOutsideTheList) {
    for (const int index : {-1, 1, 2147483647, -2147483647 - 1}) {
        EXPECT_EQ(QuelReferencePour(index), 0);
        EXPECT_EQ(QuelMinPour(index), 0.0);
        EXPECT_EQ(QuelMaxPourCalibrePour(index, 0), 0.0);
        EXPECT_EQ(QuelValeurPour(index), 0.0);
        EXPECT_EQ(QuelUnitePour(index), "");
        EXPECT_EQ(QuelNomPour(index, 0), "");
        EXPECT_EQ(QuelNomPourSynchro(index), "");
        EXPECT_EQ(QuelNomPourFonction(index, 0), "");
        EXPECT_EQ(CombienDeCalibrePour(index), 0);
        EXPECT_EQ(QuelNbDecimalPour(index), 0);
        EXPECT_EQ(QuelEtiquettePour(index), 0);
        EXPECT_EQ(ConvertirSeuilSynchroPour(index, 1.0), 0.0);
        EXPECT_FALSE(IsSynchroExternePour(index));
    }
    EXPECT_THAT(Console.TakeCalls(), IsEmpty()) << "and the console is not asked";
}

TEST_F(Queries, FieldsAreAnsweredWithoutTheConsole) {
    EXPECT_EQ(QuelReferencePour(0), 482034);
    EXPECT_EQ(CombienDeFonctionPour(0), 2);
    EXPECT_EQ(QuelFonctionPour(0), 0);
    EXPECT_EQ(QuelDefaultPeriodSecPour(0), 0.001);
    EXPECT_EQ(QuelTempsMinPour(0), 0.0);
    EXPECT_EQ(QuelNbDecimalPour(0), -1);
    EXPECT_EQ(QuelBitCodagePour(0), 0);
    EXPECT_THAT(Console.TakeCalls(), IsEmpty());
    InputChannels[0]->CodeReference = 482091;
    EXPECT_EQ(QuelNbDecimalPour(0), -1);
    InputChannels[0]->Canal = 1;
    EXPECT_EQ(QuelNbDecimalPour(0), 0);
}

TEST_F(Queries, RecordsAreReadAtTheCall) {
    EXPECT_EQ(CombienDeCalibrePour(0), 2);
    EXPECT_EQ(QuelUnitePour(0), "V");
    EXPECT_EQ(QuelNomPourFonction(0, 1), "RMS");
    EXPECT_EQ(QuelNomPourCalibre(0, 1), "+-24V");
    Channel().Functions[0].Desc.CalibreCourant = 1;
    EXPECT_EQ(QuelCalibrePour(0), 1);
    EXPECT_EQ(QuelMaxPour(0), 12.0) << "the limits are those of the last refresh";
    for (const int beyond : {2, 256, 257, -1, -256}) {
        EXPECT_EQ(QuelNomPourFonction(0, beyond), "") << beyond;
        EXPECT_EQ(QuelNomPourCalibre(0, beyond), "") << beyond;
        EXPECT_EQ(QuelMinPourCalibrePour(0, beyond), 0.0) << beyond;
    }
    SetText(Channel().Functions[0].Desc.Unite, std::string(256, 'V'));
    Channel().Functions[0].Desc.TypeReglage = 'V'; // The byte behind it.
    EXPECT_EQ(QuelUnitePour(0).length(), 256U) << "up to the field's end";
    SetText(Channel().Functions[0].Desc.Unite, "\xC3(");
    EXPECT_EQ(QuelUnitePour(0), "") << "no UTF-8, no text";
    Console.Fail("OVGetFunctionDesc");
    EXPECT_EQ(CombienDeCalibrePour(0), 0);
    EXPECT_EQ(QuelUnitePour(0), "");
}

TEST_F(Queries, ScaleOfTheHostAppliesWhereItShould) {
    TvlVoieOrvane& voie = *InputChannels[0];
    voie.Ampli = 2.0;
    voie.Offset = 1.0;
    EXPECT_EQ(QuelMaxPour(0), 25.0);
    EXPECT_EQ(QuelMaxPourCalibrePour(0, 1), 49.0);
    EXPECT_EQ(QuelMinPourCalibrePour(0, 7), 1.0) << "no calibre, no limit: the offset is left";
    EXPECT_EQ(QuelValeurPour(0), 7.0);
    EXPECT_EQ(QuelValeurSansPersonnalisationPour(0), 3.0);
    EXPECT_EQ(ConvertirSeuilSynchroPour(0, 5.0), 2.0);
    Channel().Value = 100.0;
    EXPECT_EQ(QuelValeurPour(0), 25.0);
    EXPECT_EQ(QuelValeurSansPersonnalisationPour(0), 12.0);
    voie.Ampli = -1.0;
    EXPECT_EQ(voie.ConvertirBrut(0.0, true), -11.0) << "above the upper limit, which lies lower";
    EXPECT_EQ(voie.ConvertirBrut(50.0, true), 13.0) << "below the lower limit alone";
    Console.Fail("OVReadValue");
    voie.MinCalibre = 2.0;
    EXPECT_EQ(QuelValeurSansPersonnalisationPour(0), 2.0) << "a refused read counts as 0.0";
    voie.Ampli = 0.0;
    EXPECT_TRUE(std::isinf(ConvertirSeuilSynchroPour(0, 5.0)));
}

TEST_F(Queries, SpecialModeGivesTheHostsTexts) {
    TvlVoieOrvane& voie = *InputChannels[0];
    voie.GrandeurSpeciale = "P";
    EXPECT_EQ(QuelGrandeurPour(0), "u");
    voie.ModeSpecial = 1;
    Console.TakeCalls();
    EXPECT_EQ(QuelGrandeurPour(0), "P");
    EXPECT_EQ(QuelUnitePour(0), "");
    EXPECT_THAT(Console.TakeCalls(), IsEmpty());
}

TEST_F(Queries, EtiquetteIsTheFirstOfTheText) {
    EXPECT_EQ(QuelEtiquettePour(0), 42);
    Console.Fail("OVReadChannelText", 1);
    EXPECT_EQ(QuelEtiquettePour(0), -1);
    Channel().Text = "Reglage=1";
    EXPECT_EQ(QuelEtiquettePour(0), -1);
    InputChannels[0]->Desc.TailleTexte = 0;
    Console.TakeCalls();
    EXPECT_EQ(QuelEtiquettePour(0), -1);
    EXPECT_THAT(Console.TakeCalls(), IsEmpty());
}

TEST_F(Queries, RefreshKeepsWhatItCannotRead) {
    TvlVoieOrvane voie = *InputChannels[0];
    voie.Desc.TempsMinNs = 4294967295U;
    Console.Fail("OVGetCalibreDesc", 1);
    voie.RafraichirCalibre();
    EXPECT_EQ(voie.MaxCalibre, 12.0);
    EXPECT_DOUBLE_EQ(voie.TempsMinSec, 4.294967295);
    voie.Desc.FonctionCourante = 1;
    voie.RafraichirCalibre();
    EXPECT_EQ(voie.MaxCalibre, 5.0);
    voie.Desc.FonctionCourante = 9;
    voie.Desc.TempsMinNs = 1;
    voie.RafraichirCalibre();
    EXPECT_DOUBLE_EQ(voie.TempsMinSec, 4.294967295);
}

TvlVoieOrvane Named(const char* nom, int32_t reference, uint8_t canal = 0) {
    TvlVoieOrvane voie;
    SetText(voie.Desc.Nom, nom);
    voie.CodeReference = reference;
    voie.Canal = canal;
    return voie;
}

TEST(Names, FollowTheLanguage) {
    struct Row {
        TvlVoieOrvane voie;
        const char* english;
        const char* other;
    };
    // Without a catalogue the text of a row is its key.
    const std::vector<Row> rows{
        {Named("n", 482201), "Voltmeter", "IDS_482201_CHANNEL1_NAME"},
        {Named("n", 482101), "Thermometer", "IDS_482101_CHANNEL1_NAME"},
        {Named("n", 482034, 1), "n", "IDS_482034_CHANNEL1_NAME"},
        {Named("n", 482070, 0), "n", "IDS_482070_CHANNEL1_NAME"},
        {Named("n", 482070, 1), "n", "IDS_482070_CHANNEL2_NAME"},
        {Named("n", 482070, 2), "n", "n"},
        {Named("n", 482204), "n", "IDS_482204_CHANNEL1_NAME"},
        {Named("n", 482040), "n", "n"},
        {Named("n", 999999, 3), "n", "IDS_DIRECT_CHANNEL4_NAME"},
        {Named("n", 999999, 4), "n", "n"},
        {Named("n", 0, 5), "n", "IDS_EXTERN_TRIGGER_CHANNEL1_NAME"},
        {Named("n", -1), "n", "n"},
        {Named("Extern trigger", 482034, 2), "Extern trigger", "IDS_EXTERN_TRIGGER_CHANNEL1_NAME"},
        {Named("Extern trigger", 999999, 1), "Extern trigger", "Extern trigger"},
        {Named("extern trigger", 482040), "extern trigger", "extern trigger"},
    };
    for (const Row& row : rows) {
        const wxString nom = wxString::FromUTF8(row.voie.Desc.Nom);
        EXPECT_EQ(NomDeVoie(row.voie, "fr"), nom);
        EXPECT_EQ(NomDeVoie(row.voie, "en"), row.english);
        for (const char* other : {"de", "fr_FR", "EN", ""}) {
            EXPECT_EQ(NomDeVoie(row.voie, other), row.other) << other;
        }
    }
}

TEST_F(Queries, NamesWantAKnownModel) {
    EXPECT_EQ(QuelNomPour(0, 0), "U");
    EXPECT_EQ(QuelNomPourSynchro(0), "U");
    SynchroChannels[0] = 5;
    EXPECT_EQ(QuelNomPourSynchro(0), "");
    Connection.ConsoleModel = 1;
    EXPECT_EQ(QuelNomPour(0, 0), "");
}

} // namespace
