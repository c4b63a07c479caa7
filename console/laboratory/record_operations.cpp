// What is read and selected in the console's records.

#include "console/console_port.h"
#include "console/laboratory/laboratory_state.h"
#include "console/laboratory/timeline.h"

#include <algorithm>

using namespace orvane;
using namespace orvane::laboratory;

bool OVGetAdapterDesc(uint8_t connector, tAdapterDesc* desc) {
    FireDueEventsOfHost();
    const ConnectorNode* node = ConnectorAt(connector);
    if (node == nullptr) {
        return false;
    }
    *desc = node->Desc;
    return true;
}

bool OVGetChannelDesc(uint8_t connector, uint8_t channel, tChannelDesc* desc) {
    FireDueEventsOfHost();
    const ChannelNode* node = ChannelAt(connector, channel);
    if (node == nullptr) {
        return false;
    }
    *desc = node->Desc;
    return true;
}

bool OVGetFunctionDesc(uint8_t connector, uint8_t channel, uint8_t function, tFunctionDesc* desc) {
    FireDueEventsOfHost();
    const FunctionNode* node = FunctionAt(connector, channel, function);
    if (node == nullptr) {
        return false;
    }
    *desc = node->Desc;
    return true;
}

bool OVGetCalibreDesc(uint8_t connector, uint8_t channel, uint8_t function, uint8_t calibre,
                      tCalibreDesc* desc) {
    FireDueEventsOfHost();
    const FunctionNode* node = FunctionAt(connector, channel, function);
    if (node == nullptr || calibre >= node->Calibres.size()) {
        return false;
    }
    *desc = node->Calibres[calibre];
    return true;
}

bool OVSelectFunction(uint8_t connector, uint8_t channel, uint8_t function) {
    FireDueEventsOfHost();
    ChannelNode* node = ChannelAt(connector, channel);
    if (node == nullptr || function >= node->Functions.size()) {
        return false;
    }
    node->Desc.FonctionCourante = function;
    PrepareSelection(*Loaded, *node);
    return true;
}

bool OVSelectCalibre(uint8_t connector, uint8_t channel, uint8_t calibre) {
    FireDueEventsOfHost();
    ChannelNode* node = ChannelAt(connector, channel);
    if (node == nullptr || calibre >= SelectedFunction(*node).Calibres.size()) {
        return false;
    }
    SelectedFunction(*node).Desc.CalibreCourant = calibre;
    PrepareSelection(*Loaded, *node);
    return true;
}

bool OVReadChannelText(uint8_t connector, uint8_t channel, char* buffer, uint32_t size) {
    FireDueEventsOfHost();
    const ChannelNode* node = ChannelAt(connector, channel);
    if (node == nullptr) {
        return false;
    }
    std::copy_n(node->Text.data(), std::min<size_t>(size, node->Text.size()), buffer);
    return true;
}

bool OVReadFunctionImage(uint8_t connector, uint8_t channel, uint8_t function, uint8_t* buffer,
                         uint32_t size) {
    FireDueEventsOfHost();
    const FunctionNode* node = FunctionAt(connector, channel, function);
    if (node == nullptr || node->Image.Bytes.empty()) {
        return false;
    }
    const std::vector<uint8_t>& bytes = node->Image.Bytes;
    std::copy_n(bytes.data(), std::min<size_t>(size, bytes.size()), buffer);
    return true;
}
