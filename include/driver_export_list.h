/// \file
/// Every export of the driver library, by family. A file that needs something for each export
/// defines ORVANE_EXPORT_ENTRY(name, symbol) for it and includes this one, as driver_loader.h does.
/// The build generates the library's list of exported symbols from the lines below.

// No #pragma once: a file may include it several times.
#define ORVANE_PLAIN(name) ORVANE_EXPORT_ENTRY(name, #name)
#define ORVANE_DECORATED(name, symbol) ORVANE_EXPORT_ENTRY(name, symbol)

// Start, stop, identity
ORVANE_PLAIN(StartDll)
ORVANE_PLAIN(StopDll)
ORVANE_PLAIN(ShutdownConsole)
ORVANE_PLAIN(GetBuilderName)
ORVANE_PLAIN(GetInterfaceName)
ORVANE_PLAIN(GetMinPas)
ORVANE_PLAIN(GetMinInTime)
ORVANE_PLAIN(GetInResolution)
ORVANE_PLAIN(GetOutResolution)
ORVANE_PLAIN(GetOutValMax)
ORVANE_PLAIN(GetOutValMin)
ORVANE_PLAIN(GetMaxDtInBuffMode)
ORVANE_PLAIN(GetNbPointPreSynchro)
ORVANE_PLAIN(GetParameter)
ORVANE_PLAIN(SetFunction)
ORVANE_PLAIN(GetTimeResolu)
ORVANE_DECORATED(GetSerialNumber, "_Z15GetSerialNumberv")
ORVANE_DECORATED(GetConsoleType, "_Z14GetConsoleTypev")
ORVANE_DECORATED(GetEtablissementNumber, "_Z22GetEtablissementNumberv")
ORVANE_DECORATED(GetInfoPerso1, "_Z13GetInfoPerso1v")
ORVANE_DECORATED(GetInfoPerso2, "_Z13GetInfoPerso2v")

// Adapter changes
ORVANE_PLAIN(VerifCanaux)
ORVANE_DECORATED(GetEtatVerifCanaux, "_Z18GetEtatVerifCanauxv")

// Channels
ORVANE_PLAIN(CombienDeCanauxEnEntree)
ORVANE_PLAIN(CombienDeCanauxEnSortie)
ORVANE_PLAIN(CombienDeCanauxDeSynchro)
ORVANE_PLAIN(QuelNomPour)
ORVANE_PLAIN(QuelNomPourSynchro)
ORVANE_PLAIN(QuelNomPourFonction)
ORVANE_PLAIN(QuelNomPourCalibre)
ORVANE_PLAIN(QuelVoiePhysiquePour)
ORVANE_PLAIN(QuelReferencePour)
ORVANE_PLAIN(QuelCodePour)
ORVANE_PLAIN(IsSynchroExternePour)
ORVANE_PLAIN(CombienDeFonctionPour)
ORVANE_PLAIN(QuelFonctionPour)
ORVANE_PLAIN(QuelDefaultPeriodSecPour)
ORVANE_PLAIN(QuelTempsMinPour)
ORVANE_PLAIN(CombienDeCalibrePour)
ORVANE_PLAIN(QuelCalibrePour)
ORVANE_PLAIN(QuelGrandeurPour)
ORVANE_PLAIN(QuelUnitePour)
ORVANE_PLAIN(QuelMinPour)
ORVANE_PLAIN(QuelMaxPour)
ORVANE_PLAIN(QuelMinPourCalibrePour)
ORVANE_PLAIN(QuelMaxPourCalibrePour)
ORVANE_PLAIN(QuelValeurPour)
ORVANE_PLAIN(ConvertirSeuilSynchroPour)
ORVANE_PLAIN(ConvertirPour)
ORVANE_PLAIN(Convertir2BitPour)
ORVANE_PLAIN(QuelBitCodagePour)
ORVANE_PLAIN(QuelEtiquettePour)
ORVANE_DECORATED(QuelCanalPour, "_Z13QuelCanalPouri")
ORVANE_DECORATED(QuelValeurSansPersonnalisationPour, "_Z34QuelValeurSansPersonnalisationPouri")
ORVANE_DECORATED(QuelNbDecimalPour, "_Z17QuelNbDecimalPouri")

// Settings
ORVANE_PLAIN(MetAmpliPour)
ORVANE_PLAIN(MetOffsetPour)
ORVANE_PLAIN(MetModeSpecialPour)
ORVANE_PLAIN(MetGrandeurPour)
ORVANE_PLAIN(MetUnitPour)
ORVANE_PLAIN(MetFonctionPour)
ORVANE_PLAIN(MetCalibrePour)
ORVANE_PLAIN(DebutCalibrationPour)
ORVANE_PLAIN(AbandonCalibrationPour)
ORVANE_PLAIN(ParDefautCalibrationPour)
ORVANE_PLAIN(MetCalibrationValuePour)

// Adjustments
ORVANE_PLAIN(MetReglagePour)
ORVANE_PLAIN(PresetAdaptateurPour)
ORVANE_PLAIN(QuelReglagePour)
ORVANE_PLAIN(QuelLibelleReglagePour)
ORVANE_PLAIN(QuelValeurReglagePour)
ORVANE_PLAIN(QuelStatusPour)
ORVANE_PLAIN(QuelValeurStatusPour)

// Images
ORVANE_PLAIN(QuelBitmapPour)
ORVANE_PLAIN(QuelImageReglagePour)

// Buffered acquisition
ORVANE_PLAIN(InitAcqBuff)
ORVANE_PLAIN(StartAcqBuff)
ORVANE_PLAIN(StopAcqBuff)
ORVANE_PLAIN(TestNombreDePointAcqui)
ORVANE_PLAIN(TestFinAcq)
ORVANE_PLAIN(RecuperationPoint)
ORVANE_PLAIN(RecuperationVolume)
ORVANE_PLAIN(AccesPointModeBuff)

// Analog output
ORVANE_PLAIN(KiroDACDisponible)
ORVANE_PLAIN(KiroDACIsGereBoucle)
ORVANE_PLAIN(KiroDACParam)
ORVANE_PLAIN(KiroDACEcrire)
ORVANE_PLAIN(KiroDACEcrireNum)
ORVANE_PLAIN(KiroDACCreneau)
ORVANE_PLAIN(KiroDACSinus)
ORVANE_PLAIN(KiroDACTriangle)
ORVANE_PLAIN(KiroDACGenerer)

// Gate timing
ORVANE_PLAIN(GetNombreDeFourcheMaxPortimetre)
ORVANE_PLAIN(GetEtatFourchePortimetre)
ORVANE_PLAIN(IsPorteClosedPortimetre)
ORVANE_PLAIN(StartAcquisitionPortimetre)
ORVANE_PLAIN(TestEndOfLogPortimetre)
ORVANE_PLAIN(GetTimeRayPortimetre)
ORVANE_PLAIN(SetCalibrePortimetre)

// Spirometer
ORVANE_PLAIN(DetecteTurbineSpiro)
ORVANE_PLAIN(GetCodeAdaptSpiro)
ORVANE_PLAIN(SensTurbineSpiro)
ORVANE_PLAIN(DoMesureSpiro)
ORVANE_PLAIN(LectureDonneesSpiro)
ORVANE_PLAIN(InitTurbineSpiro)
ORVANE_PLAIN(StartThreadSpiro)
ORVANE_PLAIN(StopThreadSpiro)

// Radio network
ORVANE_DECORATED(StartO150, "_Z9StartO150v")
ORVANE_DECORATED(StopO150, "_Z8StopO150v")
ORVANE_DECORATED(DeviceCb, "_Z8DeviceCbh16tRadioDeviceTypeb")
ORVANE_DECORATED(AcceptDeviceO150, "_Z16AcceptDeviceO150i")
ORVANE_DECORATED(GetNbPodConnectedO150, "_Z21GetNbPodConnectedO150v")
ORVANE_DECORATED(GetRadioDeviceO150, "_Z18GetRadioDeviceO150i")
ORVANE_DECORATED(GetCanalReelO150, "_Z16GetCanalReelO150v")
ORVANE_DECORATED(RadioPingDeviceO150, "_Z19RadioPingDeviceO150h")
ORVANE_DECORATED(RadioSetConfigO150, "_Z18RadioSetConfigO15016tRadioDeviceTypehc")
ORVANE_DECORATED(RadioSetConfigNoneO150, "_Z22RadioSetConfigNoneO150v")
ORVANE_DECORATED(RadioSetConfigPilotO150, "_Z23RadioSetConfigPilotO150v")
ORVANE_DECORATED(RadioSetModeO150, "_Z16RadioSetModeO15010tRadioMode")

#undef ORVANE_PLAIN
#undef ORVANE_DECORATED
#undef ORVANE_EXPORT_ENTRY
