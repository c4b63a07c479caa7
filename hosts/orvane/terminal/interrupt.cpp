#include "hosts/orvane/terminal/interrupt.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <csignal>
#include <thread>

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

void WaitUnlessInterrupted(double seconds) {
    using Clock = std::chrono::steady_clock;
    constexpr std::chrono::duration<double> slice(0.02);
    const auto end = Clock::now() + std::chrono::duration<double>(seconds);
    while (!Interrupted() && Clock::now() < end) {
        std::this_thread::sleep_for(
            std::min<std::chrono::duration<double>>(slice, end - Clock::now()));
    }
}

} // namespace orvane
