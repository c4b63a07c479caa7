#pragma once

#include "driver_loader.h"

#include <string>
#include <vector>

namespace orvane {

/// One of the texts by which a console is known, as the driver gives it.
struct IdentityText {
    const char* Label; ///< For people.
    const char* Path;  ///< For programs: a path of JSON field names.
    wxString Text;
};

/// All of them. A console without memory makes the driver say so.
std::vector<IdentityText> IdentityTexts(const DriverExports& driver);

} // namespace orvane
