#pragma once

/// \file
/// Pictures of the channels. The host registers the toolkit's image handlers (png, bmp, gif) before
/// it asks; without the handler of its format a picture can't be decoded. No display is needed.
///
/// A picture is fetched and decoded at each call, so a host should keep it. If there is none, if it
/// can't be read in full, or if it claims more than 16 million pixels, the result is wxNullBitmap,
/// and nothing is shown or logged.

#include "export_macro.h"

#include <wx/dlimpexp.h>

// A host that asks for pictures includes <wx/bitmap.h>; others need no more than this.
class WXDLLIMPEXP_FWD_CORE wxBitmap;

// Pictures are returned by value under plain names on purpose; clang warns about that.
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
