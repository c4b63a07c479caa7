// A console that keeps to none of the rules of its records: what a host then gets is still neutral
// and finite in length.

#include "driver_exports.h"
#include "tests/support/scripted_console.h"

#include <wx/bitmap.h>

#include <gmock/gmock.h>

/// Every text full to its last byte, every count at its end, every selection beyond it.
TEST(HostileConsole, RecordsWithoutEndOrReason) {
    Console.Memory.assign(32768, 0xFF);
    for (const char letter : {'x', '\xFF', '\xC3', '|'}) {
        const std::string endless(RecordTextSize, letter);
        ScriptedChannel channel = AdjustmentChannel("Reglage=4", endless);
        channel.Functions[0].Calibres = {Calibre(endless, 5, -5)};
        tFunctionDesc& function = channel.Functions[0].Desc;
        for (auto* text : {&channel.Desc.Nom, &function.Nom, &function.Grandeur, &function.Unite}) {
            SetText(*text, endless);
        }
        channel.Desc.NbFonctions = function.NbCalibres = function.CalibreCourant = 255;
        function.VoieLiee = function.TypeReglage = 255;
        function.NbVoiesLiees = 4294967295U;
        ScriptedChannel measuring = channel;
        measuring.Desc.Genre = 0;
        measuring.Desc.Sens = 1;
        ScriptedChannel state = StateChannel(std::string(100'000, 'R'), endless);
        state.Desc.FonctionCourante = 255;
        Console.Connectors[1] = Adapter(endless, {measuring, channel, state});
        Console.Connectors[0].Channels = {measuring};
        Console.Connectors[0].Desc.NbVoies = Console.Connectors[1].Desc.NbVoies = 255;
        Console.InterfaceDesc.NbVoiesEnumerees = 255;
        for (const bool beyond : {false, true}) {
            Console.AcceptBeyond = beyond;
            ASSERT_TRUE(StartDll(0, "", "fr", 0));
            CombienDeCanauxEnSortie();
            const int channels = CombienDeCanauxEnEntree();
            EXPECT_GE(channels, 2);
            for (int index = -1; index <= channels; ++index) {
                for (const wxString& text :
                     {QuelNomPour(index, 0), QuelUnitePour(index), QuelGrandeurPour(index),
                      QuelNomPourFonction(index, 0), QuelNomPourCalibre(index, 0),
                      QuelNomPourSynchro(index), QuelLibelleReglagePour(index),
                      QuelStatusPour(index, nullptr)}) {
                    EXPECT_LE(text.length(), RecordTextSize);
                }
                EXPECT_FALSE(QuelBitmapPour(index).IsOk() || QuelImageReglagePour(index).IsOk());
            }
        }
        EXPECT_LE(GetInfoPerso2().length(), Console.Memory.size());
    }
}
