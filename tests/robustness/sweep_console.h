#pragma once

/// \file
/// What the sweeps of failures run over, and what has to be there again after each failure.

#include "channels/channel_lists.h"
#include "connection/console_memory.h"
#include "driver_exports.h"
#include "tests/support/scripted_console.h"

#include <gmock/gmock.h>

#include <string>

/// A console that has one of everything, never seen before by the driver.
inline void MakeConsole(uint16_t model) {
    Console = {};
    Console.Recording = false;
    Console.Model = model;
    Console.Memory.assign(32768, 0);
    Console.Memory[7175] = 1; // A radio configuration, on channel 20.
    Console.Memory[7178] = 20;
    orvane::ConsoleMemoryLoaded = false;
    Console.Connectors[0].Channels = {OutputChannel("Sortie a", -1, 1), InputChannel("E", 0, 5)};
    ScriptedChannel labelled = InputChannel("U", -12, 12);
    labelled.Text = "Etiquette=3";
    labelled.Functions.push_back(
        Function("RMS", "U", "V", {Calibre("a", 0, 1), Calibre("b", 0, 2)}));
    for (ScriptedFunction& function : labelled.Functions) {
        SetText(function.Desc.Image.TypeImage, "bmp");
        function.Image = {'B', 'M', 0, 0, 0, 0, 0, 0, 0, 0, 54, 0, 0, 0,  40,
                          0,   0,   0, 1, 0, 0, 0, 1, 0, 0, 0,  1, 0, 24, 0};
        function.Image.resize(58);
    }
    ScriptedChannel state = StateChannel("Reglage=4");
    state.Functions = labelled.Functions;
    Console.Connectors[1] = Adapter(
        "482080", {labelled, AdjustmentChannel("Reglage=4"), state, PlainChannel("V", 2, 1)});
    Console.Connectors[2] =
        Adapter("482060", std::vector<ScriptedChannel>(8, InputChannel("Gate", 0, 1)), 21);
    Console.Connectors[3] = Adapter("482109", {InputChannel("Flow", -20, 20)});
    Console.Log = {{1, 0}, {2, 0}};
}

/// Names, units, limits and links as the host and the driver see them after a fresh start.
inline std::string ChannelsAfterStart(uint16_t model) {
    MakeConsole(model);
    EXPECT_TRUE(StartDll(0, "", "fr", 0));
    VerifCanaux();
    std::string text;
    for (int index = 0; index < CombienDeCanauxEnEntree(); ++index) {
        const orvane::TvlVoieOrvane& voie = *orvane::InputChannels[static_cast<std::size_t>(index)];
        text += QuelNomPour(index, 0).utf8_string() + QuelUnitePour(index).utf8_string() +
                std::to_string(QuelMaxPour(index)) + " " + std::to_string(voie.VoieReglage) +
                std::to_string(voie.VoieEtat) + std::to_string(voie.ModeReglage) + "; ";
    }
    return text + std::to_string(CombienDeCanauxEnSortie());
}

/// Whether a fresh start finds everything again.
inline void ExpectRecovery(uint16_t model, const std::string& channels) {
    ASSERT_EQ(ChannelsAfterStart(model), channels);
    EXPECT_EQ(InitAcqBuff(1e-3, 10, 3, 0), 1e-3);
    StartAcqBuff(0, 0, 0.0, 0);
    EXPECT_TRUE(TestFinAcq());
    StopAcqBuff();
    StopDll();
}
