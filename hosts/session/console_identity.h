#pragma once

#include "driver_loader.h"

#include <string>
#include <vector>

namespace orvane {

/// One of the identity texts of a console, as the driver gives it.
struct IdentityText {
    const char* Label; ///< For people, in English.
    const char* Path;  ///< For programs: a path of JSON field names.
    wxString Text;
};

/// All of them. With a console without memory, the driver shows a message.
std::vector<IdentityText> IdentityTexts(const DriverExports& driver);

/// One of the limits of a console.
struct LimitText {
    const char* Label; ///< For people, in English.
    std::string Text;
};

std::vector<LimitText> LimitTexts(const DriverExports& driver);

} // namespace orvane
