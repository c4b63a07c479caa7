#pragma once

/// \file
/// Every export once, in the order of a host that uses all there is; those that only tell
/// something of a channel are called plainly.

#include "channels/channel_lists.h"
#include "driver_exports.h"

#include <wx/bitmap.h>
#include <wx/utils.h>

#include <functional>
#include <map>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace every_export {

using namespace orvane;

inline wxMutex Mutex;
inline wxCondition Condition(Mutex);
inline wxCriticalSection Section;
inline tSpiroData Donnees;
inline double Params[3];
inline constexpr int32_t Codes[] = {0, 4095};

inline void InMode(int32_t modeReglage) {
    if (InputChannels.size() > 1) {
        InputChannels[1]->ModeReglage = modeReglage;
    }
}

struct Step {
    std::string Text; ///< An export, and what it is given.
    std::function<void()> Call;
};

/// Calls an export with arguments of no meaning.
template <class Result, class... Arguments> void CallPlainly(Result (*call)(Arguments...)) {
    call(std::remove_cvref_t<Arguments>()...);
}

// clang-format off
#define STEP(call) Step{#call, [] { call; }}

inline const Step orderedSteps[] = {
    STEP(StartDll(0, "", "fr", 0)), STEP(VerifCanaux()), STEP(CombienDeCanauxEnEntree()),
    STEP(QuelMinPourCalibrePour(1, 0)), STEP(QuelMaxPourCalibrePour(1, 0)), STEP(QuelValeurPour(1)),
    STEP(MetAmpliPour(1, 2.0)), STEP(MetOffsetPour(1, 1.0)), STEP(MetModeSpecialPour(1, 1)),
    STEP(MetGrandeurPour(1, L"P")), STEP(MetUnitPour(1, L"Pa")), STEP(MetFonctionPour(1, 1)),
    STEP(MetCalibrePour(1, 1)), STEP(DebutCalibrationPour(1)),
    STEP(MetCalibrationValuePour(1, 0, 1.0)), STEP(AbandonCalibrationPour(1)),
    STEP(ParDefautCalibrationPour(1)), STEP(MetReglagePour(1, 1.0)),
    STEP((InMode(2), PresetAdaptateurPour(1, 0))), STEP(QuelReglagePour(1)),
    STEP(QuelLibelleReglagePour(1)), STEP(QuelStatusPour(1, nullptr)),
    STEP((InMode(4), QuelValeurReglagePour(1))), STEP(QuelValeurStatusPour(1)),
    STEP(QuelBitmapPour(1)), STEP((InMode(4), QuelImageReglagePour(1))),
    STEP(InitAcqBuff(1e-3, 20, 3, 1)), STEP(StartAcqBuff(1, 0, 0.5, 0)),
    STEP(TestNombreDePointAcqui()), STEP(TestFinAcq()), STEP(RecuperationPoint(0, 3)),
    STEP(StopAcqBuff()), STEP(KiroDACParam(0, &Params[0], &Params[1], &Params[2])),
    STEP(KiroDACEcrire(0, 0.5)), STEP(KiroDACEcrireNum(0, 2048)),
    STEP(KiroDACCreneau(0, 1.0, 0.0, 1000.0, 1)), STEP(KiroDACSinus(0, 1.0, 0.0, 1000.0, 1)),
    STEP(KiroDACTriangle(0, 1.0, 0.0, 1000.0, 1)), STEP(KiroDACGenerer(0, 2, Codes, 1e6, 1)),
    STEP(GetEtatFourchePortimetre(0)), STEP(IsPorteClosedPortimetre()),
    STEP(SetCalibrePortimetre()), STEP(StartAcquisitionPortimetre(1)),
    STEP(TestEndOfLogPortimetre()), STEP(GetTimeRayPortimetre(0)),
    STEP(DetecteTurbineSpiro(nullptr)), STEP(GetCodeAdaptSpiro(3)), STEP(DoMesureSpiro(true)),
    STEP(StartThreadSpiro(&Mutex, &Condition, 0, 0.0, &Section)), STEP(SensTurbineSpiro()),
    STEP((wxMilliSleep(1), LectureDonneesSpiro(&Donnees))), STEP(StopThreadSpiro()),
    STEP(StartO150()), STEP(RadioSetConfigPilotO150()), STEP(RadioSetConfigO150(RadioPod, 12, 3)),
    STEP(RadioSetModeO150(RadioModePilote)), STEP(DeviceCb(0, RadioPod, true)),
    STEP(AcceptDeviceO150(0)), STEP(GetNbPodConnectedO150()), STEP(GetRadioDeviceO150(0)),
    STEP(GetCanalReelO150()), STEP(RadioPingDeviceO150(0)), STEP(RadioSetConfigNoneO150()),
    STEP(StopO150()), STEP(StopDll()), STEP(ShutdownConsole())};
// clang-format on

/// The export of a step.
inline std::string ExportOf(const Step& step) {
    const std::size_t comma = step.Text.starts_with("(") ? step.Text.find(", ") + 2 : 0;
    return step.Text.substr(comma, step.Text.find('(', comma) - comma);
}

/// The steps in their order and, after the enumeration, a plain call of each export without a step.
inline std::vector<Step> AllSteps() {
    std::map<std::string, std::function<void()>> exports{
#define ORVANE_EXPORT_ENTRY(name, symbol) {#name, [] { CallPlainly(&::name); }},
#include "driver_export_list.h"
    };
    for (const Step& step : orderedSteps) {
        exports.erase(ExportOf(step));
    }
    std::vector<Step> steps;
    for (const Step& step : orderedSteps) {
        steps.push_back(step);
        if (ExportOf(step) == "CombienDeCanauxEnEntree") {
            for (const auto& [name, call] : std::exchange(exports, {})) {
                steps.push_back({name + "(", call});
            }
        }
    }
    return steps;
}

inline const std::vector<Step> scenario = AllSteps();

} // namespace every_export
