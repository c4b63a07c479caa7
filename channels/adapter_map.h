#pragma once

/// \file
/// What is plugged into the console, and whether the driver has taken note of it.

#include "console/console_records.h"

#include <wx/hashmap.h>

#include <atomic>
#include <cstdint>
#include <mutex>
#include <optional>
#include <utility>
#include <vector>

// The library exports the whole class, and the toolkit's macro has no place to say so.
#pragma GCC visibility push(default)

/// For each occupied connector, a copy of its adapter's record. Walked in ascending order.
WX_DECLARE_HASH_MAP(int, tAdapterDesc, wxIntegerHash, wxIntegerEqual, TvlIntToAdapterDescMap);
#pragma GCC visibility pop

namespace orvane {

/// Around each look at the map and each change of it: a console may report a plug from inside an
/// operation that the host calls outside its section, while the spirometer thread enumerates. Not
/// held during a call on the port, because the console may report from inside it.
inline std::mutex AdaptersLock;

/// The one map. Changed by the two functions below, read by the other two.
extern TvlIntToAdapterDescMap Adapters;

/// False from any plug notification until the next VerifCanaux. Written by the thread on which the
/// console reports, and by the host's.
inline std::atomic<bool> CanauxVerifies{false};

/// Counts the calls of VerifCanaux that found a change. Written on the host's thread, watched by
/// the spirometer thread.
inline std::atomic<int32_t> EtatVerifCanaux{0};

/// Takes a plug notification of the console: keeps the map up to date and notes the change. An
/// adapter for which there is no memory is left out, as one whose record can't be read.
void AdapterCb(unsigned char connecteur, bool branche) noexcept;

/// Takes everything out of the map.
void ClearAdapters();

/// A copy of the map in ascending order of connectors: a console may report a change while its
/// adapters are walked.
std::vector<std::pair<uint8_t, tAdapterDesc>> PluggedAdapters();

/// A copy of the adapter on a connector, if there is one.
std::optional<tAdapterDesc> PluggedAdapter(uint8_t connecteur);

} // namespace orvane
