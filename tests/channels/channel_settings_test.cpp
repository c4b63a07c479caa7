// What the host sets on a channel: what reaches the console, in which order, and what it changes.

#include "channel_exports.h"
#include "channels/channel_lists.h"
#include "lifecycle_exports.h"
#include "settings_exports.h"
#include "tests/support/scripted_console.h"

#include <gmock/gmock.h>

using namespace orvane;

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// One channel with two functions, the first of two calibres, enumerated.
class Settings : public testing::Test {
protected:
    Settings() {
        ScriptedChannel channel = InputChannel("U", -12, 12);
        channel.Functions[0].Calibres.push_back(Calibre("+-24V", -24, 24));
        channel.Functions.push_back(Function("RMS", "U", "Vrms", {Calibre("5V", 0, 5)}));
        Console.Memory.assign(32768, 0);
        Console.Connectors[1] = Adapter("482034", {channel});
        StartDll(0, "", "fr", 0);
        CombienDeCanauxEnEntree();
        Console.TakeCalls();
    }
};

TEST_F(Settings, SpecialModeSwitchesTheTextsAndItsEndClearsTheScale) {
    MetAmpliPour(0, 2.0);
    MetOffsetPour(0, 1.0);
    MetGrandeurPour(0, L"pression");
    MetUnitPour(0, L"µbar");
    EXPECT_EQ(QuelMaxPour(0), 25.0) << "the scale acts without the special mode";
    EXPECT_EQ(QuelUnitePour(0), "V");
    MetModeSpecialPour(0, 0x101);
    EXPECT_EQ(QuelUnitePour(0), wxString::FromUTF8("µbar"));
    EXPECT_EQ(QuelMaxPour(0), 25.0);
    MetModeSpecialPour(0, 0x100);
    EXPECT_EQ(QuelUnitePour(0), "V") << "only the low byte counts";
    EXPECT_EQ(QuelMaxPour(0), 12.0);
    EXPECT_EQ(QuelMinPour(0), -12.0);
    MetModeSpecialPour(0, -1);
    EXPECT_EQ(QuelGrandeurPour(0), "pression") << "the texts are kept for the next time";
    MetGrandeurPour(0, nullptr);
    EXPECT_EQ(QuelGrandeurPour(0), "");
}

TEST_F(Settings, FunctionIsSelectedReadAndRefreshed) {
    MetFonctionPour(0, 0x100);
    MetFonctionPour(1, 1);
    EXPECT_THAT(Console.TakeCalls(), IsEmpty()) << "the selected one, and no such channel";
    Console.Connectors[1].Channels[0].Desc.TempsMinNs = 5000;
    MetFonctionPour(0, 1);
    EXPECT_THAT(Console.TakeCalls(),
                ElementsAre("OVSelectFunction(1, 0, 1)", "OVGetChannelDesc(1, 0)",
                            "OVGetFunctionDesc(1, 0, 1)", "OVGetCalibreDesc(1, 0, 1, 0)"));
    EXPECT_DOUBLE_EQ(QuelTempsMinPour(0), 5e-6);
    MetFonctionPour(0, 2);
    EXPECT_THAT(Console.TakeCalls(),
                ElementsAre("OVSelectFunction(1, 0, 2)", "OVGetFunctionDesc(1, 0, 1)",
                            "OVGetCalibreDesc(1, 0, 1, 0)"))
        << "a refusal is followed by a refresh alone";
    EXPECT_EQ(QuelMaxPour(0), 5.0);
}

TEST_F(Settings, CalibreIsSelectedIfItIsAnotherAndRefreshedInEveryCase) {
    MetAmpliPour(0, 2.0);
    MetCalibrePour(0, 1);
    EXPECT_THAT(Console.TakeCalls(),
                ElementsAre("OVGetFunctionDesc(1, 0, 0)", "OVSelectCalibre(1, 0, 1)",
                            "OVGetChannelDesc(1, 0)", "OVGetFunctionDesc(1, 0, 0)",
                            "OVGetCalibreDesc(1, 0, 0, 1)"));
    Console.Connectors[1].Channels[0].Functions[0].Calibres[1].Max = 30;
    for (const int calibre : {1, 257, -1}) { // The selected one, and two that no byte can carry.
        MetCalibrePour(0, calibre);
        EXPECT_THAT(Console.TakeCalls(),
                    ElementsAre("OVGetFunctionDesc(1, 0, 0)", "OVGetFunctionDesc(1, 0, 0)",
                                "OVGetCalibreDesc(1, 0, 0, 1)"));
    }
    MetCalibrePour(0, 2);
    EXPECT_THAT(Console.CallsOf("OVSelect"), ElementsAre("OVSelectCalibre(1, 0, 2)"));
    Console.FailCall(1);
    MetCalibrePour(0, 0);
    EXPECT_EQ(QuelMaxPour(0), 60.0) << "nothing is selected without the record";
}

TEST_F(Settings, CalibrationPassesThrough) {
    Console.Fail("OVSelectFunction");
    DebutCalibrationPour(0);
    MetCalibrationValuePour(0, -1, 0.1);
    AbandonCalibrationPour(0);
    ParDefautCalibrationPour(0);
    ParDefautCalibrationPour(-1);
    EXPECT_THAT(Console.TakeCalls(),
                ElementsAre("OVSelectFunction(1, 0, 0)", "OVCalibrationStart(1, 0)",
                            "OVSetCalibrationValue(1, 0, 4294967295, 0.1)",
                            "OVCalibrationAbort(1, 0)", "OVCalibrationDefault(1, 0)"));
}

} // namespace
