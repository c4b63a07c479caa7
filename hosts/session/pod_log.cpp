#include "hosts/session/pod_log.h"

#include <algorithm>

namespace orvane {

namespace {

constexpr size_t mostEvents = 1000;

void NoteLeft(RadioLog& log, PodRecord& record, LogTime now) {
    record.Connected = false;
    record.Accepted = false;
    record.LeftAt = now;
    NoteEvent(log, {.At = now, .What = RadioEvent::Kind::Left, .Pod = record.Id});
}

void NoteConnected(RadioLog& log, const Pod& pod, LogTime now) {
    auto at = std::ranges::lower_bound(log.Pods, pod.Id, {}, &PodRecord::Id);
    if (at == log.Pods.end() || at->Id != pod.Id) {
        at = log.Pods.insert(at, PodRecord{.Id = pod.Id});
    }
    if (!at->Connected) {
        *at = {.Id = pod.Id, .Connected = true, .JoinedAt = now};
        NoteEvent(log, {.At = now, .What = RadioEvent::Kind::Joined, .Pod = pod.Id});
    }
    if (pod.Accepted && !at->Accepted) {
        NoteEvent(log, {.At = now, .What = RadioEvent::Kind::Accepted, .Pod = pod.Id});
    }
    at->Accepted = pod.Accepted;
}

} // namespace

void NoteEvent(RadioLog& log, const RadioEvent& event) {
    if (log.Events.size() == mostEvents) {
        log.Events.erase(log.Events.begin());
    }
    log.Events.push_back(event);
}

void NotePods(RadioLog& log, const std::vector<Pod>& connected, LogTime now) {
    for (PodRecord& record : log.Pods) {
        if (record.Connected &&
            std::ranges::find(connected, record.Id, &Pod::Id) == connected.end()) {
            NoteLeft(log, record, now);
        }
    }
    for (const Pod& pod : connected) {
        NoteConnected(log, pod, now);
    }
}

void NotePing(RadioLog& log, int id, bool answered, LogTime now) {
    const auto record = std::ranges::find(log.Pods, id, &PodRecord::Id);
    if (record != log.Pods.end()) {
        record->Answered = answered;
        record->PingAt = now;
    }
    NoteEvent(log, {.At = now,
                    .What = answered ? RadioEvent::Kind::Answered : RadioEvent::Kind::Silent,
                    .Pod = id});
}

void ForgetLeft(RadioLog& log) {
    std::erase_if(log.Pods, [](const PodRecord& record) { return !record.Connected; });
}

const PodRecord* FindPod(const RadioLog& log, int id) {
    const auto found = std::ranges::find(log.Pods, id, &PodRecord::Id);
    return found != log.Pods.end() ? &*found : nullptr;
}

std::chrono::seconds JoinedFor(const PodRecord& pod, LogTime now) {
    return std::chrono::duration_cast<std::chrono::seconds>((pod.Connected ? now : pod.LeftAt) -
                                                            pod.JoinedAt);
}

} // namespace orvane
