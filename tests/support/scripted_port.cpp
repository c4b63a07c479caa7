// The port operations over the scripted console.

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

template <typename... Args> std::string TextOfCall(const char* operation, const Args&... args) {
    std::string text = operation + std::string("(");
    ((text += (text.back() == '(' ? "" : ", ") + TextOf(args)), ...);
    return text + ")";
}

/// One call on the port, recorded; holds the lock while it lives, once the hook has run. Allocates
/// nothing where nothing is recorded.
class PortCall {
public:
    template <typename... Args> explicit PortCall(const char* operation, const Args&... args) {
        passed = Console.Enter(operation, Console.Recording ? TextOfCall(operation, args...) : "");
        lock = ScriptedConsole::Lock();
    }

    /// False: the call is to fail.
    [[nodiscard]] bool Passed() const {
        return passed;
    }

    /// Lets `write` answer from a node of the tree, if it is there.
    template <typename Node, typename Write> bool Answer(Node* node, Write write) const {
        if (!passed || node == nullptr) {
            return passed && Console.AcceptBeyond;
        }
        write(*node);
        return true;
    }

    template <typename T> bool Give(T* out, T value) const {
        if (passed) {
            *out = value;
        }
        return passed;
    }

    void Unlock() {
        lock.unlock();
    }

private:
    bool passed = false;
    std::unique_lock<std::recursive_mutex> lock;
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

} // namespace

bool OVStartLibrary(const wxString& contexte, const wxString& langue) {
    return PortCall("OVStartLibrary", contexte, langue).Passed();
}
bool OVOpen(tConsoleInterfaceId interfaceId) {
    return PortCall("OVOpen", interfaceId).Passed();
}
bool OVSetLanguage(int code) {
    return PortCall("OVSetLanguage", code).Passed();
}
bool OVSetDataFolder(const char* folder) {
    return PortCall("OVSetDataFolder", folder).Passed();
}
int OVCountInterfaces(int kind) {
    return PortCall("OVCountInterfaces", kind).Passed() ? Console.InterfaceCount : 0;
}
bool OVGetInterfaces(tInterfaceInfo* info, uint8_t capacity, uint32_t kind, uint8_t* found) {
    const PortCall call("OVGetInterfaces", capacity, kind);
    return capacity != 0 && call.Give(&info->Modele, Console.Model) &&
           call.Give(found, Console.InterfacesFound);
}
bool OVConnect(uint8_t interfaceIndex) {
    return PortCall("OVConnect", interfaceIndex).Passed();
}
void OVReadInterfaceState(uint8_t* a, uint8_t* b) {
    const PortCall call("OVReadInterfaceState");
    *a = *b = 0;
}
bool OVReadInterfaceFlags(uint8_t* a, uint8_t* b) {
    const PortCall call("OVReadInterfaceFlags");
    return call.Give<uint8_t>(a, 0) && call.Give<uint8_t>(b, 0);
}
bool OVGetInterfaceDesc(tInterfaceDesc* desc) {
    const PortCall call("OVGetInterfaceDesc");
    tInterfaceDesc told = Console.InterfaceDesc;
    if (const ScriptedAdapter* console = FindAdapter(0)) {
        FillCount(told.NbVoiesEnumerees, console->Channels.size());
    }
    return call.Give(desc, told);
}
void OVSetPlugCallback(tPlugCallback callback) {
    PortCall call("OVSetPlugCallback", callback);
    Console.PlugCallback = callback;
    if (callback == nullptr || !Console.ReportOnRegistration) {
        return;
    }
    std::bitset<256> occupied;
    for (const auto& [connector, adapter] : Console.Connectors) {
        occupied.set(connector);
    }
    call.Unlock();
    for (unsigned connector = 1; connector < occupied.size(); ++connector) {
        if (occupied.test(connector)) {
            callback(static_cast<uint8_t>(connector), true);
        }
    }
}
extern "C" void ShutdownConsole() {
    const PortCall call("ShutdownConsole");
}
void OVRelease() {
    const PortCall call("OVRelease");
}

bool OVSelectMemory(uint8_t connector) {
    return PortCall("OVSelectMemory", connector).Passed();
}
bool OVGetMemorySize(uint8_t connector, int area, uint32_t* size) {
    const PortCall call("OVGetMemorySize", connector, area);
    const auto trueSize = static_cast<uint32_t>(Console.Memory.size());
    return call.Give(size, Console.MemorySize.value_or(trueSize));
}
bool OVReadMemory(uint8_t connector, int area, void* buffer, uint32_t size) {
    const PortCall call("OVReadMemory", connector, area, size);
    return call.Answer(&Console.Memory, [&](const auto& memory) {
        CopyContent(memory, static_cast<uint8_t*>(buffer), size);
    });
}

bool OVGetAdapterDesc(uint8_t connector, tAdapterDesc* desc) {
    const PortCall call("OVGetAdapterDesc", connector);
    return call.Answer(FindAdapter(connector), [&](const ScriptedAdapter& adapter) {
        *desc = adapter.Desc;
        FillCount(desc->NbVoies, adapter.Channels.size());
    });
}
bool OVGetChannelDesc(uint8_t connector, uint8_t channel, tChannelDesc* desc) {
    const PortCall call("OVGetChannelDesc", connector, channel);
    return call.Answer(FindChannel(connector, channel), [&](const ScriptedChannel& found) {
        *desc = found.Desc;
        FillCount(desc->NbFonctions, found.Functions.size());
        FillCount(desc->TailleTexte, found.Text.size());
    });
}
bool OVGetFunctionDesc(uint8_t connector, uint8_t channel, uint8_t function, tFunctionDesc* desc) {
    const PortCall call("OVGetFunctionDesc", connector, channel, function);
    return call.Answer(FindFunction(connector, channel, function), [&](const auto& found) {
        *desc = found.Desc;
        FillCount(desc->NbCalibres, found.Calibres.size());
        FillCount(desc->Image.TailleImage, found.Image.size());
    });
}
bool OVGetCalibreDesc(uint8_t connector, uint8_t channel, uint8_t function, uint8_t calibre,
                      tCalibreDesc* desc) {
    const PortCall call("OVGetCalibreDesc", connector, channel, function, calibre);
    ScriptedFunction* found = FindFunction(connector, channel, function);
    return call.Answer(found != nullptr ? At(found->Calibres, calibre) : nullptr,
                       [&](const tCalibreDesc& told) { *desc = told; });
}
bool OVSelectFunction(uint8_t connector, uint8_t channel, uint8_t function) {
    const PortCall call("OVSelectFunction", connector, channel, function);
    return call.Answer(FindFunction(connector, channel, function), [&](const ScriptedFunction&) {
        FindChannel(connector, channel)->Desc.FonctionCourante = function;
    });
}
bool OVSelectCalibre(uint8_t connector, uint8_t channel, uint8_t calibre) {
    const PortCall call("OVSelectCalibre", connector, channel, calibre);
    ScriptedChannel* found = FindChannel(connector, channel);
    ScriptedFunction* selected =
        found != nullptr ? At(found->Functions, found->Desc.FonctionCourante) : nullptr;
    const bool there = selected != nullptr && calibre < selected->Calibres.size();
    return call.Answer(there ? selected : nullptr,
                       [&](ScriptedFunction& function) { function.Desc.CalibreCourant = calibre; });
}

bool OVReadChannelText(uint8_t connector, uint8_t channel, char* buffer, uint32_t size) {
    const PortCall call("OVReadChannelText", connector, channel, size);
    return call.Answer(FindChannel(connector, channel), [&](const ScriptedChannel& found) {
        CopyContent(found.Text, buffer, size);
    });
}
bool OVReadFunctionImage(uint8_t connector, uint8_t channel, uint8_t function, uint8_t* buffer,
                         uint32_t size) {
    const PortCall call("OVReadFunctionImage", connector, channel, function, size);
    return call.Answer(FindFunction(connector, channel, function),
                       [&](const auto& found) { CopyContent(found.Image, buffer, size); });
}
bool OVWriteAdjustment(uint8_t connector, int32_t channel, double value) {
    return PortCall("OVWriteAdjustment", connector, channel, value).Passed();
}
bool OVCalibrationStart(uint8_t connector, uint8_t channel) {
    return PortCall("OVCalibrationStart", connector, channel).Passed();
}
bool OVCalibrationAbort(uint8_t connector, uint8_t channel) {
    return PortCall("OVCalibrationAbort", connector, channel).Passed();
}
bool OVCalibrationDefault(uint8_t connector, uint8_t channel) {
    return PortCall("OVCalibrationDefault", connector, channel).Passed();
}
bool OVSetCalibrationValue(uint8_t connector, uint8_t channel, uint32_t point, float value) {
    const PortCall call("OVSetCalibrationValue", connector, channel, point, value);
    return call.Answer(FindChannel(connector, channel), [](const ScriptedChannel&) {});
}

bool OVReadValue(uint8_t connector, uint8_t channel, uint32_t count, uint32_t reserved,
                 double* value) {
    const PortCall call("OVReadValue", connector, channel, count, reserved);
    return call.Answer(FindChannel(connector, channel),
                       [&](const ScriptedChannel& found) { *value = found.Value; });
}

bool OVAutoStop() {
    return PortCall("OVAutoStop").Passed();
}
bool OVAutoClear() {
    return PortCall("OVAutoClear").Passed();
}
void OVAutoReset() {
    const PortCall call("OVAutoReset");
}
bool OVAutoAddChannel(uint8_t connector, uint8_t channel) {
    const PortCall call("OVAutoAddChannel", connector, channel);
    return call.Answer(FindChannel(connector, channel), [](const ScriptedChannel&) {});
}
bool OVAutoConfigAcq(uint32_t dt, uint32_t nbPoints) {
    const PortCall call("OVAutoConfigAcq", dt, nbPoints);
    return call.Give(&Console.ConfiguredDt, dt) && call.Give(&Console.ConfiguredPoints, nbPoints);
}
bool OVAutoGetDt(uint32_t* dt) {
    const PortCall call("OVAutoGetDt");
    return call.Give(dt, Console.Dt.value_or(Console.ConfiguredDt));
}
bool OVAutoConfigSynchro(uint8_t connector, uint8_t channel, int edge, uint32_t reserved,
                         double threshold, uint8_t* synchroId) {
    const PortCall call("OVAutoConfigSynchro", connector, channel, edge, reserved, threshold);
    return call.Give(synchroId, Console.SynchroId);
}
bool OVAutoEnableSynchro(uint8_t synchroId) {
    return PortCall("OVAutoEnableSynchro", synchroId).Passed();
}
bool OVAutoSetPreSynchro(uint8_t synchroId, uint32_t nbPoints) {
    return PortCall("OVAutoSetPreSynchro", synchroId, nbPoints).Passed();
}
bool OVAutoStart() {
    return PortCall("OVAutoStart").Passed();
}
bool OVAutoGetPointCount(uint8_t connector, uint8_t channel, uint32_t reserved, uint32_t* count) {
    const PortCall call("OVAutoGetPointCount", connector, channel, reserved);
    return call.Give(count, Console.PointCount.value_or(Console.ConfiguredPoints));
}
bool OVAutoGetPoint(uint8_t connector, uint8_t channel, uint32_t index, uint32_t reserved,
                    double* value) {
    const PortCall call("OVAutoGetPoint", connector, channel, index, reserved);
    return call.Answer(FindChannel(connector, channel), [&](const ScriptedChannel& found) {
        *value = Console.Sample ? Console.Sample(connector, channel, index) : found.Value;
    });
}
bool OVAutoConfigLog(uint32_t nbEntries) {
    return PortCall("OVAutoConfigLog", nbEntries).Passed();
}
bool OVAutoGetLogCount(uint32_t* count) {
    const PortCall call("OVAutoGetLogCount");
    return call.Give(count, static_cast<uint32_t>(Console.Log.size()));
}
bool OVAutoGetLogEntry(int32_t entry, tLogEntry* logEntry) {
    const PortCall call("OVAutoGetLogEntry", entry);
    // A negative entry becomes an index beyond every log.
    return call.Answer(At(Console.Log, static_cast<std::size_t>(entry)),
                       [&](const tLogEntry& logged) { *logEntry = logged; });
}

bool OVDacStop(uint8_t connector, uint8_t channel) {
    return PortCall("OVDacStop", connector, channel).Passed();
}
bool OVDacClear(uint8_t connector, uint8_t channel) {
    return PortCall("OVDacClear", connector, channel).Passed();
}
bool OVDacConfig(uint8_t connector, uint8_t channel, uint32_t dt, int32_t count, int oneShot) {
    return PortCall("OVDacConfig", connector, channel, dt, count, oneShot).Passed();
}
bool OVDacLoad(uint8_t connector, uint8_t channel, const double* values, int32_t count) {
    const PortCall call("OVDacLoad", connector, channel, count);
    return call.Answer(&Console.DacLoads, [&](auto& loads) {
        if (Console.Recording) {
            loads.emplace_back(values, values + std::max(count, 0));
        }
    });
}
bool OVDacStart(uint8_t connector, uint8_t channel) {
    return PortCall("OVDacStart", connector, channel).Passed();
}
bool OVDacWrite(uint8_t connector, uint8_t channel, double value) {
    return PortCall("OVDacWrite", connector, channel, value).Passed();
}

void OVRadioSetCallback(tRadioCallback callback) {
    const PortCall call("OVRadioSetCallback", callback);
    Console.RadioCallback = callback;
}
bool OVRadioSetConfig(tRadioDeviceType type, uint8_t radioChannel, int32_t constant) {
    return PortCall("OVRadioSetConfig", type, radioChannel, constant).Passed();
}
bool OVRadioSetLevel(int8_t level) {
    return PortCall("OVRadioSetLevel", level).Passed();
}
bool OVRadioSetMode(tRadioMode mode) {
    return PortCall("OVRadioSetMode", mode).Passed();
}
bool OVRadioAcceptDevice(int32_t index) {
    return PortCall("OVRadioAcceptDevice", index).Passed();
}
bool OVRadioReleaseDevice(int32_t index) {
    return PortCall("OVRadioReleaseDevice", index).Passed();
}
bool OVRadioPing(uint8_t id, int32_t constantA, int32_t constantB, uint8_t* reply) {
    const PortCall call("OVRadioPing", id, constantA, constantB);
    return call.Give(reply, Console.PingReply);
}
