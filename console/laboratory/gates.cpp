#include "console/laboratory/gates.h"

#include "console/console_port.h"
#include "console/laboratory/console_clock.h"
#include "console/laboratory/fall.h"
#include "console/laboratory/laboratory_state.h"
#include "console/laboratory/timeline.h"

#include <algorithm>
#include <cmath>

namespace orvane::laboratory {

namespace {

constexpr int64_t logStepNs = 100;

/// Which of its adapter's gates a channel is; as many as there are gates: none.
size_t GateOf(uint8_t channel) {
    return static_cast<size_t>(std::ranges::find(gateChannels, channel) - gateChannels.begin());
}

bool IsDoor(const Adapter& gates, size_t gate) {
    return gate == 0 && gates.Door;
}

int64_t RoundedForLog(double seconds) {
    return std::llround(seconds * 1e9 / logStepNs) * logStepNs;
}

void AddCrossings(GateRun& run, uint8_t connector) {
    const ConnectorNode* node = ConnectorAt(connector);
    if (node == nullptr || node->Source->Kind != AdapterKind::Gates) {
        return; // It was pulled since.
    }
    const auto positions = GatePositions(*node->Source);
    for (size_t gate = 0; gate < positions.size(); ++gate) {
        if (positions[gate] && Gates.Next.Armed[connector * gateChannels.size() + gate]) {
            const Card& card = Loaded->Falling;
            const double time = card.AfterArming + FallTime(card, *positions[gate]);
            run.Crossings[run.Count++] = {
                .TimeNs = RoundedForLog(time), .Gates = node, .Door = IsDoor(*node->Source, gate)};
        }
    }
}

uint32_t LogCount() {
    LogCrossings(NowNs());
    return std::min(static_cast<uint32_t>(Gates.Run.Logged), Gates.Run.LogLength);
}

} // namespace

void ArmGate(uint8_t connector, uint8_t channel) {
    Gates.Next.Armed.set(connector * gateChannels.size() + GateOf(channel));
}

bool IsGateRunNext() {
    return Gates.Next.Armed.any() || Gates.Next.LogLength > 0;
}

void StartGateRun() {
    GateRun run{.Crossings = {},
                .Count = 0,
                .Logged = 0,
                .LogLength = Gates.Next.LogLength,
                .StartNs = NowNs(),
                .Running = true};
    for (uint8_t connector = 1; connector < connectorCount; ++connector) {
        AddCrossings(run, connector);
    }
    std::ranges::sort(
        run.Crossings.begin(), run.Crossings.begin() + static_cast<ptrdiff_t>(run.Count), {},
        [](const Crossing& crossing) { return std::pair(!crossing.Door, crossing.TimeNs); });
    Gates = {.Next = {}, .Run = run};
}

void StopGateRun() {
    LogCrossings(NowNs());
    Gates.Run.Running = false;
    Gates.Next = {};
}

void LogCrossings(int64_t untilNs) {
    GateRun& run = Gates.Run;
    while (run.Running && run.Logged < run.Count &&
           run.Crossings[run.Logged].TimeNs <= untilNs - run.StartNs) {
        const ConnectorNode* gates = run.Crossings[run.Logged].Gates;
        if (ConnectorAt(gates->Source->Connector) == gates) {
            ++run.Logged;
        } else {
            const auto missed = run.Crossings.begin() + static_cast<ptrdiff_t>(run.Logged);
            std::move(missed + 1, run.Crossings.end(), missed);
            --run.Count;
        }
    }
}

double GateValue(const ConnectorNode& connector, uint8_t channel) {
    const size_t gate = GateOf(channel);
    const auto position = GatePositions(*connector.Source)[gate];
    if (!Gates.Run.Running || !position) {
        return 0.0;
    }
    const Card& card = Loaded->Falling;
    const double falling =
        static_cast<double>(NowNs() - Gates.Run.StartNs) * 1e-9 - card.AfterArming;
    const bool reached = falling >= FallTime(card, *position);
    const bool passed =
        !IsDoor(*connector.Source, gate) && falling >= FallTime(card, *position + card.Length);
    return reached && !passed ? 1.0 : 0.0;
}

} // namespace orvane::laboratory

using namespace orvane;
using namespace orvane::laboratory;

bool OVAutoConfigLog(uint32_t nbEntries) {
    FireDueEvents();
    Gates.Next.LogLength = nbEntries;
    return true;
}

bool OVAutoGetLogCount(uint32_t* count) {
    FireDueEvents();
    *count = LogCount();
    if (*count < Gates.Run.LogLength) {
        TickLog();
    }
    return true;
}

bool OVAutoGetLogEntry(int32_t entry, tLogEntry* logEntry) {
    FireDueEvents();
    constexpr int64_t nsPerSecond = 1'000'000'000;
    if (entry < 0 || static_cast<uint32_t>(entry) >= LogCount()) {
        return false;
    }
    const int64_t time = Gates.Run.Crossings[static_cast<size_t>(entry)].TimeNs;
    *logEntry = {.Secondes = static_cast<uint32_t>(time / nsPerSecond),
                 .Nanosecondes = static_cast<uint32_t>(time % nsPerSecond)};
    return true;
}
