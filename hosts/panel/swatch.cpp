#include "hosts/panel/swatch.h"

#include "hosts/panel/theme.h"

#include <wx/dcmemory.h>
#include <wx/imaglist.h>
#include <wx/window.h>

#include <array>

namespace orvane {

wxBitmap Swatch(const wxWindow& window, ChartInk ink, Dash line) {
    constexpr std::array styles{wxPENSTYLE_SOLID, wxPENSTYLE_SHORT_DASH, wxPENSTYLE_DOT};
    const ChartColours& colours = WindowColours();
    const Colour colour =
        ink.Curve == ChartInk::Mark ? colours.Mark : colours.Curves[CurveColourOf(ink.Curve)];
    const wxSize size = window.FromDIP(wxSize(20, 14));
    wxBitmap bitmap(size);
    wxMemoryDC dc(bitmap);
    dc.SetBackground(ToColour(colours.Ground));
    dc.Clear();
    dc.SetPen(wxPen(ToColour(colour), window.FromDIP(3), styles.at(static_cast<size_t>(line))));
    dc.DrawLine(window.FromDIP(2), size.y / 2, size.x - window.FromDIP(2), size.y / 2);
    return bitmap;
}

wxImageList* SwatchList(const wxWindow& window, size_t count, Dash (*lineOf)(size_t number)) {
    const wxSize size = window.FromDIP(wxSize(20, 14));
    auto* swatches = new wxImageList(size.x, size.y, false); // NOLINT: its list takes it
    for (size_t number = 0; number < count; ++number) {
        swatches->Add(Swatch(window, {number}, lineOf(number)));
    }
    return swatches;
}

} // namespace orvane
