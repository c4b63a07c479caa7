#pragma once

/// \file
/// The state of the spirometer. "Host" is the host's thread in the exports, "worker" the spirometer
/// thread, "section" the critical section that the host gave it.

#include "spiro/spiro_thread.h"
#include "spiro_exports.h"

#include <atomic>
#include <cstdint>
#include <memory>
#include <mutex>

namespace orvane {

inline constexpr tSpiroData ClearedSpiroData{0, -1, 0, 0, {}};

struct SpiroState {
    // The last detection: written by host and worker, inside the section
    std::atomic<int32_t> SpiroCode{-1}; ///< Reference of the turbine; -1: none. Read anywhere.
    int32_t SpiroNbVoies = 0;           ///< Input channels. Read inside the section.
    int32_t SpiroVoie = 0;              ///< Input channel of the turbine; -1: none. Read inside.

    // The steps
    std::atomic<int32_t> SpiroConnecteur{0}; ///< Connector the worker found; written by the worker.
    std::atomic<int32_t> SpiroSens{0};       ///< Direction of the last flow; written by the worker.
    std::atomic<bool> SpiroMesure{false};    ///< The host wants samples; written by the host.
    double SpiroDernierTemps = 0.0;          ///< Time of the last step, us; the worker's alone.

    std::mutex DonneesLock; ///< Guards SpiroDonnees, which both threads use.
    tSpiroData SpiroDonnees = ClearedSpiroData;

    std::unique_ptr<TvlSpiroThreadOrvane> SpiroThread; ///< Null: no thread. The host's alone.
};

inline SpiroState Spiro;

} // namespace orvane
