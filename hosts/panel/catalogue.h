#pragma once

#include <string>

namespace orvane {

/// The language for a user of this environment, as a code for StartDll: "fr", or else "en".
std::string EnvironmentLanguage();

/// Sets the language of the window, or English if there is no catalogue for it. The catalogues are
/// in the build folder or, installed, under share/locale.
void UseLanguage(const std::string& code);

/// The decimal point of the window's language.
char DecimalPoint();

} // namespace orvane
