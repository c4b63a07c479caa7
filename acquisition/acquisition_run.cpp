// Starts a prepared acquisition, follows it, and hands out its samples.

#include "acquisition/acquisition_state.h"
#include "acquisition/sample_fetch.h"
#include "acquisition_exports.h"
#include "channels/adapter_map.h"
#include "channels/channel_lists.h"
#include "console/console_port.h"
#include "platform/clock.h"

#include <wx/log.h>

#include <algorithm>
#include <limits>

namespace orvane {

namespace {

constexpr unsigned long firstWaitMs = 200;
constexpr unsigned long waitStepMs = 50;
constexpr unsigned long lastWaitBeforeMs = 3500;

/// Programs the trigger on an input channel of the console.
void ProgramTrigger(const TvlVoieOrvane& voie, uint8_t synchroEdge, double seuil) {
    // The console takes the threshold in single precision.
    const auto level =
        static_cast<float>(voie.ModeSpecial != 0 ? voie.ConvertirInverse(seuil) : seuil);
    uint8_t synchroId = 0;
    OVAutoConfigSynchro(voie.Connecteur, voie.Canal, synchroEdge ^ 1, 0, level, &synchroId);
    OVAutoEnableSynchro(synchroId);
    OVAutoSetPreSynchro(synchroId, Acquisition.NbPointPreSynchroUsed);
}

/// Starts the console and retries after growing waits. A final failure is not reported; a developer
/// sees the attempts when the host's environment has WXTRACE=orvane.
void StartWithRetries() {
    unsigned long waited = 0;
    unsigned long wait = firstWaitMs;
    while (!OVAutoStart()) {
        wxLogTrace("orvane", "!!!!!!!! Erreur OVAutoStart   dt = %i   NbVoie =%i!!!!!!",
                   static_cast<int>(Acquisition.dt), static_cast<int>(AcqChannels.size()));
        if (waited >= lastWaitBeforeMs) {
            return;
        }
        platform::Pause(wait);
        waited += wait;
        wait += waitStepMs;
    }
}

/// Samples per channel so far, pre-trigger samples included. All channels advance together, so the
/// count of the last one is that of all.
uint32_t ConsoleSampleCount() {
    const TvlVoieOrvane& last = *AcqChannels.back();
    uint32_t count = 0;
    OVAutoGetPointCount(last.Connecteur, last.Canal, 0, &count);
    return count;
}

void FetchSamples() {
    const std::size_t channels = std::min(AcqChannels.size(), Acquisition.AcqBuffers.size());
    for (std::size_t position = 0; position < channels; ++position) {
        FetchSamples(*AcqChannels[position],
                     {Acquisition.AcqBuffers[position].get(), Acquisition.AcqBufferPoints});
    }
    Acquisition.AcqBuffersFilled = channels != 0;
}

/// A run that was stopped early has no samples: it must not show those of an earlier run.
void ClearSamples() {
    if (Acquisition.AcqBuffersFilled) {
        for (const auto& buffer : Acquisition.AcqBuffers) {
            std::fill_n(buffer.get(), Acquisition.AcqBufferPoints, 0.0);
        }
        Acquisition.AcqBuffersFilled = false;
    }
}

/// Points acquired on all channels, without pre-trigger points.
int64_t PointsAcquired() {
    if (AcqChannels.empty()) {
        return 0;
    }
    int64_t points = Acquisition.NbPoint;
    if (CanauxVerifies) {
        points =
            std::max(int64_t{ConsoleSampleCount()} - Acquisition.NbPointPreSynchroUsed, int64_t{0});
    }
    return points * static_cast<int64_t>(AcqChannels.size());
}

} // namespace

} // namespace orvane

using namespace orvane;

void StartAcqBuff(uint8_t synchroUsed, uint8_t synchroEdge, double seuil, int32_t voie) {
    Acquisition.AcqSynchroChanged = synchroUsed != Acquisition.LastSynchroUsed;
    const bool sameTrigger = synchroUsed == Acquisition.LastSynchroUsed &&
                             synchroEdge == Acquisition.LastSynchroEdge &&
                             voie == Acquisition.LastSynchroVoie &&
                             seuil == Acquisition.LastSynchroSeuil && !SetupIsDirty();
    if (!sameTrigger) {
        Acquisition.LastSynchroUsed = synchroUsed;
        Acquisition.LastSynchroEdge = synchroEdge;
        Acquisition.LastSynchroVoie = voie;
        Acquisition.LastSynchroSeuil = seuil;
        const TvlVoieOrvane* source = ChannelAt(InputChannels, voie);
        if (synchroUsed != 0 && source != nullptr) {
            ProgramTrigger(*source, synchroEdge, seuil);
        }
        Acquisition.AcqSetupDirty = false;
        Acquisition.EtatVerifCanauxVu = EtatVerifCanaux;
    }
    Acquisition.AcqRunning = true;
    StartWithRetries();
}

int32_t TestNombreDePointAcqui() {
    constexpr int64_t least = std::numeric_limits<int32_t>::min();
    constexpr int64_t most = std::numeric_limits<int32_t>::max();
    return static_cast<int32_t>(std::clamp(PointsAcquired(), least, most));
}

bool TestFinAcq() {
    return PointsAcquired() >= static_cast<int64_t>(AcqChannels.size()) * Acquisition.NbPoint;
}

void StopAcqBuff() {
    if (!AcqChannels.empty()) {
        if (ConsoleSampleCount() >= Acquisition.AcqBufferPoints) {
            FetchSamples();
        } else if (Acquisition.AcqRunning) {
            ClearSamples(); // A repeated stop leaves them.
        }
    }
    OVAutoStop();
    OVAutoClear();
    Acquisition.AcqRunning = false;
}

double RecuperationPoint(int32_t voie, uint32_t point) {
    if (!CanauxVerifies) {
        return 0.0;
    }
    const uint32_t sample = point + Acquisition.NbPointPreSynchroUsed;
    if (Acquisition.AcqRunning) {
        const TvlVoieOrvane* channel = ChannelAt(AcqChannels, voie);
        return channel == nullptr ? 0.0 : orvane::FetchSample(*channel, sample);
    }
    const bool held = voie >= 0 && static_cast<std::size_t>(voie) < Acquisition.AcqBuffers.size() &&
                      sample < Acquisition.AcqBufferPoints;
    return held ? Acquisition.AcqBuffers[static_cast<std::size_t>(voie)][sample] : 0.0;
}

double RecuperationVolume() {
    return 0.0;
}

bool AccesPointModeBuff() {
    return true;
}
