#pragma once

#include "hosts/plot/chart.h"

#include <wx/bitmap.h>

class wxImageList;
class wxWindow;

namespace orvane {

/// A stroke as a curve has it, on the ground of charts.
wxBitmap Swatch(const wxWindow& window, ChartInk ink, Dash line);

/// Strokes for the rows of a list, which takes them.
wxImageList* SwatchList(const wxWindow& window, size_t count, Dash (*lineOf)(size_t number));

} // namespace orvane
