#pragma once

/// \file
/// Loads the driver library at run time and finds its exports by name. A host may copy this folder
/// as it is; it needs the toolkit's base part and the system's dynamic loader.

#include "driver_exports.h"

#include <dlfcn.h>

#include <string>
#include <vector>

/// The exports of a loaded driver, typed. One that the library does not have is null.
struct DriverExports {
    // Start, stop, identity
    decltype(&::StartDll) StartDll = nullptr;
    decltype(&::StopDll) StopDll = nullptr;
    decltype(&::ShutdownConsole) ShutdownConsole = nullptr;
    decltype(&::GetBuilderName) GetBuilderName = nullptr;
    decltype(&::GetInterfaceName) GetInterfaceName = nullptr;
    decltype(&::GetMinPas) GetMinPas = nullptr;
    decltype(&::GetMinInTime) GetMinInTime = nullptr;
    decltype(&::GetInResolution) GetInResolution = nullptr;
    decltype(&::GetOutResolution) GetOutResolution = nullptr;
    decltype(&::GetOutValMax) GetOutValMax = nullptr;
    decltype(&::GetOutValMin) GetOutValMin = nullptr;
    decltype(&::GetMaxDtInBuffMode) GetMaxDtInBuffMode = nullptr;
    decltype(&::GetNbPointPreSynchro) GetNbPointPreSynchro = nullptr;
    decltype(&::GetParameter) GetParameter = nullptr;
    decltype(&::SetFunction) SetFunction = nullptr;
    decltype(&::GetTimeResolu) GetTimeResolu = nullptr;
    decltype(&::GetSerialNumber) GetSerialNumber = nullptr;
    decltype(&::GetConsoleType) GetConsoleType = nullptr;
    decltype(&::GetEtablissementNumber) GetEtablissementNumber = nullptr;
    decltype(&::GetInfoPerso1) GetInfoPerso1 = nullptr;
    decltype(&::GetInfoPerso2) GetInfoPerso2 = nullptr;

    // Adapter changes
    decltype(&::VerifCanaux) VerifCanaux = nullptr;
    decltype(&::GetEtatVerifCanaux) GetEtatVerifCanaux = nullptr;

    // Channels
    decltype(&::CombienDeCanauxEnEntree) CombienDeCanauxEnEntree = nullptr;
    decltype(&::CombienDeCanauxEnSortie) CombienDeCanauxEnSortie = nullptr;
    decltype(&::CombienDeCanauxDeSynchro) CombienDeCanauxDeSynchro = nullptr;
    decltype(&::QuelNomPour) QuelNomPour = nullptr;
    decltype(&::QuelNomPourSynchro) QuelNomPourSynchro = nullptr;
    decltype(&::QuelNomPourFonction) QuelNomPourFonction = nullptr;
    decltype(&::QuelNomPourCalibre) QuelNomPourCalibre = nullptr;
    decltype(&::QuelVoiePhysiquePour) QuelVoiePhysiquePour = nullptr;
    decltype(&::QuelReferencePour) QuelReferencePour = nullptr;
    decltype(&::QuelCodePour) QuelCodePour = nullptr;
    decltype(&::IsSynchroExternePour) IsSynchroExternePour = nullptr;
    decltype(&::CombienDeFonctionPour) CombienDeFonctionPour = nullptr;
    decltype(&::QuelFonctionPour) QuelFonctionPour = nullptr;
    decltype(&::QuelDefaultPeriodSecPour) QuelDefaultPeriodSecPour = nullptr;
    decltype(&::QuelTempsMinPour) QuelTempsMinPour = nullptr;
    decltype(&::CombienDeCalibrePour) CombienDeCalibrePour = nullptr;
    decltype(&::QuelCalibrePour) QuelCalibrePour = nullptr;
    decltype(&::QuelGrandeurPour) QuelGrandeurPour = nullptr;
    decltype(&::QuelUnitePour) QuelUnitePour = nullptr;
    decltype(&::QuelMinPour) QuelMinPour = nullptr;
    decltype(&::QuelMaxPour) QuelMaxPour = nullptr;
    decltype(&::QuelMinPourCalibrePour) QuelMinPourCalibrePour = nullptr;
    decltype(&::QuelMaxPourCalibrePour) QuelMaxPourCalibrePour = nullptr;
    decltype(&::QuelValeurPour) QuelValeurPour = nullptr;
    decltype(&::ConvertirSeuilSynchroPour) ConvertirSeuilSynchroPour = nullptr;
    decltype(&::ConvertirPour) ConvertirPour = nullptr;
    decltype(&::Convertir2BitPour) Convertir2BitPour = nullptr;
    decltype(&::QuelBitCodagePour) QuelBitCodagePour = nullptr;
    decltype(&::QuelEtiquettePour) QuelEtiquettePour = nullptr;
    decltype(&::QuelCanalPour) QuelCanalPour = nullptr;
    decltype(&::QuelValeurSansPersonnalisationPour) QuelValeurSansPersonnalisationPour = nullptr;
    decltype(&::QuelNbDecimalPour) QuelNbDecimalPour = nullptr;

    // Settings
    decltype(&::MetAmpliPour) MetAmpliPour = nullptr;
    decltype(&::MetOffsetPour) MetOffsetPour = nullptr;
    decltype(&::MetModeSpecialPour) MetModeSpecialPour = nullptr;
    decltype(&::MetGrandeurPour) MetGrandeurPour = nullptr;
    decltype(&::MetUnitPour) MetUnitPour = nullptr;
    decltype(&::MetFonctionPour) MetFonctionPour = nullptr;
    decltype(&::MetCalibrePour) MetCalibrePour = nullptr;
    decltype(&::DebutCalibrationPour) DebutCalibrationPour = nullptr;
    decltype(&::AbandonCalibrationPour) AbandonCalibrationPour = nullptr;
    decltype(&::ParDefautCalibrationPour) ParDefautCalibrationPour = nullptr;
    decltype(&::MetCalibrationValuePour) MetCalibrationValuePour = nullptr;

    // Adjustments
    decltype(&::MetReglagePour) MetReglagePour = nullptr;
    decltype(&::PresetAdaptateurPour) PresetAdaptateurPour = nullptr;
    decltype(&::QuelReglagePour) QuelReglagePour = nullptr;
    decltype(&::QuelLibelleReglagePour) QuelLibelleReglagePour = nullptr;
    decltype(&::QuelValeurReglagePour) QuelValeurReglagePour = nullptr;
    decltype(&::QuelStatusPour) QuelStatusPour = nullptr;
    decltype(&::QuelValeurStatusPour) QuelValeurStatusPour = nullptr;

    // Images
    decltype(&::QuelBitmapPour) QuelBitmapPour = nullptr;
    decltype(&::QuelImageReglagePour) QuelImageReglagePour = nullptr;

    // Buffered acquisition
    decltype(&::InitAcqBuff) InitAcqBuff = nullptr;
    decltype(&::StartAcqBuff) StartAcqBuff = nullptr;
    decltype(&::StopAcqBuff) StopAcqBuff = nullptr;
    decltype(&::TestNombreDePointAcqui) TestNombreDePointAcqui = nullptr;
    decltype(&::TestFinAcq) TestFinAcq = nullptr;
    decltype(&::RecuperationPoint) RecuperationPoint = nullptr;
    decltype(&::RecuperationVolume) RecuperationVolume = nullptr;
    decltype(&::AccesPointModeBuff) AccesPointModeBuff = nullptr;

    // Analog output
    decltype(&::KiroDACDisponible) KiroDACDisponible = nullptr;
    decltype(&::KiroDACIsGereBoucle) KiroDACIsGereBoucle = nullptr;
    decltype(&::KiroDACParam) KiroDACParam = nullptr;
    decltype(&::KiroDACEcrire) KiroDACEcrire = nullptr;
    decltype(&::KiroDACEcrireNum) KiroDACEcrireNum = nullptr;
    decltype(&::KiroDACCreneau) KiroDACCreneau = nullptr;
    decltype(&::KiroDACSinus) KiroDACSinus = nullptr;
    decltype(&::KiroDACTriangle) KiroDACTriangle = nullptr;
    decltype(&::KiroDACGenerer) KiroDACGenerer = nullptr;

    // Gate timing
    decltype(&::GetNombreDeFourcheMaxPortimetre) GetNombreDeFourcheMaxPortimetre = nullptr;
    decltype(&::GetEtatFourchePortimetre) GetEtatFourchePortimetre = nullptr;
    decltype(&::IsPorteClosedPortimetre) IsPorteClosedPortimetre = nullptr;
    decltype(&::StartAcquisitionPortimetre) StartAcquisitionPortimetre = nullptr;
    decltype(&::TestEndOfLogPortimetre) TestEndOfLogPortimetre = nullptr;
    decltype(&::GetTimeRayPortimetre) GetTimeRayPortimetre = nullptr;
    decltype(&::SetCalibrePortimetre) SetCalibrePortimetre = nullptr;

    // Spirometer
    decltype(&::DetecteTurbineSpiro) DetecteTurbineSpiro = nullptr;
    decltype(&::GetCodeAdaptSpiro) GetCodeAdaptSpiro = nullptr;
    decltype(&::SensTurbineSpiro) SensTurbineSpiro = nullptr;
    decltype(&::DoMesureSpiro) DoMesureSpiro = nullptr;
    decltype(&::LectureDonneesSpiro) LectureDonneesSpiro = nullptr;
    decltype(&::InitTurbineSpiro) InitTurbineSpiro = nullptr;
    decltype(&::StartThreadSpiro) StartThreadSpiro = nullptr;
    decltype(&::StopThreadSpiro) StopThreadSpiro = nullptr;

    // Radio network
    decltype(&::StartO150) StartO150 = nullptr;
    decltype(&::StopO150) StopO150 = nullptr;
    decltype(&::DeviceCb) DeviceCb = nullptr;
    decltype(&::AcceptDeviceO150) AcceptDeviceO150 = nullptr;
    decltype(&::GetNbPodConnectedO150) GetNbPodConnectedO150 = nullptr;
    decltype(&::GetRadioDeviceO150) GetRadioDeviceO150 = nullptr;
    decltype(&::GetCanalReelO150) GetCanalReelO150 = nullptr;
    decltype(&::RadioPingDeviceO150) RadioPingDeviceO150 = nullptr;
    decltype(&::RadioSetConfigO150) RadioSetConfigO150 = nullptr;
    decltype(&::RadioSetConfigNoneO150) RadioSetConfigNoneO150 = nullptr;
    decltype(&::RadioSetConfigPilotO150) RadioSetConfigPilotO150 = nullptr;
    decltype(&::RadioSetModeO150) RadioSetModeO150 = nullptr;
};

/// A driver in the process of its host.
struct LoadedDriver {
    void* Library = nullptr;          ///< Handle of the loader; null if the library did not open.
    std::string Error;                ///< Why it did not open.
    DriverExports Exports;            ///< Its exports.
    std::vector<std::string> Missing; ///< Names of exports that it does not have.
};

namespace driver_loader {

/// Finds one export. Decorated names carry their signature, as the compiler writes it.
template <class Function>
void Find(LoadedDriver& driver, Function& slot, const char* exportedName) {
    slot = reinterpret_cast<Function>(dlsym(driver.Library, exportedName));
    if (slot == nullptr) {
        driver.Missing.emplace_back(exportedName);
    }
}

inline void FindLifecycle(LoadedDriver& driver) {
    DriverExports& to = driver.Exports;
    Find(driver, to.StartDll, "StartDll");
    Find(driver, to.StopDll, "StopDll");
    Find(driver, to.ShutdownConsole, "ShutdownConsole");
    Find(driver, to.GetBuilderName, "GetBuilderName");
    Find(driver, to.GetInterfaceName, "GetInterfaceName");
    Find(driver, to.GetMinPas, "GetMinPas");
    Find(driver, to.GetMinInTime, "GetMinInTime");
    Find(driver, to.GetInResolution, "GetInResolution");
    Find(driver, to.GetOutResolution, "GetOutResolution");
    Find(driver, to.GetOutValMax, "GetOutValMax");
    Find(driver, to.GetOutValMin, "GetOutValMin");
    Find(driver, to.GetMaxDtInBuffMode, "GetMaxDtInBuffMode");
    Find(driver, to.GetNbPointPreSynchro, "GetNbPointPreSynchro");
    Find(driver, to.GetParameter, "GetParameter");
    Find(driver, to.SetFunction, "SetFunction");
    Find(driver, to.GetTimeResolu, "GetTimeResolu");
    Find(driver, to.GetSerialNumber, "_Z15GetSerialNumberv");
    Find(driver, to.GetConsoleType, "_Z14GetConsoleTypev");
    Find(driver, to.GetEtablissementNumber, "_Z22GetEtablissementNumberv");
    Find(driver, to.GetInfoPerso1, "_Z13GetInfoPerso1v");
    Find(driver, to.GetInfoPerso2, "_Z13GetInfoPerso2v");
}

inline void FindChannelNamesAndFields(LoadedDriver& driver) {
    DriverExports& to = driver.Exports;
    Find(driver, to.VerifCanaux, "VerifCanaux");
    Find(driver, to.GetEtatVerifCanaux, "_Z18GetEtatVerifCanauxv");
    Find(driver, to.CombienDeCanauxEnEntree, "CombienDeCanauxEnEntree");
    Find(driver, to.CombienDeCanauxEnSortie, "CombienDeCanauxEnSortie");
    Find(driver, to.CombienDeCanauxDeSynchro, "CombienDeCanauxDeSynchro");
    Find(driver, to.QuelNomPour, "QuelNomPour");
    Find(driver, to.QuelNomPourSynchro, "QuelNomPourSynchro");
    Find(driver, to.QuelNomPourFonction, "QuelNomPourFonction");
    Find(driver, to.QuelNomPourCalibre, "QuelNomPourCalibre");
    Find(driver, to.QuelCanalPour, "_Z13QuelCanalPouri");
    Find(driver, to.QuelVoiePhysiquePour, "QuelVoiePhysiquePour");
    Find(driver, to.QuelReferencePour, "QuelReferencePour");
    Find(driver, to.QuelCodePour, "QuelCodePour");
    Find(driver, to.IsSynchroExternePour, "IsSynchroExternePour");
    Find(driver, to.CombienDeFonctionPour, "CombienDeFonctionPour");
    Find(driver, to.QuelFonctionPour, "QuelFonctionPour");
    Find(driver, to.QuelDefaultPeriodSecPour, "QuelDefaultPeriodSecPour");
    Find(driver, to.QuelTempsMinPour, "QuelTempsMinPour");
}

inline void FindChannelReadings(LoadedDriver& driver) {
    DriverExports& to = driver.Exports;
    Find(driver, to.CombienDeCalibrePour, "CombienDeCalibrePour");
    Find(driver, to.QuelCalibrePour, "QuelCalibrePour");
    Find(driver, to.QuelGrandeurPour, "QuelGrandeurPour");
    Find(driver, to.QuelUnitePour, "QuelUnitePour");
    Find(driver, to.QuelMinPour, "QuelMinPour");
    Find(driver, to.QuelMaxPour, "QuelMaxPour");
    Find(driver, to.QuelMinPourCalibrePour, "QuelMinPourCalibrePour");
    Find(driver, to.QuelMaxPourCalibrePour, "QuelMaxPourCalibrePour");
    Find(driver, to.QuelValeurPour, "QuelValeurPour");
    Find(driver, to.QuelValeurSansPersonnalisationPour, "_Z34QuelValeurSansPersonnalisationPouri");
    Find(driver, to.ConvertirSeuilSynchroPour, "ConvertirSeuilSynchroPour");
    Find(driver, to.ConvertirPour, "ConvertirPour");
    Find(driver, to.Convertir2BitPour, "Convertir2BitPour");
    Find(driver, to.QuelBitCodagePour, "QuelBitCodagePour");
    Find(driver, to.QuelNbDecimalPour, "_Z17QuelNbDecimalPouri");
    Find(driver, to.QuelEtiquettePour, "QuelEtiquettePour");
}

inline void FindSettings(LoadedDriver& driver) {
    DriverExports& to = driver.Exports;
    Find(driver, to.MetAmpliPour, "MetAmpliPour");
    Find(driver, to.MetOffsetPour, "MetOffsetPour");
    Find(driver, to.MetModeSpecialPour, "MetModeSpecialPour");
    Find(driver, to.MetGrandeurPour, "MetGrandeurPour");
    Find(driver, to.MetUnitPour, "MetUnitPour");
    Find(driver, to.MetFonctionPour, "MetFonctionPour");
    Find(driver, to.MetCalibrePour, "MetCalibrePour");
    Find(driver, to.DebutCalibrationPour, "DebutCalibrationPour");
    Find(driver, to.AbandonCalibrationPour, "AbandonCalibrationPour");
    Find(driver, to.ParDefautCalibrationPour, "ParDefautCalibrationPour");
    Find(driver, to.MetCalibrationValuePour, "MetCalibrationValuePour");
}

inline void FindAdjustments(LoadedDriver& driver) {
    DriverExports& to = driver.Exports;
    Find(driver, to.MetReglagePour, "MetReglagePour");
    Find(driver, to.PresetAdaptateurPour, "PresetAdaptateurPour");
    Find(driver, to.QuelReglagePour, "QuelReglagePour");
    Find(driver, to.QuelLibelleReglagePour, "QuelLibelleReglagePour");
    Find(driver, to.QuelValeurReglagePour, "QuelValeurReglagePour");
    Find(driver, to.QuelStatusPour, "QuelStatusPour");
    Find(driver, to.QuelValeurStatusPour, "QuelValeurStatusPour");
}

inline void FindImages(LoadedDriver& driver) {
    DriverExports& to = driver.Exports;
    Find(driver, to.QuelBitmapPour, "QuelBitmapPour");
    Find(driver, to.QuelImageReglagePour, "QuelImageReglagePour");
}

inline void FindAcquisition(LoadedDriver& driver) {
    DriverExports& to = driver.Exports;
    Find(driver, to.InitAcqBuff, "InitAcqBuff");
    Find(driver, to.StartAcqBuff, "StartAcqBuff");
    Find(driver, to.StopAcqBuff, "StopAcqBuff");
    Find(driver, to.TestNombreDePointAcqui, "TestNombreDePointAcqui");
    Find(driver, to.TestFinAcq, "TestFinAcq");
    Find(driver, to.RecuperationPoint, "RecuperationPoint");
    Find(driver, to.RecuperationVolume, "RecuperationVolume");
    Find(driver, to.AccesPointModeBuff, "AccesPointModeBuff");
}

inline void FindOutput(LoadedDriver& driver) {
    DriverExports& to = driver.Exports;
    Find(driver, to.KiroDACDisponible, "KiroDACDisponible");
    Find(driver, to.KiroDACIsGereBoucle, "KiroDACIsGereBoucle");
    Find(driver, to.KiroDACParam, "KiroDACParam");
    Find(driver, to.KiroDACEcrire, "KiroDACEcrire");
    Find(driver, to.KiroDACEcrireNum, "KiroDACEcrireNum");
    Find(driver, to.KiroDACCreneau, "KiroDACCreneau");
    Find(driver, to.KiroDACSinus, "KiroDACSinus");
    Find(driver, to.KiroDACTriangle, "KiroDACTriangle");
    Find(driver, to.KiroDACGenerer, "KiroDACGenerer");
}

inline void FindGates(LoadedDriver& driver) {
    DriverExports& to = driver.Exports;
    Find(driver, to.GetNombreDeFourcheMaxPortimetre, "GetNombreDeFourcheMaxPortimetre");
    Find(driver, to.GetEtatFourchePortimetre, "GetEtatFourchePortimetre");
    Find(driver, to.IsPorteClosedPortimetre, "IsPorteClosedPortimetre");
    Find(driver, to.StartAcquisitionPortimetre, "StartAcquisitionPortimetre");
    Find(driver, to.TestEndOfLogPortimetre, "TestEndOfLogPortimetre");
    Find(driver, to.GetTimeRayPortimetre, "GetTimeRayPortimetre");
    Find(driver, to.SetCalibrePortimetre, "SetCalibrePortimetre");
}

inline void FindSpirometer(LoadedDriver& driver) {
    DriverExports& to = driver.Exports;
    Find(driver, to.DetecteTurbineSpiro, "DetecteTurbineSpiro");
    Find(driver, to.GetCodeAdaptSpiro, "GetCodeAdaptSpiro");
    Find(driver, to.SensTurbineSpiro, "SensTurbineSpiro");
    Find(driver, to.DoMesureSpiro, "DoMesureSpiro");
    Find(driver, to.LectureDonneesSpiro, "LectureDonneesSpiro");
    Find(driver, to.InitTurbineSpiro, "InitTurbineSpiro");
    Find(driver, to.StartThreadSpiro, "StartThreadSpiro");
    Find(driver, to.StopThreadSpiro, "StopThreadSpiro");
}

inline void FindRadio(LoadedDriver& driver) {
    DriverExports& to = driver.Exports;
    Find(driver, to.StartO150, "_Z9StartO150v");
    Find(driver, to.StopO150, "_Z8StopO150v");
    Find(driver, to.DeviceCb, "_Z8DeviceCbh16tRadioDeviceTypeb");
    Find(driver, to.AcceptDeviceO150, "_Z16AcceptDeviceO150i");
    Find(driver, to.GetNbPodConnectedO150, "_Z21GetNbPodConnectedO150v");
    Find(driver, to.GetRadioDeviceO150, "_Z18GetRadioDeviceO150i");
    Find(driver, to.GetCanalReelO150, "_Z16GetCanalReelO150v");
    Find(driver, to.RadioPingDeviceO150, "_Z19RadioPingDeviceO150h");
    Find(driver, to.RadioSetConfigO150, "_Z18RadioSetConfigO15016tRadioDeviceTypehc");
    Find(driver, to.RadioSetConfigNoneO150, "_Z22RadioSetConfigNoneO150v");
    Find(driver, to.RadioSetConfigPilotO150, "_Z23RadioSetConfigPilotO150v");
    Find(driver, to.RadioSetModeO150, "_Z16RadioSetModeO15010tRadioMode");
}

} // namespace driver_loader

/// Opens a driver library and finds its exports. Look at Library first, then at Missing. The host
/// has made its application object and loaded its message catalogue before.
inline LoadedDriver LoadDriver(const char* path) {
    LoadedDriver driver;
    driver.Library = dlopen(path, RTLD_NOW | RTLD_LOCAL);
    if (driver.Library == nullptr) {
        driver.Error = dlerror();
        return driver;
    }
    driver_loader::FindLifecycle(driver);
    driver_loader::FindChannelNamesAndFields(driver);
    driver_loader::FindChannelReadings(driver);
    driver_loader::FindSettings(driver);
    driver_loader::FindAdjustments(driver);
    driver_loader::FindImages(driver);
    driver_loader::FindAcquisition(driver);
    driver_loader::FindOutput(driver);
    driver_loader::FindGates(driver);
    driver_loader::FindSpirometer(driver);
    driver_loader::FindRadio(driver);
    return driver;
}

/// Unloads the driver; its exports are null afterwards. StopDll goes before.
inline void UnloadDriver(LoadedDriver& driver) {
    if (driver.Library != nullptr) {
        dlclose(driver.Library);
    }
    driver = LoadedDriver{};
}
