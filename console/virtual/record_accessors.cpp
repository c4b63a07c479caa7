// Reading the records of the tree and selecting in it.

#include "console/console_port.h"
#include "console/virtual/console_tree.h"

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
    const tCalibreDesc* found = CalibreAt(connector, channel, function, calibre);
    if (found == nullptr) {
        return false;
    }
    *desc = *found;
    return true;
}

bool OVSelectFunction(uint8_t connector, uint8_t channel, uint8_t function) {
    if (FunctionAt(connector, channel, function) == nullptr) {
        return false;
    }
    ChannelAt(connector, channel)->Desc.FonctionCourante = function;
    return true;
}

bool OVSelectCalibre(uint8_t connector, uint8_t channel, uint8_t calibre) {
    const ChannelNode* node = ChannelAt(connector, channel);
    if (node == nullptr) {
        return false;
    }
    FunctionNode& function = node->Fonctions[node->Desc.FonctionCourante];
    if (calibre >= function.Desc.NbCalibres) {
        return false;
    }
    function.Desc.CalibreCourant = calibre;
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
