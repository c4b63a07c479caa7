// The port operations over the scripted console.

#include "console/port_operations.h"
#include "tests/support/scripted_console.h"

#include <bitset>
#include <charconv>
#include <concepts>

namespace {

template <typename T>
requires std::integral<T> || std::is_enum_v<T> std::string TextOf(T value) {
    return std::to_string(static_cast<int64_t>(value));
}

std::string TextOf(std::floating_point auto value) {
    char text[32];
    return {text, std::to_chars(text, text + sizeof text, value).ptr};
}

std::string TextOf(const char* text) {
    return text != nullptr ? '"' + std::string(text) + '"' : "null";
}

std::string TextOf(const wxString& text) {
    return TextOf(text.utf8_str().data());
}

template <typename... Args> std::string TextOf(void (*callback)(Args...)) {
    return callback != nullptr ? "callback" : "null";
}

std::string TextOf(const tConsoleInterfaceId& id) {
    std::string text;
    for (const uint8_t octet : id.Octets) {
        for (const int digit : {octet >> 4, octet & 15}) {
            text += "0123456789ABCDEF"[digit];
        }
    }
    return text;
}

/// Where an answer or samples lie, which a record leaves out.
template <typename T>
constexpr bool IsBuffer = std::is_pointer_v<T> && !std::is_function_v<std::remove_pointer_t<T>> &&
                          !std::is_same_v<T, const char*>;

struct TextOfCall {
    const char* Operation;

    template <typename... Args> std::string operator()(const Args&... args) const {
        std::string text = Operation + std::string("(");
        [[maybe_unused]] const auto append = [&text]<typename T>(const T& arg) {
            if constexpr (!IsBuffer<T>) {
                text += (text.back() == '(' ? "" : ", ") + TextOf(arg);
            }
        };
        (append(args), ...);
        return text + ")";
    }
};

template <typename Node> Node* At(std::vector<Node>& nodes, std::size_t index) {
    return index < nodes.size() ? &nodes[index] : nullptr;
}

ScriptedAdapter* FindAdapter(uint8_t connector) {
    const auto found = Console.Connectors.find(connector);
    return found != Console.Connectors.end() ? &found->second : nullptr;
}

ScriptedChannel* FindChannel(uint8_t connector, uint8_t channel) {
    ScriptedAdapter* adapter = FindAdapter(connector);
    return adapter != nullptr ? At(adapter->Channels, channel) : nullptr;
}

ScriptedFunction* FindFunction(uint8_t connector, uint8_t channel, uint8_t function) {
    ScriptedChannel* found = FindChannel(connector, channel);
    return found != nullptr ? At(found->Functions, function) : nullptr;
}

/// The true count or size, unless the test set another.
template <typename T> void FillCount(T& count, std::size_t trueCount) {
    if (count == 0) {
        count = static_cast<T>(trueCount);
    }
}

/// As much of the content as there is and as there is room for.
template <typename Content, typename T>
void CopyContent(const Content& content, T* buffer, uint32_t size) {
    std::copy_n(content.begin(), std::min<std::size_t>(size, content.size()), buffer);
}

double SampleOf(const ScriptedChannel& found, uint8_t connector, uint8_t channel, uint32_t index) {
    return Console.Sample ? Console.Sample(connector, channel, index) : found.Value;
}

/// Lets `write` answer from a node of the tree, if it is there.
template <typename Node, typename Write> bool Answer(Node* node, Write write) {
    if (node == nullptr) {
        return Console.AcceptBeyond;
    }
    write(*node);
    return true;
}

/// Leaves the console unlocked for a callback.
struct Unlocked {
    Unlocked() {
        Mutex->unlock();
    }
    ~Unlocked() {
        Mutex->lock();
    }
    Unlocked(const Unlocked&) = delete;
    Unlocked& operator=(const Unlocked&) = delete;

    std::recursive_mutex* Mutex = ScriptedConsole::Lock().mutex();
};

} // namespace

#pragma GCC diagnostic ignored "-Wunused-parameter"

/// The answer of an operation that has none below: yes.
namespace accepting {
#define ACCEPT(result, name, parameters, arguments)                                                \
    inline result name parameters {                                                                \
        return result(true);                                                                       \
    }
ORVANE_PORT_OPERATIONS(ACCEPT)
} // namespace accepting

/// What an operation answers that is not to fail, under the lock.
namespace answers {

using namespace accepting;

inline int OVCountInterfaces(int kind) {
    return Console.InterfaceCount;
}
inline bool OVGetInterfaces(tInterfaceInfo* info, uint8_t capacity, uint32_t kind, uint8_t* found) {
    if (capacity == 0) {
        return false;
    }
    info->Modele = Console.Model;
    *found = Console.InterfacesFound;
    return true;
}
inline void OVReadInterfaceState(uint8_t* a, uint8_t* b) {
    *a = *b = 0;
}
inline bool OVReadInterfaceFlags(uint8_t* a, uint8_t* b) {
    *a = *b = 0;
    return true;
}
inline bool OVGetInterfaceDesc(tInterfaceDesc* desc) {
    *desc = Console.InterfaceDesc;
    if (const ScriptedAdapter* console = FindAdapter(0)) {
        FillCount(desc->NbVoiesEnumerees, console->Channels.size());
    }
    return true;
}
inline void OVSetPlugCallback(tPlugCallback callback) {
    Console.PlugCallback = callback;
    if (callback == nullptr || !Console.ReportOnRegistration) {
        return;
    }
    std::bitset<256> occupied;
    for (const auto& [connector, adapter] : Console.Connectors) {
        occupied.set(connector);
    }
    const Unlocked unlocked;
    for (unsigned connector = 1; connector < occupied.size(); ++connector) {
        if (occupied.test(connector)) {
            callback(static_cast<uint8_t>(connector), true);
        }
    }
}

inline bool OVGetMemorySize(uint8_t connector, int area, uint32_t* size) {
    *size = Console.MemorySize.value_or(static_cast<uint32_t>(Console.Memory.size()));
    return true;
}
inline bool OVReadMemory(uint8_t connector, int area, void* buffer, uint32_t size) {
    CopyContent(Console.Memory, static_cast<uint8_t*>(buffer), size);
    return true;
}

inline bool OVGetAdapterDesc(uint8_t connector, tAdapterDesc* desc) {
    return Answer(FindAdapter(connector), [&](const ScriptedAdapter& adapter) {
        *desc = adapter.Desc;
        FillCount(desc->NbVoies, adapter.Channels.size());
    });
}
inline bool OVGetChannelDesc(uint8_t connector, uint8_t channel, tChannelDesc* desc) {
    return Answer(FindChannel(connector, channel), [&](const ScriptedChannel& found) {
        *desc = found.Desc;
        FillCount(desc->NbFonctions, found.Functions.size());
        FillCount(desc->TailleTexte, found.Text.size());
    });
}
inline bool OVGetFunctionDesc(uint8_t connector, uint8_t channel, uint8_t function,
                              tFunctionDesc* desc) {
    return Answer(FindFunction(connector, channel, function), [&](const auto& found) {
        *desc = found.Desc;
        FillCount(desc->NbCalibres, found.Calibres.size());
        FillCount(desc->Image.TailleImage, found.Image.size());
    });
}
inline bool OVGetCalibreDesc(uint8_t connector, uint8_t channel, uint8_t function, uint8_t calibre,
                             tCalibreDesc* desc) {
    ScriptedFunction* found = FindFunction(connector, channel, function);
    return Answer(found != nullptr ? At(found->Calibres, calibre) : nullptr,
                  [&](const tCalibreDesc& told) { *desc = told; });
}
inline bool OVSelectFunction(uint8_t connector, uint8_t channel, uint8_t function) {
    return Answer(FindFunction(connector, channel, function), [&](const ScriptedFunction&) {
        FindChannel(connector, channel)->Desc.FonctionCourante = function;
    });
}
inline bool OVSelectCalibre(uint8_t connector, uint8_t channel, uint8_t calibre) {
    ScriptedChannel* found = FindChannel(connector, channel);
    ScriptedFunction* selected =
        found != nullptr ? At(found->Functions, found->Desc.FonctionCourante) : nullptr;
    const bool there = selected != nullptr && calibre < selected->Calibres.size();
    return Answer(there ? selected : nullptr,
                  [&](ScriptedFunction& function) { function.Desc.CalibreCourant = calibre; });
}

inline bool OVReadChannelText(uint8_t connector, uint8_t channel, char* buffer, uint32_t size) {
    return Answer(FindChannel(connector, channel),
                  [&](const ScriptedChannel& found) { CopyContent(found.Text, buffer, size); });
}
inline bool OVReadFunctionImage(uint8_t connector, uint8_t channel, uint8_t function,
                                uint8_t* buffer, uint32_t size) {
    return Answer(FindFunction(connector, channel, function),
                  [&](const auto& found) { CopyContent(found.Image, buffer, size); });
}
inline bool OVSetCalibrationValue(uint8_t connector, uint8_t channel, uint32_t point, float value) {
    return Answer(FindChannel(connector, channel), [](const ScriptedChannel&) {});
}
inline bool OVReadValue(uint8_t connector, uint8_t channel, uint32_t count, uint32_t reserved,
                        double* value) {
    return Answer(FindChannel(connector, channel),
                  [&](const ScriptedChannel& found) { *value = found.Value; });
}

inline bool OVAutoAddChannel(uint8_t connector, uint8_t channel) {
    return Answer(FindChannel(connector, channel), [](const ScriptedChannel&) {});
}
inline bool OVAutoConfigAcq(uint32_t dt, uint32_t nbPoints) {
    Console.ConfiguredDt = dt;
    Console.ConfiguredPoints = nbPoints;
    return true;
}
inline bool OVAutoGetDt(uint32_t* dt) {
    *dt = Console.Dt.value_or(Console.ConfiguredDt);
    return true;
}
inline bool OVAutoConfigSynchro(uint8_t connector, uint8_t channel, int edge, uint32_t reserved,
                                double threshold, uint8_t* synchroId) {
    *synchroId = Console.SynchroId;
    return true;
}
inline bool OVAutoGetPointCount(uint8_t connector, uint8_t channel, uint32_t reserved,
                                uint32_t* count) {
    *count = Console.PointCount.value_or(Console.ConfiguredPoints);
    return true;
}
inline bool OVAutoGetPoint(uint8_t connector, uint8_t channel, uint32_t index, uint32_t reserved,
                           double* value) {
    return Answer(FindChannel(connector, channel), [&](const ScriptedChannel& found) {
        *value = SampleOf(found, connector, channel, index);
    });
}
inline bool OVAutoGetPoints(uint8_t connector, uint8_t channel, uint32_t first, uint32_t count,
                            double* values, uint32_t* got) {
    *got = Console.PointsGot.value_or(*got);
    return Answer(FindChannel(connector, channel), [&](const ScriptedChannel& found) {
        *got = Console.PointsGot.value_or(count);
        for (uint32_t i = 0; i < std::min(*got, count); ++i) {
            values[i] = SampleOf(found, connector, channel, first + i);
        }
    });
}
inline bool OVAutoGetLogCount(uint32_t* count) {
    *count = static_cast<uint32_t>(Console.Log.size());
    return true;
}
inline bool OVAutoGetLogEntry(int32_t entry, tLogEntry* logEntry) {
    // A negative entry becomes an index beyond every log.
    return Answer(At(Console.Log, static_cast<std::size_t>(entry)),
                  [&](const tLogEntry& logged) { *logEntry = logged; });
}

inline bool OVDacLoad(uint8_t connector, uint8_t channel, const double* values, int32_t count) {
    Console.DacLoads.emplace_back(values, values + std::max(count, 0));
    return true;
}
inline void OVRadioSetCallback(tRadioCallback callback) {
    Console.RadioCallback = callback;
}
inline bool OVRadioPing(uint8_t id, int32_t constantA, int32_t constantB, uint8_t* reply) {
    *reply = Console.PingReply;
    return true;
}

} // namespace answers

/// Allocates nothing where nothing is recorded.
#define RECORDED(result, name, parameters, arguments)                                              \
    result name parameters {                                                                       \
        const bool passed =                                                                        \
            Console.Enter(#name, Console.Recording ? TextOfCall{#name} arguments : "");            \
        const auto lock = ScriptedConsole::Lock();                                                 \
        return passed || std::is_void_v<result> ? answers::name arguments : result();              \
    }
ORVANE_PORT_OPERATIONS(RECORDED)
