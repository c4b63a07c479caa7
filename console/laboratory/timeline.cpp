#include "console/laboratory/timeline.h"

#include "console/laboratory/acquisition.h"
#include "console/laboratory/console_clock.h"
#include "console/laboratory/gates.h"
#include "console/laboratory/laboratory_state.h"

#include <cmath>

namespace orvane::laboratory {

namespace {

constexpr int64_t never = std::numeric_limits<int64_t>::max();

/// Index of the next entry. Used by the thread that fires.
size_t nextEntry = 0;

/// Set while events are fired: a callback calls operations.
std::atomic<bool> firing{false};

/// Keeps others from firing, unless somebody fires already.
struct Firing {
    Firing() : Granted(!firing.exchange(true)) {}
    ~Firing() {
        if (Granted) {
            firing = false;
        }
    }
    Firing(const Firing&) = delete;
    Firing& operator=(const Firing&) = delete;

    const bool Granted;
};

void GoTo(size_t entry) {
    nextEntry = entry;
    const bool ended = Loaded == nullptr || entry >= Loaded->Timeline.size();
    NextEventNs = ended ? never : std::llround(Loaded->Timeline[entry].Time * 1e9);
}

/// An adapter that is in already, or isn't there to be pulled, stays as it is.
void Happen(const Plug& plug, int64_t ns) {
    ConnectorNode& node = Laboratory.Connectors[1 + plug.Adapter]; // The first is the console.
    const uint8_t connector = node.Source->Connector;
    const bool isIn = Plugged[connector] == &node;
    if (isIn == plug.Plugged) {
        return;
    }
    LookForTriggerUntil(ns);
    LogCrossings(ns);
    Plugged[connector] = plug.Plugged ? &node : nullptr;
    if (Laboratory.Notify != nullptr) {
        Laboratory.Notify(connector, plug.Plugged);
    }
}

} // namespace

void StartTimeline() {
    GoTo(0);
    FireEvents();
}

void StopTimeline() {
    NextEventNs = never;
}

void FireEvents() {
    const Firing mine;
    while (mine.Granted && NextEventNs <= NowNs()) {
        const size_t entry = nextEntry;
        const int64_t due = NextEventNs;
        GoTo(entry + 1);
        if (const auto* plug = std::get_if<Plug>(&Loaded->Timeline[entry].Event)) {
            Happen(*plug, due);
        }
    }
}

void FireDueEvents() {
    const int64_t next = NextEventNs.load(std::memory_order_relaxed);
    if (next != never && next <= NowNs()) {
        FireEvents();
    }
}

void FireDueEventsOfHost() {
    const int64_t next = NextEventNs.load(std::memory_order_relaxed);
    if (next != never && IsHostThread()) {
        FireDueEvents();
    }
}

void RegisterPlugCallback(tPlugCallback callback) {
    Laboratory.Notify = nullptr;
    if (callback == nullptr) {
        return;
    }
    FireDueEvents(); // Not reported: what is plugged in afterwards is.
    const Firing mine;
    Laboratory.Notify = callback;
    for (uint8_t connector = 1; connector < connectorCount; ++connector) {
        if (ConnectorAt(connector) != nullptr) {
            callback(connector, true);
        }
    }
}

} // namespace orvane::laboratory
