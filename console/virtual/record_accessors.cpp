// Reads the records of the tree and changes its selections.

#include "console/console_port.h"
#include "console/virtual/console_tree.h"

namespace orvane {

namespace {

using namespace virtual_console;

template <class Record, class Node> bool CopyDesc(const Node* node, Record* desc) {
    if (node == nullptr) {
        return false;
    }
    *desc = node->Desc;
    return true;
}

} // namespace

} // namespace orvane

using namespace orvane;

bool OVGetAdapterDesc(uint8_t connector, tAdapterDesc* desc) {
    return CopyDesc(ConnectorAt(connector), desc);
}

bool OVGetChannelDesc(uint8_t connector, uint8_t channel, tChannelDesc* desc) {
    return CopyDesc(ChannelAt(connector, channel), desc);
}

bool OVGetFunctionDesc(uint8_t connector, uint8_t channel, uint8_t function, tFunctionDesc* desc) {
    return CopyDesc(FunctionAt(connector, channel, function), desc);
}

bool OVGetCalibreDesc(uint8_t connector, uint8_t channel, uint8_t function, uint8_t calibre,
                      tCalibreDesc* desc) {
    return CopyDesc(CalibreAt(connector, channel, function, calibre), desc);
}

bool OVSelectFunction(uint8_t connector, uint8_t channel, uint8_t function) {
    if (FunctionAt(connector, channel, function) == nullptr) {
        return false;
    }
    ChannelNode& node = *ChannelAt(connector, channel);
    node.Desc.FonctionCourante = function;
    FollowSelection(node);
    return true;
}

bool OVSelectCalibre(uint8_t connector, uint8_t channel, uint8_t calibre) {
    ChannelNode* node = ChannelAt(connector, channel);
    if (node == nullptr ||
        CalibreAt(connector, channel, node->Desc.FonctionCourante, calibre) == nullptr) {
        return false;
    }
    node->Fonctions[node->Desc.FonctionCourante].Desc.CalibreCourant = calibre;
    FollowSelection(*node);
    return true;
}

bool OVSetCalibrationValue(uint8_t connector, uint8_t channel, uint32_t /*point*/, float value) {
    ChannelNode* node = ChannelAt(connector, channel);
    if (node == nullptr) {
        return false;
    }
    node->ValeurCalibration = value;
    return true;
}

bool OVAutoAddChannel(uint8_t connector, uint8_t channel) {
    return ChannelAt(connector, channel) != nullptr;
}
