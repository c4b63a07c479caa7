// Emits every member of the exported map class: this file is compiled with inline functions kept,
// and instantiates the implicit members.

#include "channels/adapter_map.h"

TvlIntToAdapterDescMap orvane::Adapters(100);

namespace {

/// Never called: instantiates the implicit copy and move members.
[[maybe_unused]] void CopyAndMoveOnce() {
    TvlIntToAdapterDescMap copy(orvane::Adapters);
    TvlIntToAdapterDescMap moved(std::move(copy));
    copy = moved;
    moved = std::move(copy);
}

} // namespace
