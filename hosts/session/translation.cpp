#include "hosts/session/translation.h"

#include <wx/translation.h>

namespace orvane {

std::string Translated(const char* english, std::initializer_list<std::string> texts) {
    std::string sentence = wxGetTranslation(wxString::FromUTF8(english)).utf8_string();
    size_t from = 0;
    for (const std::string& text : texts) {
        const size_t place = sentence.find("%s", from);
        if (place != std::string::npos) {
            sentence.replace(place, 2, text);
            from = place + text.size();
        }
    }
    return sentence;
}

} // namespace orvane
