#pragma once

/// \file
/// Adjustments of an adapter, set and queried through its measuring channels. `index` is an index
/// in the list of input channels. Any other index, an adapter without the channel in question and a
/// kind of adjustment that doesn't support the query give 0, an empty text or no action.
///
/// A measured value becomes a whole number of 32 bits: beyond them it is the nearest, and
/// not-a-number is 0. A value that the console refuses counts as 0.0.

#include "export_macro.h"

#include <wx/string.h>

#include <cstdint>

// Texts are returned by value under plain names on purpose; clang warns about that.
#ifdef __clang__
#pragma clang diagnostic push
#pragma clang diagnostic ignored "-Wreturn-type-c-linkage"
#endif

extern "C" {

/// Sets the value of the adjustment.
ORVANE_EXPORT void MetReglagePour(int index, double valeur);
/// Sets the value of the adjustment of an adapter with presets, and waits until its state is 0. The
/// value 1 doesn't wait.
/// \note Blocks for 0.1 s at least and a little over 6 s at most; an adapter that takes longer is
///       not reported.
ORVANE_EXPORT void PresetAdaptateurPour(int index, int valeur);

/// Kind of the adjustment: 101 to 103 given by the selected function, 104 to 107 by the adapter; 0
/// for none, and if the function can't be read.
ORVANE_EXPORT int QuelReglagePour(int index);
/// Label of the adjustment.
ORVANE_EXPORT wxString QuelLibelleReglagePour(int index);
/// Value of the adjustment, truncated.
ORVANE_EXPORT int QuelValeurReglagePour(int index);
/// Text of the adjustment's state, from the list that the console has; beyond the list the last.
/// \param numero takes the number of the state, rounded; may be null
ORVANE_EXPORT wxString QuelStatusPour(int index, int* numero);
/// Number of the adjustment's state, truncated.
ORVANE_EXPORT int QuelValeurStatusPour(int index);

} // extern "C"

#ifdef __clang__
#pragma clang diagnostic pop
#endif
