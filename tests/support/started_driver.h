#pragma once

/// \file
/// A driver that is started over the scripted console as the test has set it up, and its answers
/// and calls as texts.

#include "channel_exports.h"
#include "channels/channel_lists.h"
#include "lifecycle_exports.h"
#include "tests/support/answer_text.h"
#include "tests/support/scripted_console.h"

#include <gmock/gmock.h>

/// Starts the driver and enumerates; the calls so far are taken.
inline void StartDriver(uint16_t model = 12304, int32_t dacParam = -1) {
    Console.Model = model;
    Console.Memory.resize(32768);
    StartDll(0, "", "fr", dacParam);
    CombienDeCanauxEnEntree();
    Console.TakeCalls();
}

/// Channel of connector 1 of the console, and the first channel as the driver has it.
inline ScriptedChannel& Channel(std::size_t canal = 0) {
    return Console.Connectors[1].Channels[canal];
}
inline orvane::TvlVoieOrvane& Voie() {
    return *orvane::InputChannels[0];
}

/// The calls since the last take, such as "OVAutoStop() OVAutoClear() ".
inline std::string Calls(std::string_view prefix = {}) {
    std::string text;
    for (const std::string& call : Console.CallsOf(prefix)) {
        text += call + " ";
    }
    Console.TakeCalls();
    return text;
}
