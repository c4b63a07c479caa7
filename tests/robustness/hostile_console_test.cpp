// A console that keeps to none of the rules of its records: what a host then gets is still neutral,
// finite in length and from the list it asked.

#include "driver_exports.h"
#include "tests/support/fake_time.h"
#include "tests/support/scripted_console.h"

#include <wx/bitmap.h>

#include <gmock/gmock.h>

#include <limits>

using namespace orvane;

namespace {

/// Every text full to its last byte, every count at its end, every selection beyond it.
ScriptedChannel HostileChannel(float min, float max, char letter) {
    ScriptedChannel channel = InputChannel("", min, max);
    const std::string endless(RecordTextSize, letter);
    tFunctionDesc& function = channel.Functions[0].Desc;
    for (auto* text :
         {&channel.Desc.Nom, &channel.Desc.Description, &function.Nom, &function.Grandeur,
          &function.Unite, &channel.Functions[0].Calibres[0].Nom}) {
        SetText(*text, endless);
    }
    channel.Desc.NbFonctions = 255;
    function.NbCalibres = 255;
    function.CalibreCourant = 200;
    function.TypeReglage = 255;
    function.NbVoiesLiees = 4294967295U;
    function.VoieLiee = 255;
    channel.Value = std::numeric_limits<double>::quiet_NaN();
    return channel;
}

/// All that a host asks of a channel, within the list and beyond.
void AskEverything() {
    const int channels = CombienDeCanauxEnEntree();
    CombienDeCanauxEnSortie();
    for (int index = -1; index <= channels; ++index) {
        for (const wxString& text :
             {QuelNomPour(index, 0), QuelUnitePour(index), QuelGrandeurPour(index),
              QuelNomPourFonction(index, 0), QuelNomPourCalibre(index, 0),
              QuelNomPourSynchro(index), QuelLibelleReglagePour(index),
              QuelStatusPour(index, nullptr)}) {
            EXPECT_LE(text.length(), RecordTextSize);
        }
        QuelValeurPour(index);
        QuelMaxPourCalibrePour(index, 254);
        QuelReglagePour(index);
        QuelValeurReglagePour(index);
        QuelValeurStatusPour(index);
        MetFonctionPour(index, 254);
        MetCalibrePour(index, 254);
        EXPECT_FALSE(QuelBitmapPour(index).IsOk() || QuelImageReglagePour(index).IsOk());
    }
}

TEST(HostileConsole, RecordsWithoutEndOrReason) {
    UsePause([](unsigned long) {});
    constexpr float infinite = std::numeric_limits<float>::infinity();
    constexpr float none = std::numeric_limits<float>::quiet_NaN();
    Console.Memory.assign(32768, 0xFF);
    for (const auto& [min, max, letter] :
         {std::tuple{-infinite, infinite, 'x'}, {none, none, '\xFF'}, {5.0F, -5.0F, '\xC3'}}) {
        const ScriptedChannel channel = HostileChannel(min, max, letter);
        ScriptedChannel state = StateChannel(std::string(100'000, 'R'), std::string(256, letter));
        state.Desc.FonctionCourante = 255;
        Console.Connectors[1] =
            Adapter(std::string(256, '9'),
                    {channel, AdjustmentChannel("Reglage=4", std::string(256, '|')), state});
        Console.Connectors[0].Channels = {channel};
        Console.Connectors[0].Desc.NbVoies = Console.Connectors[1].Desc.NbVoies = 255;
        Console.InterfaceDesc.NbVoiesEnumerees = 255;
        for (const bool beyond : {false, true}) {
            Console.AcceptBeyond = beyond;
            ASSERT_TRUE(StartDll(0, "", "fr", 0));
            AskEverything();
            EXPECT_GE(CombienDeCanauxEnEntree(), 2);
        }
        EXPECT_LE(GetInfoPerso2().length(), Console.Memory.size());
    }
}

TEST(HostileConsole, SizesThatLieInBothDirections) {
    Console.Memory.assign(32768, 0);
    for (const uint32_t size : {1U, 7U, 1000U, 4294967295U}) {
        ScriptedChannel channel = InputChannel("U", 0, 1);
        channel.Text = "Etiquette=3";
        channel.Desc.TailleTexte = size;
        Console.Connectors[1] = Adapter("1", {channel});
        ASSERT_TRUE(StartDll(0, "", "fr", 0));
        ASSERT_EQ(CombienDeCanauxEnEntree(), 1);
        EXPECT_EQ(QuelEtiquettePour(0), size < 11 ? -1 : 3) << size;
    }
}

} // namespace
