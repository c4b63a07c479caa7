#pragma once

/// \file
/// The scripted console with a tree, answers, failures and events that the round's bytes choose.

#include "tests/fuzz/fuzz_input.h"
#include "tests/support/scripted_console.h"

/// As many as a byte says, below `end`.
template <class Make> void AnyMany(unsigned end, Make make) {
    for (unsigned left = AnyByte() % end; left > 0; --left) {
        make();
    }
}

/// Any text, now and then without a terminator. Drawn anew where it is long.
template <std::size_t N> void AnyText(char (&field)[N]) {
    SetText(field, AnyByte() % 8 == 7 ? std::string(N, static_cast<char>(AnyByte())) : AnyText());
}

/// Any value in each field.
template <class... Integers> void AnyIntegers(Integers&... fields) {
    ((fields = AnyInteger<Integers>()), ...);
}

inline ScriptedFunction AnyFunction() {
    ScriptedFunction function;
    tFunctionDesc& desc = function.Desc;
    AnyText(desc.Nom);
    AnyText(desc.Grandeur);
    AnyText(desc.Unite);
    AnyText(desc.Image.TypeImage);
    AnyIntegers(desc.Image.TailleImage, desc.TypeReglage, desc.NbVoiesLiees, desc.VoieLiee,
                desc.NbCalibres, desc.CalibreCourant);
    const std::string image = AnyText();
    function.Image.assign(image.begin(), image.end());
    AnyMany(4, [&] {
        const std::string name = AnyText();
        const auto min = static_cast<float>(AnyDouble());
        function.Calibres.push_back(Calibre(name, min, static_cast<float>(AnyDouble())));
    });
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
    AnyIntegers(desc.TempsMinNs, desc.PeriodeDefautNs, desc.NbFonctions, desc.FonctionCourante);
    channel.Text = AnyText();
    channel.Value = AnyDouble();
    AnyMany(4, [&] { channel.Functions.push_back(AnyFunction()); });
    return channel;
}

inline ScriptedAdapter AnyAdapter() {
    ScriptedAdapter adapter;
    AnyText(adapter.Desc.Reference);
    adapter.Desc.ValeurAdaptateur = AnyByte() % 2 == 0 ? 21 : AnyInteger<uint32_t>();
    adapter.Desc.NbVoies = AnyInteger<uint8_t>();
    AnyMany(12, [&] { adapter.Channels.push_back(AnyChannel()); });
    return adapter;
}

/// What the console says beside its tree.
inline void DrawAnswers() {
    Console.Model = OneOf<uint16_t>(AnyByte(), 12304, 12306, 12336, 12368, 0);
    Console.AcceptBeyond = AnyByte() % 2 == 0;
    Console.InterfaceCount = AnyInteger<uint16_t>() + 1;
    AnyIntegers(Console.InterfacesFound, Console.InterfaceDesc.NbVoiesEnumerees);
    const std::string memory = AnyText();
    Console.Memory.assign(memory.begin(), memory.end());
    Console.MemorySize = AnyByte() % 2 == 0 ? 32768 : AnyInteger<uint32_t>();
    AnyIntegers(Console.Dt.emplace(), Console.PointCount.emplace(), Console.PointsGot.emplace(),
                Console.SynchroId, Console.PingReply);
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
