#pragma once

/// \file
/// From the bytes that a console gives to a picture of the toolkit.

#include "images/image_checks.h"

#include <wx/image.h>

#include <string_view>

namespace orvane {

/// The first picture of a file's bytes. No image where they hold none that is safe to decode, where
/// the host has no handler for the format, and for an unknown format.
/// \param type begins with "png", "bmp" or "gif"
wxImage DecodeImage(ImageBytes file, std::string_view type);

} // namespace orvane
