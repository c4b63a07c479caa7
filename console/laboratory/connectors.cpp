#include "console/laboratory/connectors.h"

namespace orvane::laboratory {

void PlugInAll(std::vector<ConnectorNode>& connectors) {
    PullAll();
    for (ConnectorNode& node : connectors) {
        if (node.Source == nullptr) {
            Plugged[0] = &node;
        } else if (node.Source->Plugged) {
            Plugged[node.Source->Connector] = &node;
        }
    }
}

void PullAll() {
    for (auto& plugged : Plugged) {
        plugged = nullptr;
    }
}

ConnectorNode* ConnectorAt(uint8_t connector) {
    return connector < connectorCount ? Plugged[connector].load(std::memory_order_acquire)
                                      : nullptr;
}

ChannelNode* ChannelOf(ConnectorNode* connector, uint8_t channel) {
    const bool there = connector != nullptr && channel < connector->Channels.size() &&
                       connector->Channels[channel].Role != ChannelRole::None;
    return there ? &connector->Channels[channel] : nullptr;
}

ChannelNode* ChannelAt(uint8_t connector, uint8_t channel) {
    return ChannelOf(ConnectorAt(connector), channel);
}

FunctionNode* FunctionAt(uint8_t connector, uint8_t channel, uint8_t function) {
    ChannelNode* node = ChannelAt(connector, channel);
    return node != nullptr && function < node->Functions.size() ? &node->Functions[function]
                                                                : nullptr;
}

} // namespace orvane::laboratory
