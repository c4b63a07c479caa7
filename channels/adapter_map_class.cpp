// The file whose object holds every member of the exported map class: it is compiled so that inline
// functions are kept, and it uses once what only exists when it is used.

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
