#pragma once

/// \file
/// The scripted console with a tree, answers, failures and events that the round's bytes choose.

#include "tests/fuzz/fuzz_input.h"
#include "tests/support/scripted_console.h"

/// Any text, now and then without a terminator. Drawn anew where it is long.
template <std::size_t N> void AnyText(char (&field)[N]) {
    SetText(field, AnyByte() % 8 == 7 ? std::string(N, static_cast<char>(AnyByte())) : AnyText());
}

inline ScriptedFunction AnyFunction() {
    ScriptedFunction function;
    tFunctionDesc& desc = function.Desc;
    AnyText(desc.Nom);
    AnyText(desc.Grandeur);
    AnyText(desc.Unite);
    AnyText(desc.Image.TypeImage);
    desc.Image.TailleImage = AnyInteger<uint32_t>();
    desc.TypeReglage = AnyInteger<uint8_t>();
    desc.NbVoiesLiees = AnyInteger<uint32_t>();
    desc.VoieLiee = AnyInteger<uint8_t>();
    desc.NbCalibres = AnyInteger<uint8_t>();
    desc.CalibreCourant = AnyInteger<uint8_t>();
    const std::string image = AnyText();
    function.Image.assign(image.begin(), image.end());
    for (unsigned calibres = AnyByte() % 4; calibres > 0; --calibres) {
        const std::string name = AnyText();
        const auto min = static_cast<float>(AnyDouble());
        function.Calibres.push_back(Calibre(name, min, static_cast<float>(AnyDouble())));
    }
    return function;
}

inline ScriptedChannel AnyChannel() {
    ScriptedChannel channel;
    tChannelDesc& desc = channel.Desc;
    AnyText(desc.Nom);
    AnyText(desc.Description);
    desc.Genre = AnyByte() % 4;
    desc.Sens = AnyByte() % 3;
    desc.TailleTexte = AnyInteger<uint32_t>() * 64U;
    desc.TempsMinNs = AnyInteger<uint32_t>();
    desc.PeriodeDefautNs = AnyInteger<uint32_t>();
    desc.NbFonctions = AnyInteger<uint8_t>();
    desc.FonctionCourante = AnyInteger<uint8_t>();
    channel.Text = AnyText();
    channel.Value = AnyDouble();
    for (unsigned functions = AnyByte() % 4; functions > 0; --functions) {
        channel.Functions.push_back(AnyFunction());
    }
    return channel;
}

inline ScriptedAdapter AnyAdapter() {
    ScriptedAdapter adapter;
    AnyText(adapter.Desc.Reference);
    adapter.Desc.ValeurAdaptateur = AnyByte() % 2 == 0 ? 21 : AnyInteger<uint32_t>();
    adapter.Desc.NbVoies = AnyInteger<uint8_t>();
    for (unsigned channels = AnyByte() % 12; channels > 0; --channels) {
        adapter.Channels.push_back(AnyChannel());
    }
    return adapter;
}

/// What the console says beside its tree.
inline void DrawAnswers() {
    constexpr uint16_t models[] = {12304, 12306, 12336, 12368, 0};
    const uint8_t model = AnyByte();
    Console.Model = models[model % std::size(models)];
    Console.AcceptBeyond = AnyByte() % 2 == 0;
    Console.InterfaceCount = AnyInteger<uint16_t>() + 1;
    Console.InterfacesFound = AnyInteger<uint8_t>();
    Console.InterfaceDesc.NbVoiesEnumerees = AnyInteger<uint8_t>();
    const std::string memory = AnyText();
    Console.Memory.assign(memory.begin(), memory.end());
    Console.MemorySize = AnyByte() % 2 == 0 ? 32768 : AnyInteger<uint32_t>();
    Console.Dt = AnyInteger<uint32_t>();
    Console.PointCount = AnyInteger<uint32_t>();
    Console.PointsGot = AnyInteger<uint32_t>();
    Console.SynchroId = AnyInteger<uint8_t>();
    Console.PingReply = AnyInteger<uint8_t>();
    Console.Log.assign(AnyByte() % 8, {AnyInteger<uint32_t>(), AnyInteger<uint32_t>()});
}

/// What happens inside a port call: nothing most of the time, or a failure, a new answer, an event.
inline void MayHappenInCall() {
    static int depth = 0; // A callback asks the console in its turn.
    const uint8_t byte = AnyByte();
    if (byte < 238 || depth > 1) {
        return;
    }
    ++depth;
    if (byte < 250) {
        Console.FailCall(0); // this one
    } else if (byte == 250) {
        const auto lock = ScriptedConsole::Lock();
        DrawAnswers();
    } else if (byte < 253) {
        Console.Plug(AnyInteger<uint8_t>(), AnyAdapter());
    } else if (byte == 253) {
        Console.Unplug(AnyInteger<uint8_t>());
    } else {
        const uint8_t id = AnyByte();
        Console.RadioEvent(id, static_cast<tRadioDeviceType>(AnyByte() % 4), byte == 255);
    }
    --depth;
}

inline void MakeAnyConsole() {
    Console = {};
    Console.Recording = false;
    for (unsigned connectors = 1 + AnyByte() % 4; connectors > 0; --connectors) {
        const auto connector = static_cast<uint8_t>(connectors - 1);
        Console.Connectors[connector] = AnyAdapter();
    }
    DrawAnswers();
    Console.OnCall = [](const std::string& /*operation*/) { MayHappenInCall(); };
}
