#include "hosts/orvane/standard_output.h"

#include <unistd.h>

#include <cerrno>
#include <iostream>

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

bool OnTerminal() {
    return isatty(STDOUT_FILENO) != 0;
}
