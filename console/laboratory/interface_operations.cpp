// The start and stop of the laboratory's console, its memory and what it says of itself.

#include "console/console_port.h"
#include "console/laboratory/acquisition.h"
#include "console/laboratory/console_clock.h"
#include "console/laboratory/console_memory.h"
#include "console/laboratory/faults.h"
#include "console/laboratory/gates.h"
#include "console/laboratory/laboratory_state.h"
#include "console/laboratory/pods.h"
#include "console/laboratory/scenario/scenario_reader.h"
#include "console/laboratory/timeline.h"
#include "console/text_fields.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <exception>

namespace orvane {

namespace {

using namespace laboratory;

constexpr int memoryArea = 2;
constexpr uint16_t modelWithRadio = 12336;

/// What is wrong goes to standard error, since a start only says that it failed.
bool Complain(const std::string& text) {
    std::fprintf(stderr, "%s\n", text.c_str());
    return false;
}

std::string Environment(const char* name) {
    const char* value = std::getenv(name);
    return value != nullptr ? value : "";
}

/// The scenario's name or file: of the context, else of the environment, else the school's.
std::string WantedScenario(const wxString& contexte) {
    wxString rest;
    if (contexte.StartsWith("scenario=", &rest)) {
        return rest.utf8_string();
    }
    const std::string named = Environment("ORVANE_SCENARIO");
    return named.empty() ? "school" : named;
}

bool Load(const wxString& contexte) {
    ScenarioReading reading = LoadScenario(WantedScenario(contexte));
    for (const std::string& error : reading.Errors) {
        Complain(error);
    }
    if (!reading.Errors.empty()) {
        return false;
    }
    const std::string mode = Environment("ORVANE_CLOCK");
    if (!mode.empty()) {
        const auto setting = ParseClock(mode, reading.Value.Time);
        if (!setting) {
            return Complain("ORVANE_CLOCK is \"" + mode +
                            "\", and not real, virtual, scaled or scaled:FACTOR.");
        }
        reading.Value.Time = *setting;
    }
    Loaded = std::make_unique<const Scenario>(std::move(reading.Value));
    return true;
}

} // namespace

} // namespace orvane

using namespace orvane;

bool OVStartLibrary(const wxString& contexte, const wxString& /*langue*/) {
    OVRelease();
    Loaded = nullptr;
    try {
        if (!Load(contexte)) {
            return false;
        }
        StartClock(Loaded->Time);
        console_stack::RequestedFaults = FaultPlanOf(*Loaded);
    } catch (const std::exception& error) {
        return Complain(std::string("The scenario cannot be loaded: ") + error.what() + ".");
    }
    return true;
}

bool OVOpen(tConsoleInterfaceId /*interfaceId*/) {
    if (!Loaded) {
        return false;
    }
    try {
        Laboratory = {};
        Laboratory.Connectors = BuildConnectors(*Loaded);
        Laboratory.Memory = ConsoleMemoryOf(*Loaded);
        Laboratory.Played = MakeOutputHistories(*Loaded);
        Laboratory.Outputs.resize(Loaded->Outputs.size());
        if (Loaded->Console.Model == modelWithRadio) {
            OpenRadio(Loaded->Network);
        }
    } catch (const std::exception&) {
        return false;
    }
    Laboratory.Open = true;
    PlugInAll(Laboratory.Connectors);
    ContinueClock();
    StartTimeline();
    return true;
}

void ShutdownConsole() {
    StopTimeline();
    CloseRadio();
    Laboratory.Notify = nullptr;
}

void OVRelease() {
    StopTimeline();
    CloseRadio();
    StopClock();
    PullAll();
    Acquired = {};
    Gates = {};
    Laboratory = {};
}

bool OVSetLanguage(int /*code*/) {
    return true;
}

bool OVSetDataFolder(const char* /*folder*/) {
    return true;
}

int OVCountInterfaces(int /*kind*/) {
    return Laboratory.Open ? 1 : 0;
}

bool OVGetInterfaces(tInterfaceInfo* info, uint8_t capacity, uint32_t /*kind*/, uint8_t* found) {
    if (capacity == 0 || !Laboratory.Open) {
        return false;
    }
    info->Modele = Loaded->Console.Model;
    *found = 1;
    return true;
}

bool OVConnect(uint8_t interfaceIndex) {
    return interfaceIndex == 0 && Laboratory.Open;
}

void OVReadInterfaceState(uint8_t* a, uint8_t* b) {
    *a = 0;
    *b = 0;
}

bool OVReadInterfaceFlags(uint8_t* a, uint8_t* b) {
    *a = 0;
    *b = 0;
    return true;
}

bool OVGetInterfaceDesc(tInterfaceDesc* desc) {
    if (!Laboratory.Open) {
        return false;
    }
    *desc = {};
    SetText(desc->Nom, "Laboratory");
    SetText(desc->NumSerie, Loaded->Console.Serial);
    desc->NbConnecteurs = static_cast<uint8_t>(connectorCount - 1);
    desc->NbVoiesEnumerees = static_cast<uint8_t>(Laboratory.Connectors[0].Channels.size());
    return true;
}

void OVSetPlugCallback(tPlugCallback callback) {
    RegisterPlugCallback(callback);
}

bool OVSelectMemory(uint8_t connector) {
    return connector == 0 && Laboratory.Open;
}

bool OVGetMemorySize(uint8_t connector, int area, uint32_t* size) {
    if (!OVSelectMemory(connector) || area != memoryArea) {
        return false;
    }
    *size = consoleMemorySize;
    return true;
}

bool OVReadMemory(uint8_t connector, int area, void* buffer, uint32_t size) {
    if (!OVSelectMemory(connector) || area != memoryArea || size > consoleMemorySize) {
        return false;
    }
    std::memcpy(buffer, Laboratory.Memory.data(), size);
    return true;
}
