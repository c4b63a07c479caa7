#pragma once

/// \file
/// The names of the channels in the host's language.

#include "channels/tvl_voie_orvane.h"

#include <wx/string.h>

namespace orvane {

/// The name of a channel: the console's own in "fr" and, with two exceptions, in "en"; in every
/// other language the translation that the host's catalogue had when the library was loaded. A
/// channel without a translation has the console's own name.
wxString NomDeVoie(const TvlVoieOrvane& voie, const wxString& langue);

} // namespace orvane
