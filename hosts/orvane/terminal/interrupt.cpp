#include "hosts/orvane/terminal/interrupt.h"

#include <atomic>
#include <csignal>

namespace orvane {

namespace {

// Written by the signal handler.
std::atomic<bool> interrupted = false;
static_assert(std::atomic<bool>::is_always_lock_free);

extern "C" void NoteInterrupt(int /*signal*/) {
    interrupted = true;
}

} // namespace

void CatchInterrupts() {
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        struct sigaction action {};
        sigaction(signal, nullptr, &action);
        if (action.sa_handler != SIG_IGN) {
            action = {};
            action.sa_handler = NoteInterrupt;
            sigaction(signal, &action, nullptr);
        }
    }
}

bool Interrupted() {
    return interrupted;
}

bool NotInterrupted() {
    return !interrupted;
}

} // namespace orvane
