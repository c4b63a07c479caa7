#pragma once

#include "hosts/plot/chart_colours.h"

#include <wx/colour.h>

namespace orvane {

/// The colours of the charts of a window on the desktop's light or dark theme.
const ChartColours& WindowColours();

/// \name Of texts that tell an error or a warning
/// @{
wxColour ErrorColour();
wxColour WarningColour();
/// @}

inline wxColour ToColour(Colour colour, unsigned char alpha = 255) {
    return {colour.Red, colour.Green, colour.Blue, alpha};
}

} // namespace orvane
