#include "hosts/orvane/terminal/console_messages.h"

#include "hosts/session/channel_info.h"

#include <algorithm>
#include <iostream>

namespace orvane {

ConsoleMessages::ConsoleMessages() : Before(Set(this)) {}

ConsoleMessages::~ConsoleMessages() {
    Set(Before);
}

void ConsoleMessages::Output(const wxString& text) {
    const std::string line = TextOf(wxString(text).Trim());
    const std::scoped_lock lock(Guard);
    if (std::ranges::find(Texts, line) == Texts.end()) {
        Texts.push_back(line);
    }
}

void ConsoleMessages::Show() {
    const std::scoped_lock lock(Guard);
    for (const std::string& text : Texts) {
        std::cerr << "console: " << text << '\n';
    }
}

} // namespace orvane
