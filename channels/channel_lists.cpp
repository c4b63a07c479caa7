#include "channels/channel_lists.h"

namespace orvane {

TvlVoieOrvane* SynchroSource(int index) {
    return index >= 0 && static_cast<std::size_t>(index) < SynchroChannels.size()
               ? ChannelAt(InputChannels, SynchroChannels[static_cast<std::size_t>(index)])
               : nullptr;
}

} // namespace orvane
