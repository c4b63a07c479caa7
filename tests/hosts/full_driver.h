#pragma once

#include "driver_loader.h"

#include <cmath>
#include <cstdint>
#include <limits>

/// What a driver whose run is full from the start answers, and what it was told.
struct FullRun {
    uint32_t PreTriggerPoints = 0;
    bool Full = true;
    int32_t Samples = 0;                                  ///< So far.
    int UnchangedLooks = std::numeric_limits<int>::max(); ///< Then the adapters have changed.
    int Stops = 0;
    size_t Reads = 0;
};
inline FullRun Answers;

/// Point 3 of the second channel of a run is 1003.
inline DriverExports FullDriver() {
    Answers = {};
    DriverExports driver;
    driver.GetTimeResolu = [] { return 0.0; };
    driver.GetMinPas = [] { return 1e-4; };
    driver.GetMaxDtInBuffMode = [] { return 10.0; };
    driver.GetNbPointPreSynchro = [] { return Answers.PreTriggerPoints; };
    driver.InitAcqBuff = [](double dtSec, int32_t, uint32_t, uint8_t) {
        return std::floor(dtSec * 1e9) / 1e9;
    };
    driver.StartAcqBuff = [](uint8_t, uint8_t, double, int32_t) {};
    driver.StopAcqBuff = [] { ++Answers.Stops; };
    driver.TestFinAcq = [] { return Answers.Full; };
    driver.TestNombreDePointAcqui = [] { return Answers.Samples; };
    driver.VerifCanaux = [] { return --Answers.UnchangedLooks >= 0; };
    driver.RecuperationPoint = [](int32_t voie, uint32_t point) {
        ++Answers.Reads;
        return 1000.0 * voie + static_cast<int32_t>(point);
    };
    return driver;
}
