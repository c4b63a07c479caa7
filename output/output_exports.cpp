// Values and signals for the analog outputs of the console.

#include "output_exports.h"

#include "channels/channel_lists.h"
#include "connection/connection_state.h"
#include "connection/console_models.h"
#include "console/console_port.h"
#include "output/signal_computation.h"
#include "platform/number_conversion.h"

#include <cmath>
#include <memory>

namespace orvane {

namespace {

constexpr uint8_t consoleConnector = 0;
constexpr int32_t middleCode = 2048;

/// The output, if it is one of the console itself; no other is written to.
const TvlVoieOrvane* ConsoleOutput(int32_t voie) {
    const TvlVoieOrvane* sortie = ChannelAt(OutputChannels, voie);
    return sortie != nullptr && sortie->Connecteur == consoleConnector ? sortie : nullptr;
}

/// Sends samples to the console and plays them instead of the current signal.
void KiroDACEnvoyer(int32_t voie, double frequence, const double* valeurs, int32_t nbPoint,
                    uint8_t boucle) {
    const TvlVoieOrvane* sortie = ConsoleOutput(voie);
    if (sortie == nullptr) {
        return;
    }
    const uint8_t canal = sortie->Canal;
    OVDacStop(consoleConnector, canal);
    OVDacClear(consoleConnector, canal);
    const uint32_t dtNs = ToUint32(((1.0 / frequence) / nbPoint) * 1e9);
    OVDacConfig(consoleConnector, canal, dtNs, nbPoint, boucle ^ 1);
    OVDacLoad(consoleConnector, canal, valeurs, nbPoint);
    OVDacStart(consoleConnector, canal);
}

bool PlaySignal(int32_t voie, FillPeriod fill, double amplitude, double offset, double frequence,
                uint8_t boucle) {
    const TvlVoieOrvane* sortie = ChannelAt(OutputChannels, voie);
    if (sortie == nullptr) {
        return false;
    }
    const auto nbPoint = PointsPerPeriod(frequence, sortie->Desc.TempsMinNs);
    if (!nbPoint) {
        return false;
    }
    const auto size = static_cast<std::size_t>(*nbPoint);
    const auto valeurs = std::make_unique_for_overwrite<double[]>(size);
    fill({valeurs.get(), size}, amplitude, offset, TraitsOf(Connection.ConsoleModel).Output);
    KiroDACEnvoyer(voie, frequence, valeurs.get(), *nbPoint, boucle);
    return true;
}

} // namespace

} // namespace orvane

using namespace orvane;

bool KiroDACDisponible(int32_t voie) {
    return TraitsOf(Connection.ConsoleModel).Generator &&
           ChannelAt(OutputChannels, voie) != nullptr;
}

bool KiroDACIsGereBoucle() {
    return true;
}

void KiroDACParam(int32_t /*voie*/, double* paramA, double* paramB, double* paramC) {
    const auto tell = [](double* param, double value) {
        if (param != nullptr) {
            *param = value;
        }
    };
    const ModelTraits& model = TraitsOf(Connection.ConsoleModel);
    tell(paramA, model.KiroParamA);
    tell(paramB, 1.0);
    tell(paramC, Connection.DacParam > 0 ? Connection.DacParam : model.GeneratorFrequency);
}

void KiroDACEcrire(int32_t voie, double valeur) {
    if (const TvlVoieOrvane* sortie = ConsoleOutput(voie); sortie != nullptr) {
        OVDacWrite(consoleConnector, sortie->Canal, valeur);
    }
}

void KiroDACEcrireNum(int32_t voie, int32_t code) {
    const TvlVoieOrvane* sortie = ConsoleOutput(voie);
    if (sortie == nullptr || code != middleCode) {
        return;
    }
    const uint8_t canal = sortie->Canal;
    OVDacStop(consoleConnector, canal);
    OVDacClear(consoleConnector, canal);
    OVDacWrite(consoleConnector, canal, 0.0);
}

bool KiroDACCreneau(int32_t voie, double amplitude, double offset, double frequence,
                    uint8_t boucle) {
    return PlaySignal(voie, FillSquare, amplitude, offset, frequence, boucle);
}

bool KiroDACSinus(int32_t voie, double amplitude, double offset, double frequence, uint8_t boucle) {
    return PlaySignal(voie, FillSine, amplitude, offset, frequence, boucle);
}

bool KiroDACTriangle(int32_t voie, double amplitude, double offset, double frequence,
                     uint8_t boucle) {
    return PlaySignal(voie, FillTriangle, amplitude, offset, frequence, boucle);
}

bool KiroDACGenerer(int32_t voie, int32_t nbPoint, const int32_t* codes, double dtNs,
                    uint8_t boucle) {
    if (ChannelAt(OutputChannels, voie) == nullptr || nbPoint <= 0 || codes == nullptr) {
        return false;
    }
    const double frequence = 1.0 / (nbPoint * dtNs / 1e9);
    if (!std::isfinite(frequence) || frequence <= 0.0) {
        return false;
    }
    const auto size = static_cast<std::size_t>(nbPoint);
    const auto valeurs = std::make_unique_for_overwrite<double[]>(size);
    FillFromCodes({valeurs.get(), size}, codes, TraitsOf(Connection.ConsoleModel).Output);
    KiroDACEnvoyer(voie, frequence, valeurs.get(), nbPoint, boucle);
    return true;
}
