// The port operations over the scripted console.

#include "console/port_operations.h"
#include "tests/support/scripted_console.h"

#include <charconv>

namespace {

/// Where an answer or samples lie, which a record leaves out.
template <typename T>
constexpr bool IsBuffer = std::is_pointer_v<T> && !std::is_function_v<std::remove_pointer_t<T>> &&
                          !std::is_same_v<T, const char*>;

template <typename T> std::string TextOf(const T& value) {
    if constexpr (std::is_same_v<T, wxString>) {
        return '"' + value.utf8_string() + '"';
    } else if constexpr (std::is_same_v<T, const char*>) {
        return '"' + std::string(value) + '"';
    } else if constexpr (std::is_same_v<T, tConsoleInterfaceId>) {
        wxString text;
        for (const uint8_t octet : value.Octets) {
            text += wxString::Format("%02X", octet);
        }
        return text.utf8_string();
    } else if constexpr (std::is_floating_point_v<T>) {
        char text[32];
        return {text, std::to_chars(text, text + sizeof text, value).ptr};
    } else if constexpr (std::is_pointer_v<T>) {
        return value != nullptr ? "callback" : "null";
    } else {
        return std::to_string(static_cast<int64_t>(value));
    }
}

template <typename... Args> std::string TextOfArguments(const Args&... args) {
    std::string text;
    ((text += IsBuffer<Args> ? "" : ", " + TextOf(args)), ...);
    return '(' + text.erase(0, 2) + ')';
}

/// A child of a node; null where either is not there.
template <typename Node, typename Child>
Child* ChildOf(Node* node, std::vector<Child> Node::*children, std::size_t index) {
    return node != nullptr && index < (node->*children).size() ? &(node->*children)[index]
                                                               : nullptr;
}

ScriptedAdapter* Find(uint8_t connector) {
    const auto found = Console.Connectors.find(connector);
    return found != Console.Connectors.end() ? &found->second : nullptr;
}
ScriptedChannel* Find(uint8_t connector, uint8_t channel) {
    return ChildOf(Find(connector), &ScriptedAdapter::Channels, channel);
}
ScriptedFunction* Find(uint8_t connector, uint8_t channel, uint8_t function) {
    return ChildOf(Find(connector, channel), &ScriptedChannel::Functions, function);
}
tCalibreDesc* Find(uint8_t connector, uint8_t channel, uint8_t function, uint8_t calibre) {
    return ChildOf(Find(connector, channel, function), &ScriptedFunction::Calibres, calibre);
}

/// Lets `write` answer from a node of the tree, if it is there.
template <typename Node, typename Write> bool Answer(Node* node, Write write) {
    if (node == nullptr) {
        return Console.AcceptBeyond;
    }
    write(*node);
    return true;
}

bool IsThere(const auto* node) {
    return node != nullptr || Console.AcceptBeyond;
}

bool Put(auto value, auto* where) {
    *where = value;
    return true;
}

/// The true count or size, unless the test set another.
template <typename T> void FillCount(T& count, std::size_t trueCount) {
    if (count == 0) {
        count = static_cast<T>(trueCount);
    }
}

/// As much of the content as there is and as there is room for.
bool Copy(const auto& content, auto* buffer, uint32_t size) {
    std::copy_n(content.begin(), std::min<std::size_t>(size, content.size()), buffer);
    return true;
}

double SampleOf(const ScriptedChannel& found, uint8_t connector, uint8_t channel, uint32_t index) {
    return Console.Sample ? Console.Sample(connector, channel, index) : found.Value;
}

} // namespace

/// The answer of an operation that has none below: yes.
namespace accepting {
#define ACCEPT(result, name, parameters, arguments)                                                \
    inline constexpr auto name = [](const auto&...) { return result(true); };
ORVANE_PORT_OPERATIONS(ACCEPT)
} // namespace accepting

/// What an operation answers that is not to fail, under the lock.
namespace answers {

using namespace accepting;

inline constexpr auto OVCountInterfaces = [](int) { return Console.InterfaceCount; };
inline constexpr auto OVGetInterfaces = [](tInterfaceInfo* info, auto, auto, uint8_t* found) {
    info->Modele = Console.Model;
    return Put(Console.InterfacesFound, found);
};
inline constexpr auto OVGetInterfaceDesc = [](tInterfaceDesc* desc) {
    *desc = Console.InterfaceDesc;
    FillCount(desc->NbVoiesEnumerees, Console.Connectors[0].Channels.size());
    return true;
};
inline constexpr auto OVSetPlugCallback = [](tPlugCallback callback) {
    Console.PlugCallback = callback;
    auto* const mutex = ScriptedConsole::Lock().mutex();
    for (unsigned connector = 1; callback != nullptr && connector < 256; ++connector) {
        if (Find(static_cast<uint8_t>(connector)) != nullptr) {
            mutex->unlock(); // The driver may want its own lock in the callback.
            callback(static_cast<uint8_t>(connector), true);
            mutex->lock();
        }
    }
};

inline constexpr auto OVGetMemorySize = [](auto, auto, uint32_t* size) {
    return Put(Console.MemorySize.value_or(static_cast<uint32_t>(Console.Memory.size())), size);
};
inline constexpr auto OVReadMemory = [](auto, auto, void* buffer, uint32_t size) {
    return Copy(Console.Memory, static_cast<uint8_t*>(buffer), size);
};

inline constexpr auto OVGetAdapterDesc = [](uint8_t connector, tAdapterDesc* desc) {
    return Answer(Find(connector), [&](const ScriptedAdapter& found) {
        *desc = found.Desc;
        FillCount(desc->NbVoies, found.Channels.size());
    });
};
inline constexpr auto OVGetChannelDesc = [](auto connector, auto channel, tChannelDesc* desc) {
    return Answer(Find(connector, channel), [&](const ScriptedChannel& found) {
        *desc = found.Desc;
        FillCount(desc->NbFonctions, found.Functions.size());
        FillCount(desc->TailleTexte, found.Text.size());
    });
};
inline constexpr auto OVGetFunctionDesc = [](auto connector, auto channel, auto function,
                                             tFunctionDesc* desc) {
    return Answer(Find(connector, channel, function), [&](const ScriptedFunction& found) {
        *desc = found.Desc;
        FillCount(desc->NbCalibres, found.Calibres.size());
        FillCount(desc->Image.TailleImage, found.Image.size());
    });
};
inline constexpr auto OVGetCalibreDesc = [](auto connector, auto channel, auto function,
                                            auto calibre, tCalibreDesc* desc) {
    return Answer(Find(connector, channel, function, calibre),
                  [&](const tCalibreDesc& found) { *desc = found; });
};
inline constexpr auto OVSelectFunction = [](auto connector, auto channel, auto function) {
    return Answer(Find(connector, channel, function), [&](const ScriptedFunction&) {
        Find(connector, channel)->Desc.FonctionCourante = function;
    });
};
inline constexpr auto OVSelectCalibre = [](auto connector, auto channel, auto calibre) {
    const ScriptedChannel* found = Find(connector, channel);
    const uint8_t function = found != nullptr ? found->Desc.FonctionCourante : uint8_t{0};
    return Answer(Find(connector, channel, function, calibre), [&](const tCalibreDesc&) {
        Find(connector, channel, function)->Desc.CalibreCourant = calibre;
    });
};
inline constexpr auto OVReadChannelText = [](auto connector, auto channel, auto... buffer) {
    return Answer(Find(connector, channel),
                  [&](const auto& found) { Copy(found.Text, buffer...); });
};
inline constexpr auto OVReadFunctionImage = [](auto connector, auto channel, auto function,
                                               auto... buffer) {
    return Answer(Find(connector, channel, function),
                  [&](const auto& found) { Copy(found.Image, buffer...); });
};
inline constexpr auto OVSetCalibrationValue = [](auto connector, auto channel, auto, auto) {
    return IsThere(Find(connector, channel));
};
inline constexpr auto OVReadValue = [](auto connector, auto channel, auto, auto, double* value) {
    return Answer(Find(connector, channel), [&](const auto& found) { *value = found.Value; });
};

inline constexpr auto OVAutoAddChannel = [](auto connector, auto channel) {
    return IsThere(Find(connector, channel));
};
inline constexpr auto OVAutoConfigAcq = [](uint32_t dt, uint32_t nbPoints) {
    return Put(dt, &Console.ConfiguredDt) && Put(nbPoints, &Console.ConfiguredPoints);
};
inline constexpr auto OVAutoGetDt = [](uint32_t* dt) {
    return Put(Console.Dt.value_or(Console.ConfiguredDt), dt);
};
inline constexpr auto OVAutoConfigSynchro = [](auto, auto, auto, auto, auto, uint8_t* synchroId) {
    return Put(Console.SynchroId, synchroId);
};
inline constexpr auto OVAutoGetPointCount = [](auto, auto, auto, uint32_t* count) {
    return Put(Console.PointCount.value_or(Console.ConfiguredPoints), count);
};
inline constexpr auto OVAutoGetPoint = [](auto connector, auto channel, auto index, auto,
                                          double* value) {
    return Answer(Find(connector, channel), [&](const ScriptedChannel& found) {
        *value = SampleOf(found, connector, channel, index);
    });
};
inline constexpr auto OVAutoGetPoints = [](auto connector, auto channel, uint32_t first,
                                           uint32_t count, double* values, uint32_t* got) {
    *got = Console.PointsGot.value_or(*got);
    return Answer(Find(connector, channel), [&](const ScriptedChannel& found) {
        *got = Console.PointsGot.value_or(count);
        for (uint32_t i = 0; i < std::min(*got, count); ++i) {
            values[i] = SampleOf(found, connector, channel, first + i);
        }
    });
};
inline constexpr auto OVAutoGetLogCount = [](uint32_t* count) {
    return Put(static_cast<uint32_t>(Console.Log.size()), count);
};
inline constexpr auto OVAutoGetLogEntry = [](int32_t entry, tLogEntry* logEntry) {
    // A negative entry becomes an index beyond every log.
    return Answer(ChildOf(&Console, &ScriptedConsole::Log, static_cast<std::size_t>(entry)),
                  [&](const tLogEntry& logged) { *logEntry = logged; });
};

inline constexpr auto OVDacLoad = [](auto, auto, const double* values, int32_t count) {
    Console.DacLoads.emplace_back(values, values + std::max(count, 0));
    return true;
};
inline constexpr auto OVRadioSetCallback = [](tRadioCallback callback) {
    Console.RadioCallback = callback;
};
inline constexpr auto OVRadioPing = [](auto, auto, auto, uint8_t* reply) {
    return Put(Console.PingReply, reply);
};

} // namespace answers

/// Allocates nothing where nothing is recorded.
#define RECORDED(result, name, parameters, arguments)                                              \
    result name parameters {                                                                       \
        const bool passed =                                                                        \
            Console.Enter(#name, Console.Recording ? #name + TextOfArguments arguments : "");      \
        const auto lock = ScriptedConsole::Lock();                                                 \
        return passed || std::is_void_v<result> ? answers::name arguments : result();              \
    }
ORVANE_PORT_OPERATIONS(RECORDED)
