#pragma once

/// \file
/// The state of the buffered acquisition. Written by the acquisition exports and StopDll, on the
/// host's thread.

#include "platform/zeroed_buffer.h"

#include <cstdint>
#include <vector>

namespace orvane {

struct AcquisitionState {
    // Set-up: written by InitAcqBuff
    uint32_t NbPointPreSynchroUsed = 0; ///< Pre-trigger points of the set-up.
    int32_t NbPoint = 0;                ///< Points per channel; 0 after a refused set-up.
    uint32_t dt = 0;                    ///< Period sent to the console, ns.
    uint32_t AcqBufferPoints = 0;       ///< Samples per buffer.
    double LastDtSec = 0.0;             ///< Period of the last full set-up as the host gave it.
    int32_t LastNbPoint = -1;           ///< Point count of the last full set-up.
    uint32_t LastVoieMask = 0xFFFFFFFF; ///< Mask of the last full set-up.
    double LastResultSec = 0.0;         ///< Result of the last accepted full set-up.
    bool AcqSetupHeld = false;          ///< The console has that set-up, and the buffers match it.

    /// One buffer for each channel of the run, pre-trigger samples first. Also written by
    /// StopAcqBuff, which fills or clears them, and released by StopDll.
    std::vector<platform::ZeroedBuffer<double>> AcqBuffers;
    bool AcqBuffersFilled = false; ///< They hold samples and not only zeros.

    // What makes the next set-up a full one
    bool AcqSetupDirty = true;     ///< Set by a full set-up, cleared by StartAcqBuff.
    int32_t EtatVerifCanauxVu = 0; ///< Count of adapter changes at the last StartAcqBuff.
    bool AcqSynchroChanged = true; ///< The last StartAcqBuff switched the trigger on or off.

    // Run: written by StartAcqBuff and StopAcqBuff
    bool AcqRunning = false;     ///< RecuperationPoint reads live.
    uint8_t LastSynchroUsed = 0; ///< Arguments of the last StartAcqBuff.
    uint8_t LastSynchroEdge = 0;
    int32_t LastSynchroVoie = 0;
    double LastSynchroSeuil = 0.0;
};

inline AcquisitionState Acquisition;

/// Whether something since the last start requires a full set-up: another set-up, or a change of
/// adapters that VerifCanaux has noted.
bool SetupIsDirty();

/// Releases the buffers of the samples. The next set-up is a full one.
void ReleaseAcqBuffers();

} // namespace orvane
