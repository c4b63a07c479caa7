#pragma once

/// \file
/// The lists of channels. Written by the enumeration and the acquisition set-up, on the host's
/// thread; the enumeration also on the spirometer thread, under the host's critical section.

#include "channels/tvl_voie_orvane.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <vector>

namespace orvane {

using ChannelList = std::vector<std::unique_ptr<TvlVoieOrvane>>;

inline ChannelList InputChannels;  ///< What the host can measure, in the order of its indexes.
inline ChannelList OutputChannels; ///< The analog outputs of the console.
inline ChannelList AcqChannels;    ///< Copies of the channels of the buffered acquisition.
inline std::vector<int32_t> SynchroChannels; ///< Trigger sources: indexes into InputChannels.

/// Adds to the end. A full list doubles, and grows by at least 16.
template <class Element> void Append(std::vector<Element>& list, Element element) {
    if (list.size() == list.capacity()) {
        list.reserve(list.capacity() + std::max<std::size_t>(16, list.size()));
    }
    list.push_back(std::move(element));
}

/// Destroys the elements and releases their storage.
template <class Element> void Clear(std::vector<Element>& list) {
    std::vector<Element>().swap(list);
}

/// The channel of this index; null outside the list.
inline TvlVoieOrvane* ChannelAt(const ChannelList& list, int64_t index) {
    return index >= 0 && static_cast<std::size_t>(index) < list.size()
               ? list[static_cast<std::size_t>(index)].get()
               : nullptr;
}

/// The input channel that a trigger channel stands for; null if there is none.
TvlVoieOrvane* SynchroSource(int index);

} // namespace orvane
