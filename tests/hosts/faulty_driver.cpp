// The driver over the virtual console with faults that a host has to live with or to find: its
// adapters change in the middle of a run, and ORVANE_FAULT names one of the faults below.

#include "driver_exports.h"

#include <dlfcn.h>

#include <cmath>
#include <cstdlib>
#include <string_view>

namespace {

/// The export of the same name in the library behind this one.
template <class Function> Function Behind(Function /*kind*/, const char* name) {
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

bool Faulty(std::string_view name) {
    const char* fault = std::getenv("ORVANE_FAULT");
    return fault != nullptr && fault == name;
}

} // namespace

bool StartDll(uint32_t reserved, const wxString& contexte, const wxString& langue,
              int32_t dacParam) {
    return !Faulty("start") && Behind(&StartDll, "StartDll")(reserved, contexte, langue, dacParam);
}

bool VerifCanaux() {
    static int calls = 0;
    return Behind(&VerifCanaux, "VerifCanaux")() && ++calls != 20;
}

wxString QuelUnitePour(int index) {
    const wxString unit = Behind(&QuelUnitePour, "QuelUnitePour")(index);
    return Faulty("unit") && unit == "V" ? unit + "\n" : unit;
}

int CombienDeCalibrePour(int index) {
    const int count = Behind(&CombienDeCalibrePour, "CombienDeCalibrePour")(index);
    return Faulty("outside") && index < 0 ? 1 : count;
}

double QuelMaxPour(int index) {
    return Faulty("infinite") ? INFINITY : Behind(&QuelMaxPour, "QuelMaxPour")(index);
}

void MetCalibrePour(int index, int calibre) {
    if (!Faulty("calibre")) {
        Behind(&MetCalibrePour, "MetCalibrePour")(index, calibre);
    }
}

void MetOffsetPour(int index, double offset) {
    Behind(&MetOffsetPour, "MetOffsetPour")(index, Faulty("scale") ? -offset : offset);
}

double GetTimeResolu() {
    return Behind(&GetTimeResolu, "GetTimeResolu")() * (Faulty("clock") ? 2.0 : 1.0);
}

double InitAcqBuff(double dtSec, int32_t nbPoint, uint32_t voieMask, uint8_t preSynchro) {
    return Behind(&InitAcqBuff, "InitAcqBuff")(dtSec, nbPoint, voieMask, preSynchro) *
           (Faulty("period") ? 1.5 : 1.0);
}

int32_t TestNombreDePointAcqui() {
    const int32_t count = Behind(&TestNombreDePointAcqui, "TestNombreDePointAcqui")();
    return Faulty("count") && count == 200 ? 201 : count;
}

double RecuperationPoint(int32_t voie, uint32_t point) {
    const double sample = Behind(&RecuperationPoint, "RecuperationPoint")(voie, point);
    return Faulty("beyond") && point == 100 ? 1.0 : sample;
}

int32_t GetEtatFourchePortimetre(int32_t gate) {
    return Faulty("gates") ? 2
                           : Behind(&GetEtatFourchePortimetre, "GetEtatFourchePortimetre")(gate);
}
