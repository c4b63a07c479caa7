#include "channels/channel_lists.h"

TvlVoieOrvane* SynchroSource(int index) {
    return index >= 0 && static_cast<std::size_t>(index) < SynchroChannels.size()
               ? ChannelAt(InputChannels, SynchroChannels[static_cast<std::size_t>(index)])
               : nullptr;
}
