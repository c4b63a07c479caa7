#include "hosts/panel/tool_icons.h"

#include <wx/settings.h>

#include <array>
#include <string>
#include <string_view>

namespace orvane {

namespace {

/// On a square of 24; "fill" is filled, the rest is drawn with a line.
struct Drawing {
    std::string_view Name;
    std::string_view Lines;
    std::string_view Filled;
};

constexpr std::array drawings{
    Drawing{tool_icon::Open, "M3 19V5h6l2 3h10v11z M3 11h18", ""},
    Drawing{tool_icon::Save, "M4 4h13l3 3v13H4z M8 4v6h8V4 M7 20v-6h10v6", ""},
    Drawing{tool_icon::Run, "", "M7 4l12 8-12 8z"},
    Drawing{tool_icon::Once, "", "M5 4l10 8-10 8z M16 4h3v16h-3z"},
    Drawing{tool_icon::Stop, "", "M6 6h12v12H6z"},
    Drawing{tool_icon::Fit, "M4 9V4h5 M15 4h5v5 M20 15v5h-5 M9 20H4v-5 M9 9h6v6H9z", ""},
    Drawing{tool_icon::Cursors, "M8 3v18 M16 3v4 M16 10v4 M16 17v4 M8 12h8", ""},
    Drawing{tool_icon::Overlay, "M3 18c4 0 5-12 9-12s5 12 9 12 M3 18c4 0 5-7 9-7s5 7 9 7", ""},
    Drawing{tool_icon::XY, "M4 3v17h17 M8 15c0-6 9-12 10-8s-9 12-10 8z", ""},
    Drawing{tool_icon::Spectrum, "M3 20h18 M6 20v-8 M10 20V4 M14 20v-6 M18 20v-3", ""},
    Drawing{tool_icon::Undo, "M8 5L4 9l4 4 M4 9h10a5 5 0 0 1 0 10H8", ""},
    Drawing{tool_icon::Previous, "M15 5l-7 7 7 7", ""},
    Drawing{tool_icon::Next, "M9 5l7 7-7 7", ""},
    Drawing{tool_icon::Copy, "M8 8h12v12H8z M16 8V4H4v12h4", ""},
    Drawing{tool_icon::Accept, "M4 13l5 5L20 6", ""},
    Drawing{tool_icon::Ping,
            "M8 8a6 6 0 0 0 0 8 M16 8a6 6 0 0 1 0 8 M5 5a10 10 0 0 0 0 14 M19 5a10 10 0 0 1 0 14",
            "M10 12a2 2 0 1 0 4 0a2 2 0 1 0 -4 0z"}};

} // namespace

wxBitmapBundle ToolIcon(const char* name) {
    const std::string colour = wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOWTEXT)
                                   .GetAsString(wxC2S_HTML_SYNTAX)
                                   .utf8_string();
    std::string svg = "<svg xmlns='http://www.w3.org/2000/svg' width='24' height='24'>";
    for (const Drawing& drawing : drawings) {
        if (drawing.Name == name) {
            svg += "<path fill='none' stroke='" + colour + "' stroke-width='2' d='" +
                   std::string(drawing.Lines) + "'/><path fill='" + colour + "' d='" +
                   std::string(drawing.Filled) + "'/>";
        }
    }
    return wxBitmapBundle::FromSVG((svg + "</svg>").c_str(), wxSize(20, 20));
}

} // namespace orvane
