#include "spiro/turbine.h"

#include "channel_exports.h"
#include "channels/channel_lists.h"
#include "channels/reference_numbers.h"
#include "platform/clock.h"
#include "spiro/spiro_state.h"
#include "spiro/volume_step.h"

#include <algorithm>

using namespace orvane;

int32_t DetecteTurbineSpiro(int32_t* index) {
    const int32_t count = CombienDeCanauxEnEntree();
    int32_t connecteur = 0;
    int32_t found = -1;
    for (int32_t i = 0; i < count; ++i) {
        if (QuelReferencePour(i) == ReferenceTurbine) {
            found = i;
            connecteur = QuelVoiePhysiquePour(i);
        }
    }
    Spiro.SpiroNbVoies = count;
    Spiro.SpiroVoie = found;
    Spiro.SpiroCode = found == -1 ? -1 : ReferenceTurbine;
    if (index != nullptr) {
        *index = found;
    }
    return connecteur;
}

int32_t GetCodeAdaptSpiro(int32_t connecteur) {
    int32_t code = -1;
    for (int32_t i = 0; i < Spiro.SpiroNbVoies; ++i) {
        // The list may have been rebuilt with fewer channels since the detection.
        const TvlVoieOrvane* voie = ChannelAt(InputChannels, i);
        if (voie != nullptr && voie->Connecteur == connecteur) {
            code = voie->CodeReference;
        }
    }
    return code;
}

int32_t SensTurbineSpiro() {
    return Spiro.SpiroSens;
}

void DoMesureSpiro(bool mesure) {
    Spiro.SpiroMesure = mesure;
}

bool LectureDonneesSpiro(tSpiroData* donnees) {
    if (donnees != nullptr) {
        const std::scoped_lock lock(Spiro.DonneesLock);
        *donnees = Spiro.SpiroDonnees;
    }
    return true;
}

void InitTurbineSpiro() {}

namespace orvane {

void SpiroEcrireDonnees(const tSpiroData& donnees) {
    const std::scoped_lock lock(Spiro.DonneesLock);
    Spiro.SpiroDonnees = donnees;
}

void SpiroEffacerDonnees() {
    SpiroEcrireDonnees(ClearedSpiroData);
}

void SpiroInitTemps() {
    Spiro.SpiroDernierTemps = platform::TimeInMicroseconds();
}

tSpiroSample SpiroPas() {
    const double debit = QuelValeurPour(Spiro.SpiroVoie);
    const double now = platform::TimeInMicroseconds();
    const tSpiroSample step = VolumeStep(debit, now - Spiro.SpiroDernierTemps);
    Spiro.SpiroDernierTemps = now;
    Spiro.SpiroSens = step.Sens;
    return step;
}

} // namespace orvane
