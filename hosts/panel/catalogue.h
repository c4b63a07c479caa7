#pragma once

#include <string>

/// The language of the environment, as a code for StartDll: "fr", "en" or another.
std::string EnvironmentLanguage();

/// From now on the window speaks this language, or English if there is no catalogue of it. The
/// catalogues lie in the build folder or, installed, under share/locale.
void UseLanguage(const std::string& code);
