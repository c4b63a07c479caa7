#pragma once

/// \file
/// Queries about the channels. `index` is an index in the list of input channels, from 0 to one
/// less than what CombienDeCanauxEnEntree gave. Any other index gives 0, 0.0, false or an empty
/// text, without a call of the console.

#include "export_macro.h"

#include <wx/string.h>

#include <cstdint>

// Texts are returned by value under plain names on purpose; clang warns about that.
#ifdef __clang__
#pragma clang diagnostic push
#pragma clang diagnostic ignored "-Wreturn-type-c-linkage"
#endif

extern "C" {

/// \name Enumeration
/// @{

/// Builds the lists of input, trigger and output channels from what the console reports now. All
/// that the host set on a channel is lost, and all indexes from before are invalid.
/// \return number of input channels
/// \note No other thread may use a channel while this runs.
ORVANE_EXPORT int CombienDeCanauxEnEntree();
/// Number of analog outputs at the last enumeration.
ORVANE_EXPORT int CombienDeCanauxEnSortie();
/// Number of trigger channels at the last enumeration.
ORVANE_EXPORT int CombienDeCanauxDeSynchro();
/// @}

/// \name Names
/// @{

/// Name of the channel in the language of StartDll; empty on an unknown console model.
/// \param reserved not read
ORVANE_EXPORT wxString QuelNomPour(int index, int32_t reserved);
/// Name of a trigger channel; `index` is an index in the list of trigger channels.
ORVANE_EXPORT wxString QuelNomPourSynchro(int index);
/// Name of one of the channel's functions; empty if there is no such function.
ORVANE_EXPORT wxString QuelNomPourFonction(int index, int fonction);
/// Name of a calibre of the selected function; empty if there is no such calibre.
ORVANE_EXPORT wxString QuelNomPourCalibre(int index, int calibre);
/// @}

/// \name Fields of the channel, as the last enumeration or selection left them
/// @{

/// Connector of the channel; 0 is the console itself.
ORVANE_EXPORT int QuelVoiePhysiquePour(int index);
/// Reference number of the adapter; 999999 for a channel of the console itself.
ORVANE_EXPORT int QuelReferencePour(int index);
/// Code of the kind of adapter.
ORVANE_EXPORT int QuelCodePour(int index);
/// Whether the channel is an external trigger input.
ORVANE_EXPORT bool IsSynchroExternePour(int index);
/// Number of functions.
ORVANE_EXPORT int CombienDeFonctionPour(int index);
/// Selected function.
ORVANE_EXPORT int QuelFonctionPour(int index);
/// Default sample period, seconds.
ORVANE_EXPORT double QuelDefaultPeriodSecPour(int index);
/// Shortest sample period, seconds.
ORVANE_EXPORT double QuelTempsMinPour(int index);
/// @}

/// \name Read from the console at the call
/// @{

/// Number of calibres of the selected function; 0 if the read fails.
ORVANE_EXPORT int CombienDeCalibrePour(int index);
/// Selected calibre; 0 if the read fails.
ORVANE_EXPORT int QuelCalibrePour(int index);
/// Symbol of the quantity: the host's own in special mode, otherwise the console's.
ORVANE_EXPORT wxString QuelGrandeurPour(int index);
/// Symbol of the unit: the host's own in special mode, otherwise the console's.
ORVANE_EXPORT wxString QuelUnitePour(int index);
/// @}

/// \name Limits, in the host's scale
/// @{

/// Lower limit of the selected calibre.
ORVANE_EXPORT double QuelMinPour(int index);
/// Upper limit of the selected calibre.
ORVANE_EXPORT double QuelMaxPour(int index);
/// Lower limit of any calibre of the selected function; the limit counts as 0.0 if there is none.
ORVANE_EXPORT double QuelMinPourCalibrePour(int index, int calibre);
/// Upper limit of any calibre of the selected function; the limit counts as 0.0 if there is none.
ORVANE_EXPORT double QuelMaxPourCalibrePour(int index, int calibre);
/// @}

/// \name Values and conversions
/// @{

/// A value measured now, in the host's scale, limited to the calibre. A refused read counts as the
/// console value 0.0. Two threads may call it at once while nobody enumerates or selects.
ORVANE_EXPORT double QuelValeurPour(int index);
/// A trigger threshold in the host's scale, converted to a console value. `index` is an index in
/// the list of trigger channels.
ORVANE_EXPORT double ConvertirSeuilSynchroPour(int index, double seuil);
/// Always 0.0.
ORVANE_EXPORT double ConvertirPour(int index, int brut);
/// Always 0.
ORVANE_EXPORT int Convertir2BitPour(int index, double valeur);
/// Always 0.
ORVANE_EXPORT int QuelBitCodagePour(int index);
/// The number of the "Etiquette" line in the channel's text; -1 without such a line.
ORVANE_EXPORT int QuelEtiquettePour(int index);
/// @}

} // extern "C"

#ifdef __clang__
#pragma clang diagnostic pop
#endif

/// Channel number within the connector.
ORVANE_EXPORT int QuelCanalPour(int index);
/// A value measured now, in the console's scale, limited to the calibre. Threads as QuelValeurPour.
ORVANE_EXPORT double QuelValeurSansPersonnalisationPour(int index);
/// Number of decimals to show for the channel: 0, or -1 if the channel doesn't say.
ORVANE_EXPORT int QuelNbDecimalPour(int index);
