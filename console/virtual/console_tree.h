#pragma once

/// \file
/// The tree of records that stands in for the hardware: the console itself on connector 0
/// with no channels, a voltmeter on connector 1, an ammeter on connector 2. Built by OVOpen,
/// released by OVRelease, changed by selections on the host's thread, read by every thread that
/// measures.

#include "console/console_records.h"
#include "console/virtual/measurement.h"

#include <array>
#include <memory>

namespace orvane::virtual_console {

struct CalibreNode {
    tCalibreDesc Desc{};
    SimulatedValues Valeurs{}; ///< What a measurement of this calibre can give.
};

struct FunctionNode {
    tFunctionDesc Desc{};
    std::unique_ptr<CalibreNode[]> Calibres; ///< Desc.NbCalibres of them.
};

struct ChannelNode {
    tChannelDesc Desc{};
    std::unique_ptr<FunctionNode[]> Fonctions; ///< Desc.NbFonctions of them.
    const SimulatedValues* Valeurs = nullptr;  ///< Of the selected calibre, for fast measurements.
    float ValeurCalibration = 0.0F;            ///< The last value given for a calibration.
};

struct ConnectorNode {
    tAdapterDesc Desc{};
    std::unique_ptr<ChannelNode[]> Voies; ///< Desc.NbVoies of them.
};

inline std::array<ConnectorNode, 3> Connectors;

/// The node of an index, or null where the console has none.
ConnectorNode* ConnectorAt(uint8_t connector);
ChannelNode* ChannelAt(uint8_t connector, uint8_t channel);
FunctionNode* FunctionAt(uint8_t connector, uint8_t channel, uint8_t function);
CalibreNode* CalibreAt(uint8_t connector, uint8_t channel, uint8_t function, uint8_t calibre);

/// Brings the channel's values in line with its selected function and calibre.
void FollowSelection(ChannelNode& channel);

/// Fills the tree, which is empty before. Throws std::bad_alloc without memory.
void BuildTree();

/// Releases all channels, if there are any.
void ReleaseTree();

} // namespace orvane::virtual_console
