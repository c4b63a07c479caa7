#pragma once

/// \file
/// Makes a picture of the toolkit from the bytes that a console gives.

#include "images/image_checks.h"

#include <wx/image.h>

#include <string_view>

namespace orvane {

/// The first picture of a file's bytes. No image if none is safe to decode, if the host has no
/// handler for the format, or if the format is unknown.
/// \param type begins with "png", "bmp" or "gif"
wxImage DecodeImage(ImageBytes file, std::string_view type);

} // namespace orvane
