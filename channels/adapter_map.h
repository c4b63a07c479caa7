#pragma once

/// \file
/// The adapters that are plugged in, and whether the last change has been noted.

#include "console/console_records.h"

#include <wx/hashmap.h>

#include <atomic>
#include <cstdint>
#include <mutex>
#include <optional>
#include <utility>
#include <vector>

// The library exports the whole class, and the toolkit's macro has no parameter for that.
#pragma GCC visibility push(default)

/// For each occupied connector, a copy of its adapter's record. Iterates in ascending order.
WX_DECLARE_HASH_MAP(int, tAdapterDesc, wxIntegerHash, wxIntegerEqual, TvlIntToAdapterDescMap);
#pragma GCC visibility pop

namespace orvane {

/// Guards every access to the map: a console may report a plug from inside an operation that the
/// host calls outside its section, while the spirometer thread enumerates. Not held during a call
/// on the port, because the console may report from inside it.
inline std::mutex AdaptersLock;

/// The one map. Changed by the two functions below, read by the other two.
extern TvlIntToAdapterDescMap Adapters;

/// False from any plug notification until the next VerifCanaux. Written by the thread on which the
/// console reports, and by the host's.
inline std::atomic<bool> CanauxVerifies{false};

/// Counts the calls of VerifCanaux that found a change. Written on the host's thread, watched by
/// the spirometer thread.
inline std::atomic<int32_t> EtatVerifCanaux{0};

/// Handles a plug notification of the console: updates the map and marks the change. An adapter is
/// left out if its record can't be read or memory runs out.
void AdapterCb(unsigned char connecteur, bool branche) noexcept;

/// Clears the map.
void ClearAdapters();

/// A copy of the map in ascending order of connectors: a console may report a change during an
/// iteration over its adapters.
std::vector<std::pair<uint8_t, tAdapterDesc>> PluggedAdapters();

/// A copy of the adapter on a connector, if there is one.
std::optional<tAdapterDesc> PluggedAdapter(uint8_t connecteur);

} // namespace orvane
