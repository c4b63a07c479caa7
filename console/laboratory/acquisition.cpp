#include "console/laboratory/acquisition.h"

#include "console/console_port.h"
#include "console/laboratory/console_clock.h"
#include "console/laboratory/gates.h"
#include "console/laboratory/timeline.h"

#include <algorithm>
#include <limits>
#include <new>

namespace orvane {

namespace {

using namespace laboratory;

// Ids of triggers.
constexpr uint8_t onlyTrigger = 1;
constexpr uint8_t anyGate = 2;

/// Samples of a run: of a stream of their own, unless each run is to give the same.
SampleGrid GridFrom(const ChannelReading& reading, uint64_t first) {
    const bool perRun = reading.Zero == Align::Run;
    return {.ZeroNs = perRun ? Laboratory.RunStartNs : 0,
            .FirstNs = Laboratory.RunStartNs + static_cast<int64_t>(first) * Acquired.PeriodNs,
            .StepNs = Acquired.PeriodNs,
            .FirstNumber = first,
            .Stream = perRun ? 1 : static_cast<uint64_t>(Laboratory.RunStartNs) + 2};
}

/// The shortest period that all channels of the set-up keep up with.
uint32_t ShortestPeriodNs() {
    uint32_t shortest = 1;
    for (const AcquiredChannel& acquired : Acquired.Channels) {
        const ChannelNode* node = ChannelAt(acquired.Connector, acquired.Channel);
        shortest = std::max(shortest, node != nullptr ? node->Desc.TempsMinNs : 1);
    }
    return shortest;
}

/// Samples from the start of the run to a time of the console's clock; as many as fit.
uint64_t SamplesUntil(int64_t ns) {
    return static_cast<uint64_t>(std::max<int64_t>(ns - Laboratory.RunStartNs, 0)) /
           Acquired.PeriodNs;
}

/// How long the samples to keep take, as far as 64 bits reach.
int64_t LengthNs() {
    int64_t length = 0;
    return __builtin_mul_overflow(Acquired.Total, Acquired.PeriodNs, &length)
               ? std::numeric_limits<int64_t>::max()
               : length;
}

/// Looks for the trigger in the samples that came since the last look.
void LookForTrigger(uint64_t samples) {
    const AcquisitionTrigger& trigger = *Acquired.Trigger;
    const ChannelReading& reading = Acquired.TriggerReading;
    const uint64_t from = std::max<uint64_t>(Acquired.Searched, trigger.PreTriggerPoints);
    if (ConnectorAt(trigger.Connector) != trigger.Adapter) {
        Acquired.Searched = samples;
        return;
    }
    if (samples <= from) {
        return;
    }
    const auto crossing =
        FirstCrossing(reading.Signal, reading.Used, Laboratory.Played, GridFrom(reading, 0),
                      {.Rising = trigger.Rising, .Level = trigger.Level}, from, samples);
    Acquired.Searched = samples;
    if (crossing) {
        Acquired.First = *crossing - trigger.PreTriggerPoints;
    }
}

/// Counts the samples that are kept by now.
void Look() {
    if (!Acquired.Running || Acquired.Points >= Acquired.Total) {
        return;
    }
    const uint64_t samples = SamplesUntil(NowNs());
    if (!Acquired.First) {
        LookForTrigger(samples);
    }
    if (Acquired.First && samples > *Acquired.First) {
        Acquired.Points =
            static_cast<uint32_t>(std::min<uint64_t>(samples - *Acquired.First, Acquired.Total));
    }
    if (Acquired.Points < Acquired.Total) {
        TickPoll(LengthNs());
    }
}

const AcquiredChannel* AcquiredAt(uint8_t connector, uint8_t channel) {
    const auto found = std::ranges::find_if(Acquired.Channels, [&](const AcquiredChannel& one) {
        return one.Connector == connector && one.Channel == channel;
    });
    return found != Acquired.Channels.end() ? &*found : nullptr;
}

/// Whether it is in the set-up, but its adapter has been pulled.
bool IsPulled(const AcquiredChannel* channel) {
    return channel != nullptr && ConnectorAt(channel->Connector) != channel->Adapter;
}

void StartAcquisition() {
    Laboratory.RunStartNs = NowNs();
    ForgetBefore(Laboratory.Played, Laboratory.RunStartNs);
    for (AcquiredChannel& acquired : Acquired.Channels) {
        acquired.Reading =
            ReadingOf(*acquired.Adapter, acquired.Adapter->Channels[acquired.Channel]);
    }
    Acquired.Searched = 0;
    Acquired.Points = 0;
    Acquired.First = 0;
    if (Acquired.Trigger && Acquired.Trigger->Enabled) {
        const ConnectorNode& adapter = *Acquired.Trigger->Adapter;
        Acquired.TriggerReading = ReadingOf(adapter, adapter.Channels[Acquired.Trigger->Channel]);
        Acquired.First = std::nullopt;
    }
    Acquired.Running = true;
}

} // namespace

void laboratory::LookForTriggerUntil(int64_t ns) {
    if (Acquired.Running && !Acquired.First) {
        LookForTrigger(SamplesUntil(ns));
    }
}

} // namespace orvane

using namespace orvane;

bool OVAutoStop() {
    FireDueEvents();
    Acquired.Running = false;
    StopGateRun();
    return true;
}

bool OVAutoClear() {
    FireDueEvents();
    Acquired.Points = 0;
    return true;
}

void OVAutoReset() {
    FireDueEvents();
    Acquired = {};
    Gates.Next = {};
}

bool OVAutoAddChannel(uint8_t connector, uint8_t channel) {
    FireDueEvents();
    const ChannelNode* node = ChannelAt(connector, channel);
    if (node == nullptr || node->Role != ChannelRole::Measurement) {
        return false;
    }
    try {
        Acquired.Channels.push_back({connector, channel, ConnectorAt(connector), {}});
    } catch (const std::bad_alloc&) {
        return false;
    }
    return true;
}

bool OVAutoConfigAcq(uint32_t dt, uint32_t nbPoints) {
    FireDueEvents();
    if (IsGateRunNext()) {
        return true; // It has no samples, and the acquisition after it is set up as the one before.
    }
    Acquired.PeriodNs = std::max(dt, ShortestPeriodNs());
    Acquired.Total = nbPoints;
    Acquired.Running = false;
    Acquired.Points = 0;
    return true;
}

bool OVAutoGetDt(uint32_t* dt) {
    FireDueEvents();
    *dt = Acquired.PeriodNs;
    return true;
}

bool OVAutoConfigSynchro(uint8_t connector, uint8_t channel, int edge, uint32_t /*reserved*/,
                         double threshold, uint8_t* synchroId) {
    FireDueEvents();
    const ChannelNode* node = ChannelAt(connector, channel);
    if (node != nullptr && node->Role == ChannelRole::Gate) {
        ArmGate(connector, channel);
        *synchroId = anyGate;
        return true;
    }
    if (node == nullptr || node->Role != ChannelRole::Measurement) {
        return false;
    }
    Acquired.Trigger = AcquisitionTrigger{.Connector = connector,
                                          .Channel = channel,
                                          .Adapter = ConnectorAt(connector),
                                          .Rising = edge == 0,
                                          .Level = threshold};
    *synchroId = onlyTrigger;
    return true;
}

bool OVAutoEnableSynchro(uint8_t synchroId) {
    FireDueEvents();
    if (synchroId == anyGate) {
        return Gates.Next.Armed.any();
    }
    if (synchroId != onlyTrigger || !Acquired.Trigger) {
        return false;
    }
    Acquired.Trigger->Enabled = true;
    return true;
}

bool OVAutoSetPreSynchro(uint8_t synchroId, uint32_t nbPoints) {
    FireDueEvents();
    if (synchroId != onlyTrigger || !Acquired.Trigger) {
        return false;
    }
    Acquired.Trigger->PreTriggerPoints = nbPoints;
    return true;
}

bool OVAutoStart() {
    FireDueEvents();
    const bool overGates = IsGateRunNext();
    if (!Laboratory.Open || (!overGates && Acquired.PeriodNs == 0)) {
        return false;
    }
    if (overGates) {
        Acquired.Running = false;
        StartGateRun();
    } else {
        StopGateRun();
        StartAcquisition();
    }
    return true;
}

bool OVAutoGetPointCount(uint8_t connector, uint8_t channel, uint32_t /*reserved*/,
                         uint32_t* count) {
    FireDueEvents();
    if (IsPulled(AcquiredAt(connector, channel))) {
        return false;
    }
    Look();
    *count = Acquired.Points;
    return true;
}

bool OVAutoGetPoints(uint8_t connector, uint8_t channel, uint32_t first, uint32_t count,
                     double* values, uint32_t* got) {
    FireDueEvents();
    const AcquiredChannel* acquired = AcquiredAt(connector, channel);
    if (acquired == nullptr || IsPulled(acquired) || first >= Acquired.Points) {
        return false;
    }
    *got = std::min(count, Acquired.Points - first);
    const ChannelReading& reading = acquired->Reading;
    ComputeSamples(reading.Signal, reading.Used, Laboratory.Played,
                   GridFrom(reading, *Acquired.First + first), {values, *got});
    return true;
}

bool OVAutoGetPoint(uint8_t connector, uint8_t channel, uint32_t index, uint32_t /*reserved*/,
                    double* value) {
    uint32_t got = 0;
    return OVAutoGetPoints(connector, channel, index, 1, value, &got);
}
