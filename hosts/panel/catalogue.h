#pragma once

#include <string>

namespace orvane {

/// The language for a user of this environment, as a code for StartDll: "fr", or else "en".
std::string EnvironmentLanguage();

/// From now on the window speaks this language, or English if there is no catalogue of it. The
/// catalogues lie in the build folder or, installed, under share/locale.
void UseLanguage(const std::string& code);

} // namespace orvane
