#include "hosts/panel/theme.h"

#include <wx/settings.h>

namespace orvane {

namespace {

bool IsDark() {
    return wxSystemSettings::GetAppearance().IsDark();
}

} // namespace

const ChartColours& WindowColours() {
    return IsDark() ? DarkColours : LightColours;
}

wxColour ErrorColour() {
    return IsDark() ? wxColour(0xff, 0x7b, 0x63) : wxColour(0xc0, 0x1c, 0x28);
}

wxColour WarningColour() {
    return IsDark() ? wxColour(0xf5, 0xc2, 0x11) : wxColour(0x8f, 0x5a, 0x00);
}

} // namespace orvane
