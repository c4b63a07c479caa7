// Every export with every one of its port calls failing, one after the other, and with all of them
// failing from each one on.

#include "channels/channel_lists.h"
#include "connection/console_memory.h"
#include "driver_exports.h"
#include "platform/pause.h"
#include "tests/support/scripted_console.h"

#include <wx/bitmap.h>

#include <gmock/gmock.h>

#include <algorithm>
#include <functional>
#include <iostream>

namespace {

struct Export {
    const char* Name;
    std::function<void()> Call;
};

void InMode(int32_t modeReglage) {
    InputChannels[1]->ModeReglage = modeReglage;
}

/// The exports that reach the console, each called as a host would.
const std::vector<Export> exports{
    {"StartDll", [] { StartDll(0, "", "fr", 0); }},
    {"StopDll", StopDll},
    {"GetSerialNumber",
     [] {
         ConsoleMemoryLoaded = false;
         GetSerialNumber();
     }},
    {"CombienDeCanauxEnEntree", [] { CombienDeCanauxEnEntree(); }},
    {"QuelNomPour", [] { QuelNomPour(0, 0); }},
    {"QuelNomPourFonction", [] { QuelNomPourFonction(0, 0); }},
    {"QuelNomPourCalibre", [] { QuelNomPourCalibre(0, 0); }},
    {"CombienDeCalibrePour", [] { CombienDeCalibrePour(0); }},
    {"QuelUnitePour", [] { QuelUnitePour(0); }},
    {"QuelMaxPourCalibrePour", [] { QuelMaxPourCalibrePour(0, 0); }},
    {"QuelValeurPour", [] { QuelValeurPour(0); }},
    {"QuelEtiquettePour", [] { QuelEtiquettePour(1); }},
    {"InitAcqBuff", [] { InitAcqBuff(1e-3, 20, 3, 1); }},
    {"StartAcqBuff", [] { StartAcqBuff(1, 0, 0.5, 0); }},
    {"TestFinAcq", [] { TestFinAcq(); }},
    {"RecuperationPoint", [] { RecuperationPoint(0, 3); }},
    {"StopAcqBuff", StopAcqBuff},
    {"MetFonctionPour", [] { MetFonctionPour(1, 1); }},
    {"MetCalibrePour", [] { MetCalibrePour(1, 1); }},
    {"DebutCalibrationPour", [] { DebutCalibrationPour(1); }},
    {"MetCalibrationValuePour", [] { MetCalibrationValuePour(1, 0, 1.0); }},
    {"MetReglagePour", [] { MetReglagePour(1, 1.0); }},
    {"PresetAdaptateurPour", [] { InMode(2), PresetAdaptateurPour(1, 0); }},
    {"QuelReglagePour", [] { QuelReglagePour(1); }},
    {"QuelLibelleReglagePour", [] { QuelLibelleReglagePour(1); }},
    {"QuelValeurReglagePour", [] { QuelValeurReglagePour(1); }},
    {"QuelStatusPour", [] { InMode(2), QuelStatusPour(1, nullptr); }},
    {"QuelBitmapPour", [] { QuelBitmapPour(1); }},
    {"QuelImageReglagePour", [] { QuelImageReglagePour(1); }},
    {"KiroDACEcrire", [] { KiroDACEcrire(0, 0.5); }},
    {"KiroDACEcrireNum", [] { KiroDACEcrireNum(0, 2048); }},
    {"KiroDACSinus", [] { KiroDACSinus(0, 1.0, 0.0, 1000.0, 1); }},
    {"StartAcquisitionPortimetre", [] { StartAcquisitionPortimetre(1); }},
    {"GetNombreDeFourcheMaxPortimetre", [] { GetNombreDeFourcheMaxPortimetre(); }},
    {"GetEtatFourchePortimetre", [] { GetEtatFourchePortimetre(0); }},
    {"TestEndOfLogPortimetre", [] { TestEndOfLogPortimetre(); }},
    {"GetTimeRayPortimetre", [] { GetTimeRayPortimetre(0); }},
    {"DetecteTurbineSpiro", [] { DetecteTurbineSpiro(nullptr); }},
    {"RadioSetConfigPilotO150", [] { RadioSetConfigPilotO150(); }},
    {"RadioSetConfigNoneO150", [] { RadioSetConfigNoneO150(); }},
    {"AcceptDeviceO150", [] { AcceptDeviceO150(0); }},
    {"RadioPingDeviceO150", [] { RadioPingDeviceO150(0); }},
};

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
    Console.Memory[7175] = 1;
    Console.Memory[7178] = 20;
    Console.Connectors[1] = Adapter("482080", {labelled, AdjustmentChannel("Reglage=4"),
                                               StateChannel("Reglage=4"), PlainChannel("V", 2, 1)});
    Console.Connectors[2] =
        Adapter("482060", std::vector<ScriptedChannel>(8, InputChannel("Gate", 0, 1)), 21);
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

void Prepare(uint16_t model) {
    MakeConsole(model);
    ConsoleMemoryLoaded = false; // As in a process of its own.
    StartDll(0, "", "fr", 0);
    VerifCanaux();
    CombienDeCanauxEnEntree();
    InitAcqBuff(1e-3, 10, 3, 0);
    StartAcqBuff(0, 0, 0.0, 0);
}

/// Whether a fresh start finds everything again.
void ExpectRecovery(uint16_t model, const std::string& channels) {
    MakeConsole(model);
    ASSERT_TRUE(StartDll(0, "", "fr", 0));
    VerifCanaux();
    EXPECT_EQ(Channels(), channels);
    EXPECT_EQ(InitAcqBuff(1e-3, 10, 3, 0), 1e-3);
    StartAcqBuff(0, 0, 0.0, 0);
    EXPECT_TRUE(TestFinAcq());
    StopAcqBuff();
    StopDll();
}

class FaultSweep : public testing::TestWithParam<uint16_t> {};

TEST_P(FaultSweep, LeavesNothingThatAFreshStartDoesNotMend) {
    platform::PauseInPlace = [](unsigned long) {};
    MakeConsole(GetParam());
    StartDll(0, "", "fr", 0);
    VerifCanaux();
    const std::string channels = Channels();
    testing::internal::CaptureStderr();
    std::string log;
    for (const Export& swept : exports) {
        std::size_t calls = 0;
        for (const auto& fail : {&ScriptedConsole::FailCall, &ScriptedConsole::FailFrom}) {
            for (std::size_t n = 1; n == 1 || n <= calls; ++n) {
                Prepare(GetParam());
                const std::size_t before = Console.CallCount();
                (Console.*fail)(n);
                swept.Call();
                calls = std::max(calls, Console.CallCount() - before);
                ExpectRecovery(GetParam(), channels);
            }
        }
        log += std::string(swept.Name) + " " + std::to_string(calls) + ", ";
    }
    testing::internal::GetCapturedStderr();
    std::cout << "Port calls that failed, by export: " << log << "all twice\n";
}

INSTANTIATE_TEST_SUITE_P(Models, FaultSweep, testing::Values(12304, 12336, 12368));

} // namespace
