#include "console/laboratory/console_clock.h"

#include "console/laboratory/pods.h"
#include "platform/clock.h"

#include <algorithm>
#include <atomic>
#include <charconv>
#include <cmath>
#include <thread>

namespace orvane::laboratory {

namespace {

constexpr int64_t nsPerUs = 1000;
constexpr int64_t nsPerMs = 1'000'000;

/// Written by StartClock. Any thread may ask for the driver's time meanwhile.
struct ClockState {
    std::atomic<ClockMode> Mode = ClockMode::Real;
    std::atomic<double> Factor = 1.0;
    std::atomic<int64_t> OriginNs = 0; ///< Of the machine's counter.
    std::atomic<std::thread::id> Host; ///< The thread that started the clock.
};

ClockState state;

/// Any thread moves and reads it.
std::atomic<int64_t> virtualNs{0};

int64_t MachineNs() {
    return platform::MachineNanoseconds() - state.OriginNs.load(std::memory_order_relaxed);
}

/// As far as 64 bits reach.
int64_t Rounded(double ns) {
    constexpr double most = 9.2e18;
    return std::llround(std::min(ns, most));
}

int64_t ScaledNs() {
    return Rounded(static_cast<double>(MachineNs()) * state.Factor.load(std::memory_order_relaxed));
}

void PauseScaled(int64_t nanoseconds) {
    platform::PauseOnMachine(
        Rounded(static_cast<double>(nanoseconds) / state.Factor.load(std::memory_order_relaxed)));
}

/// How the host's thread and one whose pauses carry the time stay together: when they last did so,
/// on the machine's clock.
struct Pace {
    std::atomic<int64_t> HostLookedAtNs{0};
    std::atomic<int64_t> CarriedAtNs{0};
};

Pace pace;

/// Moves the time and returns it. The host's thread waits wherever a pod comes or goes on the way,
/// until that has been reported.
int64_t MoveVirtual(int64_t nanoseconds) {
    int64_t rest = nanoseconds;
    for (int64_t next = NextPodNs(); next - virtualNs <= rest && IsHostThread();
         next = NextPodNs()) {
        const int64_t step = std::clamp(next - virtualNs, int64_t{0}, rest);
        virtualNs += step;
        rest -= step;
        if (!AwaitPods()) {
            break;
        }
    }
    return virtualNs.fetch_add(rest, std::memory_order_relaxed) + rest;
}

/// A read moves the time, so that a loop that waits for a time ends. While a host waits for a pod,
/// its looks at the clock are all that it does.
int64_t ReadVirtual() {
    constexpr int64_t lookForPodNs = 50 * nsPerMs;
    if (!IsHostThread()) {
        return MoveVirtual(nsPerUs);
    }
    pace.HostLookedAtNs = platform::MachineNanoseconds();
    return MoveVirtual(NextPodNs() != noPodNs ? lookForPodNs : nsPerUs);
}

/// Moves the time at once. Then the host's thread has a millisecond to take what the calling one
/// has measured; and one that looks at the clock has until it has looked since the last pause, at
/// most the time of the pause.
void CarryTime(int64_t nanoseconds) {
    constexpr int64_t memoryNs = 1000 * nsPerMs;
    const int64_t lastPause = pace.CarriedAtNs;
    const int64_t begin = platform::MachineNanoseconds();
    const bool looks = begin - pace.HostLookedAtNs < memoryNs;
    const int64_t end = begin + (looks ? nanoseconds : nsPerMs);
    MoveVirtual(nanoseconds);
    do {
        pace.CarriedAtNs = platform::MachineNanoseconds();
        platform::PauseOnMachine(nsPerMs);
    } while (pace.HostLookedAtNs < lastPause && platform::MachineNanoseconds() < end);
    pace.CarriedAtNs = platform::MachineNanoseconds();
}

/// The host's pause ends when another thread has carried the time as far; it takes no time without
/// one, or when that one waits itself.
void PauseHost(int64_t nanoseconds) {
    constexpr int64_t patienceNs = 20 * nsPerMs;
    const int64_t end = virtualNs + nanoseconds;
    while (virtualNs < end && platform::MachineNanoseconds() - pace.CarriedAtNs < patienceNs) {
        pace.HostLookedAtNs = platform::MachineNanoseconds();
        platform::PauseOnMachine(nsPerMs);
    }
    MoveVirtual(std::max(end - virtualNs, int64_t{0}));
}

void PauseVirtual(int64_t nanoseconds) {
    if (IsHostThread()) {
        PauseHost(nanoseconds);
    } else {
        CarryTime(nanoseconds);
    }
}

void Move(int64_t nanoseconds) {
    if (state.Mode.load(std::memory_order_relaxed) == ClockMode::Virtual) {
        MoveVirtual(nanoseconds);
    }
}

constexpr platform::Clock scaledClock{platform::machineFrequency, ScaledNs, PauseScaled};
constexpr platform::Clock virtualClock{platform::machineFrequency, ReadVirtual, PauseVirtual};

} // namespace

std::optional<ClockSetting> ParseClock(const std::string& text, const ClockSetting& scenario) {
    if (text == "real") {
        return ClockSetting{};
    }
    if (text == "virtual") {
        return ClockSetting{ClockMode::Virtual, 1.0};
    }
    if (text == "scaled") {
        return ClockSetting{ClockMode::Scaled, scenario.Factor};
    }
    constexpr std::string_view prefix = "scaled:";
    ClockSetting setting{ClockMode::Scaled, 0.0};
    const char* const end = text.data() + text.size();
    if (!text.starts_with(prefix) ||
        std::from_chars(text.data() + prefix.size(), end, setting.Factor).ptr != end ||
        !(setting.Factor >= leastClockFactor && setting.Factor <= greatestClockFactor)) {
        return std::nullopt;
    }
    return setting;
}

void StartClock(const ClockSetting& setting) {
    state.Mode = setting.Mode;
    state.Factor = setting.Factor;
    state.OriginNs = platform::MachineNanoseconds();
    state.Host = std::this_thread::get_id();
    virtualNs = 0;
    ContinueClock();
}

void ContinueClock() {
    switch (state.Mode) {
    case ClockMode::Real:
        platform::InstalledClock = nullptr;
        break;
    case ClockMode::Scaled:
        platform::InstalledClock = &scaledClock;
        break;
    case ClockMode::Virtual:
        platform::InstalledClock = &virtualClock;
        break;
    }
}

void StopClock() {
    platform::InstalledClock = nullptr;
}

int64_t NowNs() {
    switch (state.Mode.load(std::memory_order_relaxed)) {
    case ClockMode::Real:
        return MachineNs();
    case ClockMode::Scaled:
        return ScaledNs();
    case ClockMode::Virtual:
        break;
    }
    return virtualNs.load(std::memory_order_relaxed);
}

int64_t MachineNsUntil(int64_t ns) {
    constexpr double hour = 3600e9;
    const ClockMode mode = state.Mode.load(std::memory_order_relaxed);
    if (mode == ClockMode::Virtual) {
        return nsPerMs;
    }
    const double factor =
        mode == ClockMode::Scaled ? state.Factor.load(std::memory_order_relaxed) : 1.0;
    return std::llround(std::clamp(static_cast<double>(ns - NowNs()) / factor, 0.0, hour));
}

bool IsHostThread() {
    return std::this_thread::get_id() == state.Host.load(std::memory_order_relaxed);
}

void TickMeasurement() {
    Move(nsPerUs);
}

void TickPoll(int64_t unfinishedNs) {
    Move(std::max(unfinishedNs / 100, nsPerMs));
}

void TickLog() {
    Move(10 * nsPerMs);
}

} // namespace orvane::laboratory
