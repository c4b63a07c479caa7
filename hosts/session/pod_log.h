#pragma once

#include "hosts/session/radio_network.h"

#include <chrono>
#include <optional>
#include <vector>

namespace orvane {

using LogTime = std::chrono::system_clock::time_point;

/// What was seen of a pod. One that left is kept until it is forgotten.
struct PodRecord {
    int Id = 0;
    bool Connected = false;
    bool Accepted = false;
    std::optional<bool> Answered{}; ///< The last ping; none yet.
    LogTime PingAt{};
    LogTime JoinedAt{};
    LogTime LeftAt{};
};

/// Something that happened in a network.
struct RadioEvent {
    enum class Kind { Opened, Closed, Joined, Left, Accepted, NotAccepted, Answered, Silent };

    LogTime At;
    Kind What = Kind::Opened;
    int Pod = -1;    ///< Below 0: the network.
    int Channel = 0; ///< Of a network that opened.
    int Level = 0;
};

/// The pods of a network by their ids, and what happened, the oldest first.
struct RadioLog {
    std::vector<PodRecord> Pods;
    std::vector<RadioEvent> Events; ///< The last ones only, if there are very many.
};

void NoteEvent(RadioLog& log, const RadioEvent& event);
/// Notes who came and who left since the last time.
void NotePods(RadioLog& log, const std::vector<Pod>& connected, LogTime now);
void NotePing(RadioLog& log, int id, bool answered, LogTime now);
/// Forgets the pods that left.
void ForgetLeft(RadioLog& log);

const PodRecord* FindPod(const RadioLog& log, int id);
/// How long a pod is in the network, or was.
std::chrono::seconds JoinedFor(const PodRecord& pod, LogTime now);

} // namespace orvane
