#pragma once

#include <initializer_list>
#include <string>

namespace orvane {

/// A sentence for the user in the language of the host's catalogue, if it has one, with each %s
/// replaced by the next of the texts. All UTF-8, in every locale.
std::string Translated(const char* english, std::initializer_list<std::string> texts = {});

} // namespace orvane
