// Opens and closes the connection. The only file that depends on all parts that take part in a
// start or a stop.

#include "acquisition/acquisition_state.h"
#include "channels/adapter_map.h"
#include "connection/connection_state.h"
#include "connection/console_memory.h"
#include "connection/console_models.h"
#include "console/console_port.h"
#include "driver/data_folder.h"
#include "lifecycle_exports.h"
#include "platform/clock.h"
#include "platform/user_message.h"
#include "radio_exports.h"

#include <array>

namespace orvane {

namespace {

constexpr int interfaceKind = 2;
constexpr int maxWaits = 20;
constexpr unsigned long waitMilliseconds = 500;
constexpr int maxPasses = 6;

/// Opens the console, retrying until the waits of this start are used up.
bool OpenWithRetries(int& waits) {
    while (!OVOpen(ConsoleInterfaceId)) {
        if (++waits > maxWaits) {
            return false;
        }
        platform::Pause(waitMilliseconds);
    }
    return true;
}

void SendLanguageAndFolder() {
    OVSetLanguage(Connection.Langue == L"fr" ? 1 : 2);
    std::array<char, 512> folder{};
    FindDataFolder(folder.data(), static_cast<uint32_t>(folder.size()));
    OVSetDataFolder(folder.data());
}

/// Finds the one interface and reads its description.
bool FindInterface(tInterfaceInfo& info) {
    uint8_t found = 0;
    info = {};
    if (OVCountInterfaces(interfaceKind) < 1) {
        return false;
    }
    OVGetInterfaces(&info, 1, static_cast<uint32_t>(interfaceKind), &found);
    return found == 1;
}

/// Opens the console and connects to its interface, in up to `maxPasses` passes.
bool ConnectToConsole(tInterfaceInfo& info) {
    int waits = 0; // Counted over the whole start, not over one pass.
    for (int passes = 0;; ++passes) {
        if (passes != 0) {
            ShutdownConsole();
            OVRelease();
            if (passes >= maxPasses) {
                ShowUserMessage(L"Erreur au démarrage de l'interface");
                return false;
            }
        }
        if (!OpenWithRetries(waits)) {
            return false; // The next stop releases what the console still holds.
        }
        SendLanguageAndFolder();
        if (!FindInterface(info)) {
            OVRelease();
            return false;
        }
        if (OVConnect(0)) {
            return true;
        }
    }
}

void SetModel(uint16_t model) {
    Connection.ConsoleModel = model;
    if (IsKnownModel(model)) {
        Connection.NbPointPreSynchro = TraitsOf(model).NbPointPreSynchro;
    }
}

/// Reads the description of the connected console. One model needs its memory read before its
/// interface is described, the others after.
void ReadConsole(const tInterfaceInfo& info) {
    uint8_t a = 0;
    uint8_t b = 0;
    OVReadInterfaceState(&a, &b);
    SetModel(info.Modele);
    const bool memoryFirst = TraitsOf(Connection.ConsoleModel).MemoryFirst;
    if (memoryFirst) {
        LoadConsoleMemory();
    }
    a = b = 0;
    OVReadInterfaceFlags(&a, &b);
    OVGetInterfaceDesc(&Connection.InterfaceDesc);
    if (!memoryFirst) {
        LoadConsoleMemory();
    }
}

} // namespace

} // namespace orvane

using namespace orvane;

bool StartDll(uint32_t /*reserved*/, const wxString& contexte, const wxString& langue,
              int32_t dacParam) {
    Connection.DacParam = dacParam;
    Connection.Contexte = contexte;
    Connection.Langue = langue;
    StopDll();
    Connection.InterfaceDesc = {};
    if (!OVStartLibrary(Connection.Contexte, Connection.Langue)) {
        return false;
    }
    tInterfaceInfo info{};
    if (!ConnectToConsole(info)) {
        return false;
    }
    ReadConsole(info);
    if (TraitsOf(Connection.ConsoleModel).RadioNetwork) {
        StartO150();
    }
    OVSetPlugCallback(AdapterCb);
    return true;
}

void StopDll() {
    OVSetPlugCallback(nullptr);
    ClearAdapters();
    if (TraitsOf(Connection.ConsoleModel).RadioNetwork) {
        StopO150();
    }
    ShutdownConsole();
    OVRelease();
    ReleaseAcqBuffers();
}
