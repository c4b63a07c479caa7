#include "hosts/orvane/terminal/standard_output.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <iostream>

namespace orvane {

namespace {

std::string_view Environment(const char* name) {
    const char* const text = std::getenv(name);
    return text != nullptr ? text : "";
}

} // namespace

bool FlushOrEnd() {
    errno = 0;
    if (std::cout.flush()) {
        return true;
    }
    if (errno == EPIPE) {
        std::cout.clear();
    }
    return false;
}

bool CanOverwrite(int descriptor) {
    return isatty(descriptor) != 0 && Environment("TERM") != "dumb";
}

bool InColour() {
    return CanOverwrite(STDOUT_FILENO) && Environment("NO_COLOR").empty();
}

size_t TerminalColumns(int descriptor) {
    if (isatty(descriptor) == 0) {
        return 0;
    }
    constexpr size_t usual = 80;
    winsize size{};
    return ioctl(descriptor, TIOCGWINSZ, &size) == 0 && size.ws_col > 0 ? size.ws_col : usual;
}

std::string TableForOutput(const std::vector<TextColumn>& columns, const TextRows& rows) {
    return FormatTable(columns, rows, TerminalColumns(STDOUT_FILENO));
}

} // namespace orvane
