#pragma once

/// \file
/// The names of the channels in the host's language.

#include "channels/tvl_voie_orvane.h"

#include <wx/string.h>

namespace orvane {

/// The name of a channel: the console's own in "fr", that with two exceptions in "en", and in every
/// other language the text of the table of translations, as the host's catalogue had it when the
/// library was loaded. Without a row in the table it is the console's own.
wxString NomDeVoie(const TvlVoieOrvane& voie, const wxString& langue);

} // namespace orvane
