#pragma once

/// \file
/// Pictures of the channels. The host registers the toolkit's image handlers (png, bmp, gif) before
/// it asks; without the handler of its format a picture can't be had. No display is needed.
///
/// A picture is fetched and decoded at each call, so the host keeps what it gets. Where there is
/// none, or it can't be read in full, or it claims more than 16 million pixels, the result is
/// wxNullBitmap, and nothing is shown or logged.

#include "export_macro.h"

#include <wx/dlimpexp.h>

// To be complete where a picture is asked for; a host without pictures needs no more than this.
class WXDLLIMPEXP_FWD_CORE wxBitmap;

// Pictures are given by value under plain names, which clang wants to be told is meant.
#ifdef __clang__
#pragma clang diagnostic push
#pragma clang diagnostic ignored "-Wreturn-type-c-linkage"
#endif

extern "C" {

/// Picture of the channel's selected function, 32 by 32 pixels. One that is stored as bmp has a
/// mask: magenta (255, 0, 255) is transparent. Model 12336 has no pictures.
/// \param index in the list of input channels
ORVANE_EXPORT wxBitmap QuelBitmapPour(int index);
/// Picture of the state of the channel's adjustment, in its own size and without that mask. Only
/// adapters of adjustment mode 4 have one, and none on model 12336.
/// \param index in the list of input channels
ORVANE_EXPORT wxBitmap QuelImageReglagePour(int index);

} // extern "C"

#ifdef __clang__
#pragma clang diagnostic pop
#endif
