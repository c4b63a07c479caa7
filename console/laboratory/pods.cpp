#include "console/laboratory/pods.h"

#include "console/laboratory/console_clock.h"

#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cmath>
#include <condition_variable>
#include <exception>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>
#include <vector>

namespace orvane::laboratory {

namespace {

struct PodState {
    Pod Source;
    bool Joined = false;
    int64_t JoinNs = noPodNs;  ///< When it comes.
    int64_t LeaveNs = noPodNs; ///< When it goes.
};

/// The host's thread changes the network, that of the pods reports what is due.
struct RadioNetwork {
    std::mutex Lock; ///< Of all that follows but the thread. Nobody holds it during a report.
    std::condition_variable Changed;
    bool Open = false;
    tRadioCallback Callback = nullptr;
    std::vector<PodState> Pods;
    bool Reporting = false; ///< A callback is called.
    bool Stuck = false;     ///< So long that the host's thread doesn't wait for it any more.
    std::thread Thread;     ///< The host's thread starts and ends it.
    const pid_t Process = getpid();
};

/// Made by the first opening, and kept until the library is unloaded.
struct NetworkOwner {
    std::unique_ptr<RadioNetwork> Held;

    NetworkOwner() = default;
    ~NetworkOwner() {
        CloseRadio();
    }
    NetworkOwner(const NetworkOwner&) = delete;
    NetworkOwner& operator=(const NetworkOwner&) = delete;
};

NetworkOwner owner;

/// Written under the lock.
std::atomic<int64_t> nextPodNs{noPodNs};

int64_t After(int64_t ns, double seconds) {
    return ns + std::llround(seconds * 1e9);
}

int64_t DueNs(const PodState& pod) {
    return std::min(pod.JoinNs, pod.LeaveNs);
}

/// To be called after each change, under the lock.
void NoteNext(RadioNetwork& network) {
    const auto next = std::ranges::min_element(network.Pods, {}, DueNs);
    nextPodNs = next == network.Pods.end() ? noPodNs : DueNs(*next);
    network.Changed.notify_all();
}

/// Reports the pod that is due first. Called, and returns, under the lock.
void ReportNext(RadioNetwork& network, std::unique_lock<std::mutex>& lock) {
    PodState& pod = *std::ranges::min_element(network.Pods, {}, DueNs);
    pod.Joined = pod.JoinNs < pod.LeaveNs;
    (pod.Joined ? pod.JoinNs : pod.LeaveNs) = noPodNs;
    const tRadioCallback callback = network.Callback;
    const uint8_t id = pod.Source.Id;
    const bool joined = pod.Joined;
    network.Reporting = true;
    NoteNext(network);
    lock.unlock();
    if (callback != nullptr) {
        callback(id, RadioPod, joined);
    }
    lock.lock();
    network.Reporting = false;
    network.Stuck = false;
    network.Changed.notify_all();
}

/// The thread of the pods.
void Report(RadioNetwork& network) {
    std::unique_lock lock(network.Lock);
    while (network.Open) {
        const int64_t next = nextPodNs;
        if (next <= NowNs()) {
            ReportNext(network, lock);
        } else if (next == noPodNs) {
            network.Changed.wait(lock);
        } else {
            network.Changed.wait_for(lock, std::chrono::nanoseconds(MachineNsUntil(next)));
        }
    }
}

/// The open network; null if there is none.
RadioNetwork* OpenNetwork() {
    RadioNetwork* network = owner.Held.get();
    return network != nullptr && network->Open ? network : nullptr;
}

/// The open network with its thread; null if there is none, or no thread for it.
RadioNetwork* ReportingNetwork() {
    RadioNetwork* network = OpenNetwork();
    try {
        if (network != nullptr && !network->Thread.joinable()) {
            network->Thread = std::thread(Report, std::ref(*network));
        }
    } catch (const std::exception&) {
        return nullptr;
    }
    return network;
}

/// Under the lock.
void Release(PodState& pod) {
    if (pod.Joined && pod.LeaveNs == noPodNs) {
        pod.LeaveNs = After(NowNs(), pod.Source.Leaves);
    }
}

/// A pod that has joined; null if there is none. Under the lock.
PodState* JoinedPod(RadioNetwork& network, int32_t id) {
    const auto pod = std::ranges::find_if(
        network.Pods, [&](const PodState& one) { return one.Source.Id == id && one.Joined; });
    return pod != network.Pods.end() ? &*pod : nullptr;
}

} // namespace

void OpenRadio(const Radio& radio) {
    CloseRadio();
    if (owner.Held == nullptr) {
        owner.Held = std::make_unique<RadioNetwork>();
    }
    const std::scoped_lock lock(owner.Held->Lock);
    for (const Pod& pod : radio.Pods) {
        owner.Held->Pods.push_back({.Source = pod});
    }
    owner.Held->Open = true;
}

void CloseRadio() {
    if (owner.Held == nullptr) {
        return;
    }
    RadioNetwork& network = *owner.Held;
    if (network.Process != getpid()) {
        // A child process has no thread to join; to destroy what it waits for would wait forever.
        [[maybe_unused]] const RadioNetwork* leaked = owner.Held.release();
        nextPodNs = noPodNs;
        return;
    }
    {
        const std::scoped_lock lock(network.Lock);
        network.Open = false;
        network.Callback = nullptr;
        network.Pods.clear();
        NoteNext(network);
    }
    if (network.Thread.joinable()) {
        network.Thread.join();
    }
}

bool HasRadio() {
    return OpenNetwork() != nullptr;
}

void ReportPodsTo(tRadioCallback callback) {
    if (RadioNetwork* network = OpenNetwork(); network != nullptr) {
        const std::scoped_lock lock(network->Lock);
        network->Callback = callback;
    }
}

bool CallPods() {
    RadioNetwork* network = ReportingNetwork();
    if (network == nullptr) {
        return false;
    }
    const std::scoped_lock lock(network->Lock);
    for (PodState& pod : network->Pods) {
        const bool leaves = pod.LeaveNs != noPodNs;
        if ((!pod.Joined || leaves) && pod.JoinNs == noPodNs) {
            pod.JoinNs = After(leaves ? pod.LeaveNs : NowNs(), pod.Source.Joins);
        }
    }
    NoteNext(*network);
    return true;
}

bool DismissPods() {
    RadioNetwork* network = ReportingNetwork();
    if (network == nullptr) {
        return false;
    }
    const std::scoped_lock lock(network->Lock);
    for (PodState& pod : network->Pods) {
        pod.JoinNs = noPodNs;
        Release(pod);
    }
    NoteNext(*network);
    return true;
}

bool ReleasePod(int32_t id) {
    RadioNetwork* network = ReportingNetwork();
    if (network == nullptr) {
        return false;
    }
    const std::scoped_lock lock(network->Lock);
    PodState* pod = JoinedPod(*network, id);
    if (pod != nullptr) {
        Release(*pod);
        NoteNext(*network);
    }
    return pod != nullptr;
}

std::optional<Pod> FindJoinedPod(int32_t id) {
    RadioNetwork* network = OpenNetwork();
    if (network == nullptr) {
        return std::nullopt;
    }
    const std::scoped_lock lock(network->Lock);
    const PodState* pod = JoinedPod(*network, id);
    return pod != nullptr ? std::optional(pod->Source) : std::nullopt;
}

int64_t NextPodNs() {
    return nextPodNs.load(std::memory_order_acquire);
}

bool AwaitPods() {
    constexpr std::chrono::seconds longest(1);
    RadioNetwork& network = *owner.Held;
    std::unique_lock lock(network.Lock);
    if (!network.Stuck) {
        network.Changed.notify_all();
        network.Stuck = !network.Changed.wait_for(
            lock, longest, [&] { return !network.Reporting && nextPodNs > NowNs(); });
    }
    return !network.Stuck;
}

} // namespace orvane::laboratory
