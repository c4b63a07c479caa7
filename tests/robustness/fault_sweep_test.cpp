// Every export with every one of its port calls failing, one after the other, and with all of them
// failing from each one on.

#include "channels/channel_lists.h"
#include "connection/console_memory.h"
#include "driver_loader.h"
#include "tests/support/fake_time.h"
#include "tests/support/scripted_console.h"

#include <wx/bitmap.h>

#include <gmock/gmock.h>

#include <functional>
#include <iostream>
#include <set>

namespace {

wxMutex Mutex;
wxCondition Condition(Mutex);
wxCriticalSection Section;
tSpiroData Donnees;
double Params[3];
constexpr int32_t Codes[] = {0, 4095};

void InMode(int32_t modeReglage) {
    if (InputChannels.size() > 1) {
        InputChannels[1]->ModeReglage = modeReglage;
    }
}

struct Step {
    std::string Text; ///< An export, and what it is given.
    std::function<void()> Call;
};

// clang-format off
#define STEP(call) Step{#call, [] { call; }}

/// Every export, in the order of a host that uses all there is.
const Step scenario[] = {
    STEP(StartDll(0, "", "fr", 0)), STEP(VerifCanaux()), STEP(GetEtatVerifCanaux()),
    STEP(GetBuilderName()), STEP(GetInterfaceName()), STEP(GetSerialNumber()),
    STEP(GetConsoleType()), STEP(GetEtablissementNumber()), STEP(GetInfoPerso1()),
    STEP(GetInfoPerso2()), STEP(GetMinPas()), STEP(GetMinInTime()), STEP(GetInResolution()),
    STEP(GetOutResolution()), STEP(GetOutValMax()), STEP(GetOutValMin()),
    STEP(GetMaxDtInBuffMode()), STEP(GetNbPointPreSynchro()), STEP(GetParameter(0)),
    STEP(SetFunction()), STEP(GetTimeResolu()), STEP(CombienDeCanauxEnEntree()),
    STEP(CombienDeCanauxEnSortie()), STEP(CombienDeCanauxDeSynchro()), STEP(QuelNomPour(0, 0)),
    STEP(QuelNomPourSynchro(0)), STEP(QuelNomPourFonction(1, 1)), STEP(QuelNomPourCalibre(1, 0)),
    STEP(QuelVoiePhysiquePour(1)), STEP(QuelCanalPour(1)), STEP(QuelReferencePour(1)),
    STEP(QuelCodePour(1)), STEP(IsSynchroExternePour(0)), STEP(CombienDeFonctionPour(1)),
    STEP(QuelFonctionPour(1)), STEP(QuelDefaultPeriodSecPour(1)), STEP(QuelTempsMinPour(1)),
    STEP(CombienDeCalibrePour(1)), STEP(QuelCalibrePour(1)), STEP(QuelGrandeurPour(1)),
    STEP(QuelUnitePour(1)), STEP(QuelMinPour(1)), STEP(QuelMaxPour(1)),
    STEP(QuelMinPourCalibrePour(1, 0)), STEP(QuelMaxPourCalibrePour(1, 0)), STEP(QuelValeurPour(1)),
    STEP(QuelValeurSansPersonnalisationPour(1)), STEP(ConvertirSeuilSynchroPour(1, 0.5)),
    STEP(ConvertirPour(1, 7)), STEP(Convertir2BitPour(1, 0.5)), STEP(QuelBitCodagePour(1)),
    STEP(QuelNbDecimalPour(1)), STEP(QuelEtiquettePour(1)), STEP(MetAmpliPour(1, 2.0)),
    STEP(MetOffsetPour(1, 1.0)), STEP(MetModeSpecialPour(1, 1)), STEP(MetGrandeurPour(1, L"P")),
    STEP(MetUnitPour(1, L"Pa")), STEP(MetFonctionPour(1, 1)), STEP(MetCalibrePour(1, 1)),
    STEP(DebutCalibrationPour(1)), STEP(MetCalibrationValuePour(1, 0, 1.0)),
    STEP(AbandonCalibrationPour(1)), STEP(ParDefautCalibrationPour(1)),
    STEP(MetReglagePour(1, 1.0)), STEP((InMode(2), PresetAdaptateurPour(1, 0))),
    STEP(QuelReglagePour(1)), STEP(QuelLibelleReglagePour(1)), STEP(QuelStatusPour(1, nullptr)),
    STEP((InMode(4), QuelValeurReglagePour(1))), STEP(QuelValeurStatusPour(1)),
    STEP(QuelBitmapPour(1)), STEP((InMode(4), QuelImageReglagePour(1))),
    STEP(InitAcqBuff(1e-3, 20, 3, 1)), STEP(StartAcqBuff(1, 0, 0.5, 0)),
    STEP(TestNombreDePointAcqui()), STEP(TestFinAcq()), STEP(RecuperationPoint(0, 3)),
    STEP(RecuperationVolume()), STEP(AccesPointModeBuff()), STEP(StopAcqBuff()),
    STEP(KiroDACDisponible(0)), STEP(KiroDACIsGereBoucle()),
    STEP(KiroDACParam(0, &Params[0], &Params[1], &Params[2])), STEP(KiroDACEcrire(0, 0.5)),
    STEP(KiroDACEcrireNum(0, 2048)), STEP(KiroDACCreneau(0, 1.0, 0.0, 1000.0, 1)),
    STEP(KiroDACSinus(0, 1.0, 0.0, 1000.0, 1)), STEP(KiroDACTriangle(0, 1.0, 0.0, 1000.0, 1)),
    STEP(KiroDACGenerer(0, 2, Codes, 1e6, 1)), STEP(GetNombreDeFourcheMaxPortimetre()),
    STEP(GetEtatFourchePortimetre(0)), STEP(IsPorteClosedPortimetre()),
    STEP(SetCalibrePortimetre()), STEP(StartAcquisitionPortimetre(1)),
    STEP(TestEndOfLogPortimetre()), STEP(GetTimeRayPortimetre(0)),
    STEP(DetecteTurbineSpiro(nullptr)), STEP(GetCodeAdaptSpiro(3)), STEP(InitTurbineSpiro()),
    STEP(DoMesureSpiro(true)), STEP(StartThreadSpiro(&Mutex, &Condition, 0, 0.0, &Section)),
    STEP(SensTurbineSpiro()), STEP((wxMilliSleep(1), LectureDonneesSpiro(&Donnees))),
    STEP(StopThreadSpiro()), STEP(StartO150()), STEP(RadioSetConfigPilotO150()),
    STEP(RadioSetConfigO150(RadioPod, 12, 3)), STEP(RadioSetModeO150(RadioModePilote)),
    STEP(DeviceCb(0, RadioPod, true)), STEP(AcceptDeviceO150(0)), STEP(GetNbPodConnectedO150()),
    STEP(GetRadioDeviceO150(0)), STEP(GetCanalReelO150()), STEP(RadioPingDeviceO150(0)),
    STEP(RadioSetConfigNoneO150()), STEP(StopO150()), STEP(StopDll()), STEP(ShutdownConsole())};
// clang-format on

/// The export of a step.
std::string ExportOf(const Step& step) {
    const std::size_t comma = step.Text.starts_with("(") ? step.Text.find(", ") + 2 : 0;
    return step.Text.substr(comma, step.Text.find('(', comma) - comma);
}

/// A console that has one of everything.
void MakeConsole(uint16_t model) {
    Console = {};
    Console.Recording = false;
    Console.Model = model;
    Console.Memory.assign(32768, 0);
    Console.Connectors[0].Channels = {OutputChannel("Sortie a", -1, 1), InputChannel("E", 0, 5)};
    ScriptedChannel labelled = InputChannel("U", -12, 12);
    labelled.Text = "Etiquette=3";
    labelled.Functions.push_back(
        Function("RMS", "U", "V", {Calibre("a", 0, 1), Calibre("b", 0, 2)}));
    for (ScriptedFunction& function : labelled.Functions) {
        SetText(function.Desc.Image.TypeImage, "png");
        function.Image = {1, 2, 3};
    }
    ScriptedChannel state = StateChannel("Reglage=4");
    state.Functions = labelled.Functions;
    Console.Memory[7175] = 1;
    Console.Memory[7178] = 20;
    Console.Connectors[1] = Adapter(
        "482080", {labelled, AdjustmentChannel("Reglage=4"), state, PlainChannel("V", 2, 1)});
    Console.Connectors[2] =
        Adapter("482060", std::vector<ScriptedChannel>(8, InputChannel("Gate", 0, 1)), 21);
    Console.Connectors[3] = Adapter("482109", {InputChannel("Flow", -20, 20)});
    Console.Log = {{1, 0}, {2, 0}};
}

/// Names, units, limits and links as the host and the driver see them.
std::string Channels() {
    std::string text;
    for (int index = 0; index < CombienDeCanauxEnEntree(); ++index) {
        const TvlVoieOrvane& voie = *InputChannels[static_cast<std::size_t>(index)];
        text += QuelNomPour(index, 0).utf8_string() + QuelUnitePour(index).utf8_string() +
                std::to_string(QuelMaxPour(index)) + " " + std::to_string(voie.VoieReglage) +
                std::to_string(voie.VoieEtat) + std::to_string(voie.ModeReglage) + "; ";
    }
    return text + std::to_string(CombienDeCanauxEnSortie());
}

/// Whether a fresh start finds everything again.
void ExpectRecovery(uint16_t model, const std::string& channels) {
    MakeConsole(model);
    ASSERT_TRUE(StartDll(0, "", "fr", 0));
    VerifCanaux();
    ASSERT_EQ(Channels(), channels);
    EXPECT_EQ(InitAcqBuff(1e-3, 10, 3, 0), 1e-3);
    StartAcqBuff(0, 0, 0.0, 0);
    EXPECT_TRUE(TestFinAcq());
    StopAcqBuff();
    StopDll();
}

/// Runs the scenario in what is to the driver a process of its own. Tells the port calls made.
std::size_t CallsOfRun(uint16_t model, void (ScriptedConsole::*fail)(std::size_t), std::size_t n) {
    MakeConsole(model);
    (Console.*fail)(n);
    ConsoleMemoryLoaded = false;
    for (const Step& step : scenario) {
        step.Call();
    }
    return Console.CallCount();
}

/// The port calls of each export when none fails.
std::string CallsByExport(uint16_t model) {
    MakeConsole(model);
    ConsoleMemoryLoaded = false;
    std::string log;
    for (const Step& step : scenario) {
        const std::size_t before = Console.CallCount();
        step.Call();
        if (const std::size_t calls = Console.CallCount() - before; calls > 0) {
            log += ", " + ExportOf(step) + " " + std::to_string(calls);
        }
    }
    return log;
}

class FaultSweep : public testing::TestWithParam<uint16_t> {};

TEST_P(FaultSweep, LeavesNothingThatAFreshStartDoesNotMend) {
    std::set<std::string> exports;
    for (const Step& step : scenario) {
        exports.insert(ExportOf(step));
    }
    ASSERT_EQ(exports.size(), sizeof(DriverExports) / sizeof(void*)) << "no export is left out";
    UseFakeTimeBesideSpiro();
    testing::internal::CaptureStderr();
    MakeConsole(GetParam());
    StartDll(0, "", "fr", 0);
    VerifCanaux();
    const std::string channels = Channels();
    const std::string log = CallsByExport(GetParam());
    std::size_t runs = 0;
    for (const auto& fail : {&ScriptedConsole::FailCall, &ScriptedConsole::FailFrom}) {
        for (std::size_t n = 1; CallsOfRun(GetParam(), fail, n) >= n; ++n, ++runs) {
            ASSERT_NO_FATAL_FAILURE(ExpectRecovery(GetParam(), channels)) << n;
        }
    }
    testing::internal::GetCapturedStderr();
    std::cout << runs << " runs with a failure; port calls that failed, by export:" << log.substr(1)
              << '\n';
}

INSTANTIATE_TEST_SUITE_P(Models, FaultSweep, testing::Values(12304, 12336, 12368));

} // namespace
