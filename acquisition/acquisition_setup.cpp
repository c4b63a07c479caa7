// Prepares a buffered acquisition.

#include "acquisition/acquisition_state.h"
#include "acquisition_exports.h"
#include "channels/adapter_map.h"
#include "channels/channel_lists.h"
#include "connection/connection_state.h"
#include "connection/console_models.h"
#include "console/console_port.h"
#include "platform/number_conversion.h"
#include "platform/user_message.h"

#include <new>

namespace orvane {

namespace {

constexpr double longestPeriodSec = 4.294967295;
constexpr unsigned maskBits = 32;

/// The period to request from the console, in nanoseconds.
uint32_t PeriodNs(double dtSec, int32_t model) {
    const uint32_t ns = ToUint32((dtSec > longestPeriodSec ? 1.0 : dtSec) * 1e9);
    return TraitsOf(model).WholeMicroseconds ? ns / 1000 * 1000 : ns;
}

bool RepeatsLastSetup(double dtSec, int32_t nbPoint, uint32_t voieMask, uint32_t preSynchro) {
    return Acquisition.AcqSetupHeld && !Acquisition.AcqSynchroChanged && !SetupIsDirty() &&
           dtSec == Acquisition.LastDtSec && nbPoint == Acquisition.LastNbPoint &&
           voieMask == Acquisition.LastVoieMask && preSynchro == Acquisition.NbPointPreSynchroUsed;
}

/// Copies the channels of the mask; bits beyond the list are ignored.
void CopyChannels(uint32_t voieMask) {
    Clear(AcqChannels);
    for (unsigned bit = 0; bit < maskBits && bit < InputChannels.size(); ++bit) {
        if ((voieMask >> bit & 1U) != 0) {
            const TvlVoieOrvane& voie = *InputChannels[bit];
            OVAutoAddChannel(voie.Connecteur, voie.Canal);
            Append(AcqChannels, std::make_unique<TvlVoieOrvane>(voie));
        }
    }
}

/// One buffer for each channel. Throws std::bad_alloc when there is no memory for them.
void MakeBuffers(std::size_t channels, uint32_t points) {
    ReleaseAcqBuffers();
    Acquisition.AcqBufferPoints = points;
    Acquisition.AcqBuffers.reserve(channels);
    for (std::size_t made = 0; made < channels; ++made) {
        auto buffer = platform::AllocateZeroed<double>(points);
        if (buffer == nullptr) {
            throw std::bad_alloc();
        }
        Acquisition.AcqBuffers.push_back(std::move(buffer));
    }
}

double RefuseSetup() {
    ShowUserMessage(L"Erreur OVAutoConfigAcq dt=%d   NbPoint=%d  NbPointPreSynchroUsed=%d",
                    static_cast<int>(Acquisition.dt), static_cast<int>(Acquisition.NbPoint),
                    static_cast<int>(Acquisition.NbPointPreSynchroUsed));
    Acquisition.NbPoint = 0;
    return 0.0;
}

} // namespace

bool SetupIsDirty() {
    return Acquisition.AcqSetupDirty || Acquisition.EtatVerifCanauxVu != EtatVerifCanaux;
}

void ReleaseAcqBuffers() {
    std::vector<platform::ZeroedBuffer<double>>().swap(Acquisition.AcqBuffers);
    Acquisition.AcqBuffersFilled = false;
    Acquisition.AcqSetupHeld = false;
}

} // namespace orvane

using namespace orvane;

double InitAcqBuff(double dtSec, int32_t nbPoint, uint32_t voieMask, uint8_t preSynchro) {
    const uint32_t preSynchroPoints = preSynchro != 0 ? Connection.NbPointPreSynchro : 0;
    if (RepeatsLastSetup(dtSec, nbPoint, voieMask, preSynchroPoints)) {
        return Acquisition.LastResultSec;
    }
    Acquisition.NbPointPreSynchroUsed = preSynchroPoints;
    Acquisition.AcqSetupHeld = false;
    Acquisition.AcqSetupDirty = true;
    Acquisition.LastDtSec = dtSec;
    Acquisition.LastNbPoint = nbPoint;
    Acquisition.LastVoieMask = voieMask;
    OVAutoStop();
    OVAutoClear();
    OVAutoReset();
    Acquisition.dt = PeriodNs(dtSec, Connection.ConsoleModel);
    Acquisition.NbPoint = nbPoint;
    CopyChannels(voieMask);
    const uint32_t pointsInAll = static_cast<uint32_t>(nbPoint) + preSynchroPoints;
    MakeBuffers(AcqChannels.size(), nbPoint < 0 ? 0 : pointsInAll);
    if (!OVAutoConfigAcq(Acquisition.dt, pointsInAll)) {
        return RefuseSetup();
    }
    uint32_t appliedNs = 0;
    OVAutoGetDt(&appliedNs);
    Acquisition.LastResultSec = appliedNs / 1e9;
    Acquisition.AcqSetupHeld = true;
    return Acquisition.LastResultSec;
}
