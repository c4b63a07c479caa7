#pragma once

/// \file
/// The pods of the radio network. A thread of the console's own reports when they come and go.

#include "console/console_port.h"
#include "console/laboratory/scenario/scenario.h"

#include <cstdint>
#include <limits>
#include <optional>

namespace orvane::laboratory {

/// The network of a console that has one, with all pods away.
void OpenRadio(const Radio& radio);

/// The console has no network any more. Ends the thread.
void CloseRadio();

/// \name What the host does with the network
/// On the host's thread. False if there is no network, or no thread for it.
/// @{
bool HasRadio();
void ReportPodsTo(tRadioCallback callback); ///< Null: there are no reports.

/// All pods are to come. One that is leaving comes back after it has left.
bool CallPods();

/// All pods are to go, and none comes any more.
bool DismissPods();

/// The same of one pod. \return whether it had joined
bool ReleasePod(int32_t id);

/// A pod that has joined.
std::optional<Pod> FindJoinedPod(int32_t id);
/// @}

/// \name For a virtual clock
/// @{
constexpr int64_t noPodNs = std::numeric_limits<int64_t>::max();

/// When the next pod comes or goes, or noPodNs. Any thread.
int64_t NextPodNs();

/// Waits until all that is due by now has been reported. Gives up if a callback doesn't return, for
/// it may need what the caller holds.
/// \return whether all has been reported
bool AwaitPods();
/// @}

} // namespace orvane::laboratory
