#include "channels/adapter_map.h"
#include "console/console_port.h"
#include "tests/laboratory/laboratory_fixture.h"
#include "tests/support/answer_text.h"

#include <wx/bitmap.h>
#include <wx/image.h>

#include <gmock/gmock.h>

namespace orvane {

namespace {

class LaboratoryRecords : public LaboratoryTest {
protected:
    static std::string Adjustable(const std::string& adjustment) {
        return "[adapter.a]\nconnector = 2\nreference = 482061\nadjustment = { " + adjustment +
               " }\n[[adapter.a.channel]]\nname = \"Force\"\nquantity = [\"F\", \"N\"]\n"
               "calibres = [[0, 10]]\nsignal = [{ pwl = [0, 3] }]\n";
    }
};

TEST_F(LaboratoryRecords, SayWhatTheScenarioSays) {
    testing::internal::CaptureStderr();
    ASSERT_TRUE(Start(R"(
console = { model = 12336, serial = "LAB-1", type = "T", establishment = "É", lines = ["a", "b"] }
[[output]]
name = "Sortie analogique 1"
[adapter.two]
connector = 4
reference = 482070
[[adapter.two.channel]]
name = "Une"
label = 12
function = [
  { name = "Tension", quantity = ["u", "V"], calibres = [[-12, 12], [-24, 24]], signal = [
    { pwl = [0, 20] }] },
  { name = "Courant", quantity = ["i", "A"], calibres = [{ name = "1A", range = [0, 1] }], signal = [
    { pwl = [0, 0.5] }] }]
[radio]
channel = 20
)"));
    EXPECT_EQ(Text(Inputs, CombienDeCanauxEnSortie(), GetSerialNumber(), GetConsoleType(),
                   GetEtablissementNumber(), GetInfoPerso2(), GetInterfaceName(),
                   +GetCanalReelO150()),
              "1 | 1 | LAB-1 | T-FR | É | b | Orvane150 | 20 | ");
    EXPECT_EQ(Text(QuelReferencePour(0), QuelEtiquettePour(0), CombienDeFonctionPour(0),
                   CombienDeCalibrePour(0), QuelValeurPour(0)), // Held within the calibre.
              "482070 | 12 | 2 | 2 | 12 | ");
    MetCalibrePour(0, 1);
    EXPECT_EQ(Text(QuelMaxPour(0), QuelValeurPour(0)), "24 | 20 | ");
    MetFonctionPour(0, 1);
    EXPECT_EQ(Text(QuelNomPourCalibre(0, 0), QuelUnitePour(0), QuelValeurPour(0)),
              "1A | A | 0.5 | ");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "") << "no message about the memory";
}

TEST_F(LaboratoryRecords, AreThereAgainAfterASecondOpening) {
    ASSERT_TRUE(Start(Adjustable("mode = 1")));
    OVRelease();
    EXPECT_FALSE(OVConnect(0));
    ASSERT_TRUE(OVOpen(ConsoleInterfaceId)) << "as the driver does after a refused connection";
    EXPECT_TRUE(OVConnect(0));
    OVSetPlugCallback(AdapterCb);
    EXPECT_EQ(CombienDeCanauxEnEntree(), 1);
}

TEST_F(LaboratoryRecords, TakeTheirAdjustment) {
    ASSERT_TRUE(Start(Adjustable("mode = 1, label = \"Zéro\", range = [-1, 2], adds = true")));
    EXPECT_EQ(Text(QuelReglagePour(0), QuelLibelleReglagePour(0)), "104 | Zéro | ");
    for (const double given : {2.0, 7.0}) { // The second is held within its range.
        MetReglagePour(0, given);
        EXPECT_EQ(Text(QuelValeurReglagePour(0), QuelValeurPour(0)), "2 | 5 | ");
    }
}

TEST_F(LaboratoryRecords, PresetsTakeTheConsolesTime) {
    ASSERT_TRUE(
        Start(Adjustable("mode = 2, states = [\"prêt\", \"en cours\"], preset_time = 1.5")));
    int number = -1;
    EXPECT_EQ(QuelReglagePour(0), 106);
    MetReglagePour(0, 2.0);
    EXPECT_EQ(QuelStatusPour(0, &number), "en cours");
    EXPECT_EQ(number, 1);
    const double before = GetTimeResolu();
    PresetAdaptateurPour(0, 2);
    EXPECT_NEAR(GetTimeResolu() - before, 1.5e6, 0.11e6) << "until the adapter is ready";
    EXPECT_EQ(QuelStatusPour(0, &number), wxString::FromUTF8("prêt"));
}

TEST_F(LaboratoryRecords, StatesFollowTheirValue) {
    ASSERT_TRUE(Start(Adjustable("mode = 3, states = [\"bas\", \"haut\"]")));
    MetReglagePour(0, 1.0);
    EXPECT_EQ(QuelStatusPour(0, nullptr), "haut");
    StopDll();
    wxImage::AddHandler(new wxBMPHandler); // NOLINT: the toolkit owns it
    ASSERT_TRUE(Start(Adjustable("mode = 4, range = [0, 2], pictures = [\"\", \"\"]")));
    EXPECT_TRUE(QuelBitmapPour(0).IsOk());
    const auto picture = [] {
        const wxImage image = QuelImageReglagePour(0).ConvertToImage();
        return std::vector<uint8_t>(image.GetData(), image.GetData() + 3 * 32 * 32);
    };
    const auto first = picture();
    MetReglagePour(0, 1.0);
    EXPECT_NE(picture(), first);
    StopDll();
    ASSERT_TRUE(Start(Adjustable("mode = 5, range = [0, 9]")));
    MetReglagePour(0, 7.0);
    EXPECT_EQ(Text(QuelReglagePour(0), QuelValeurStatusPour(0), QuelValeurReglagePour(0)),
              "107 | 7 | 7 | ");
}

TEST_F(LaboratoryRecords, CalibrationShiftsTheReading) {
    ASSERT_TRUE(Start(Voltmeter(1, "signal = [{ pwl = [0, 2, 10, 2, 11, 4] }]")));
    DebutCalibrationPour(0);
    MetCalibrationValuePour(0, 0, 3.0);
    EXPECT_EQ(QuelValeurPour(0), 3.0);
    AbandonCalibrationPour(0);
    EXPECT_EQ(QuelValeurPour(0), 2.0);
    MetCalibrationValuePour(0, 0, 3.0);
    EXPECT_EQ(QuelValeurPour(0), 2.0) << "outside a calibration";
    DebutCalibrationPour(0);
    MetCalibrationValuePour(0, 0, 3.0);
    InitAcqBuff(1e-3, 12'000, 1, 0); // 12 s go by.
    StartAcqBuff(0, 0, 0.0, 0);
    while (!TestFinAcq()) {
    }
    MetCalibrationValuePour(0, 1, 7.0);
    EXPECT_EQ(QuelValeurPour(0), 7.0) << "3 at 2, 7 at 4";
    ParDefautCalibrationPour(0);
    EXPECT_EQ(QuelValeurPour(0), 4.0);
}

TEST_F(LaboratoryRecords, BadScenarioFailsTheStartWithItsErrors) {
    testing::internal::CaptureStderr();
    EXPECT_FALSE(Start("[adapter.x]\nconnector = 9\n"));
    const std::string said = testing::internal::GetCapturedStderr();
    EXPECT_THAT(said, testing::HasSubstr(File.string() + ":4:13: "));
    EXPECT_EQ(Inputs, 0);
    setenv("ORVANE_CLOCK", "scaled:0", 1);
    EXPECT_FALSE(Start(""));
    setenv("ORVANE_CLOCK", "scaled:1000", 1);
    ASSERT_TRUE(Start(Voltmeter(1, "")));
    const double before = GetTimeResolu();
    timespec pause{0, 5'000'000};
    nanosleep(&pause, nullptr);
    EXPECT_GE(GetTimeResolu() - before, 5e6);
    StopDll();
    EXPECT_LT(GetTimeResolu() - before, 1e13) << "the machine's clock again";
}

} // namespace

} // namespace orvane
