#pragma once

/// \file
/// The spirometer: finds the turbine, and measures its flow on a thread of the driver.
///
/// While the thread runs, the host enters the critical section that it gave to StartThreadSpiro
/// around every call of its own that reads or rebuilds the channels, DetecteTurbineSpiro and
/// GetCodeAdaptSpiro included. The other exports here need no lock.

#include "export_macro.h"

#include <wx/thread.h>

#include <cstddef>
#include <cstdint>

/// One step of the turbine. The volumes are those of this step alone: the host adds them up. Their
/// unit is that of the channel's value times seconds.
struct tSpiroSample {
    double VolumeNegatif; ///< Of a flow that is not positive, as a positive number; otherwise 0.
    double VolumePositif; ///< Of a positive flow; otherwise 0.
    double Debit;         ///< Magnitude of the flow; 0 if the step took no time.
    double DureeUs;       ///< Length of the step, microseconds.
    int32_t Sens;         ///< Direction of the flow: 1 or -1.
    int32_t Reserve;      ///< Always 0.
};

/// What the thread reports to the host.
struct tSpiroData {
    int32_t Connecteur;            ///< Connector of the turbine; 0: none.
    int32_t CodeAdaptateur;        ///< Reference number of the turbine; -1: none.
    int32_t NbEchantillons;        ///< Valid entries of Echantillons: 0 or 1.
    int32_t Reserve;               ///< Always 0.
    tSpiroSample Echantillons[50]; ///< Only entry 0 is ever written.
};

static_assert(offsetof(tSpiroSample, VolumeNegatif) == 0);
static_assert(offsetof(tSpiroSample, VolumePositif) == 8);
static_assert(offsetof(tSpiroSample, Debit) == 16);
static_assert(offsetof(tSpiroSample, DureeUs) == 24);
static_assert(offsetof(tSpiroSample, Sens) == 32);
static_assert(offsetof(tSpiroSample, Reserve) == 36);
static_assert(sizeof(tSpiroSample) == 40);
static_assert(offsetof(tSpiroData, Connecteur) == 0);
static_assert(offsetof(tSpiroData, CodeAdaptateur) == 4);
static_assert(offsetof(tSpiroData, NbEchantillons) == 8);
static_assert(offsetof(tSpiroData, Reserve) == 12);
static_assert(offsetof(tSpiroData, Echantillons) == 16);
static_assert(sizeof(tSpiroData) == 2016);

extern "C" {

/// Enumerates the channels and looks for the turbine among the inputs. Of several the last counts.
/// \param index takes the input channel of the turbine, -1 if there is none; may be null
/// \return connector of the turbine; 0: none
/// \note As with every enumeration, all indexes from before are invalid.
ORVANE_EXPORT int32_t DetecteTurbineSpiro(int32_t* index);

/// Reference number of the adapter on a connector, as the last detection found it; -1 if no input
/// channel was found there, and before the first detection.
ORVANE_EXPORT int32_t GetCodeAdaptSpiro(int32_t connecteur);

/// Direction of the last flow read: 1 for a positive one, otherwise -1; 0 before the first. Any
/// thread.
ORVANE_EXPORT int32_t SensTurbineSpiro();

/// Switches the measurement of the thread on or off. The first sample spans the whole time since
/// the last one before it, or since the thread began to see the turbine. Any thread.
ORVANE_EXPORT void DoMesureSpiro(bool mesure);

/// Copies the last report of the thread, which is cleared once when the turbine has been unplugged.
/// The copy is consistent, whatever the thread does meanwhile. Any thread.
/// \param donnees null: nothing is copied
/// \return true
ORVANE_EXPORT bool LectureDonneesSpiro(tSpiroData* donnees);

/// Accepts the call and does nothing.
ORVANE_EXPORT void InitTurbineSpiro();

/// Starts the thread that looks for the turbine and, while DoMesureSpiro asks for it, measures
/// every 25 ms. A thread that runs is stopped first. The turbine is looked for at the start and
/// whenever VerifCanaux has found a change.
///
/// The three objects belong to the host and must outlive the thread, which never holds two of them
/// at once.
///
/// \param mutex the one the host waits with; held during the signal only
/// \param condition signalled for each new sample
/// \param section held while the thread uses the channels
/// \return false if one of the objects is null or the toolkit is not initialised, which touches
///         nothing, if the thread that ran before has not ended within 1 s, or if there is no
///         memory; true otherwise, even if the system refused the thread
/// \note Blocks up to 1 s for a thread that runs. Unloading the library stops the thread and waits
///       for its end, and so does the end of the process.
ORVANE_EXPORT bool StartThreadSpiro(wxMutex* mutex, wxCondition* condition, int32_t reserved1,
                                    double reserved2, wxCriticalSection* section);

/// Asks the thread to end, waits for it, and clears what LectureDonneesSpiro gives.
/// \note Blocks up to 1 s, without a thread not at all. As a rule the thread ends within its
///       running pause of 25 ms, or of 100 ms while there is no turbine, also if the host holds its
///       objects.
ORVANE_EXPORT void StopThreadSpiro();

} // extern "C"
