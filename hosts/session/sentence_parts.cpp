#include "hosts/session/sentence_parts.h"

namespace orvane {

std::string Quoted(std::string_view text) {
    return '"' + std::string(text) + '"';
}

std::string Listed(const std::vector<std::string>& words, std::string_view conjunction) {
    std::string text;
    for (size_t i = 0; i < words.size(); ++i) {
        if (i > 0 && i + 1 == words.size()) {
            text.append(" ").append(conjunction).append(" ");
        } else if (i > 0) {
            text += ", ";
        }
        text += words[i];
    }
    return text;
}

} // namespace orvane
