// The start and stop of the virtual console, and its description.

#include "console/console_port.h"
#include "console/text_fields.h"
#include "console/virtual/console_tree.h"

#include <new>

namespace orvane {

namespace {

constexpr uint16_t consoleModel = 12304;

} // namespace

} // namespace orvane

using namespace orvane;

bool OVStartLibrary(const wxString& /*contexte*/, const wxString& /*langue*/) {
    return true;
}

bool OVOpen(tConsoleInterfaceId /*interfaceId*/) {
    try {
        virtual_console::BuildTree();
    } catch (const std::bad_alloc&) {
        virtual_console::ReleaseTree();
        return false;
    }
    return true;
}

void OVRelease() {
    virtual_console::ReleaseTree();
}

bool OVSetLanguage(int code) {
    return code == 1;
}

bool OVSetDataFolder(const char* /*folder*/) {
    return true;
}

int OVCountInterfaces(int /*kind*/) {
    return 1;
}

bool OVGetInterfaces(tInterfaceInfo* info, uint8_t capacity, uint32_t /*kind*/, uint8_t* found) {
    if (capacity == 0) {
        return false;
    }
    info->Modele = consoleModel;
    *found = 1;
    return true;
}

bool OVConnect(uint8_t interfaceIndex) {
    return interfaceIndex == 0;
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
    *desc = {};
    SetText(desc->Nom, "Nom interface");
    SetText(desc->Reference, "Ref interface");
    SetText(desc->Version, "Version interface");
    SetText(desc->Description, "Description interface");
    SetText(desc->NumSerie, "Num serie interface");
    SetDate(desc->ManufacturingDate, "Manufact");
    SetText(desc->ManufacturerIdent, "ManufacturerIdent interface");
    desc->NbConnecteurs = 2;
    return true;
}

void OVSetPlugCallback(tPlugCallback callback) {
    // Both adapters are plugged in for good: this is the only time that anything is reported.
    if (callback != nullptr) {
        callback(1, true);
        callback(2, true);
    }
}
