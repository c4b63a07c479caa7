// Maker, name and limits of the console, and the texts of its memory.

#include "connection/connection_state.h"
#include "connection/console_memory.h"
#include "connection/console_models.h"
#include "lifecycle_exports.h"

namespace orvane {

namespace {

wxString LoadedText(TexteConsole text) {
    // A failed load has shown its message; the text then comes from the image as it is.
    LoadConsoleMemory();
    return TextOfConsole(text);
}

} // namespace

} // namespace orvane

using namespace orvane;

wxString GetSerialNumber() {
    return LoadedText(TexteConsole::SerialNumber);
}

wxString GetConsoleType() {
    return LoadedText(TexteConsole::ConsoleType) + "-FR";
}

wxString GetEtablissementNumber() {
    return LoadedText(TexteConsole::EtablissementNumber);
}

wxString GetInfoPerso1() {
    return LoadedText(TexteConsole::InfoPerso1);
}

wxString GetInfoPerso2() {
    return LoadedText(TexteConsole::InfoPerso2);
}

wxString GetBuilderName() {
    return "Tavela";
}

wxString GetInterfaceName() {
    return TraitsOf(Connection.ConsoleModel).Name;
}

double GetMinPas() {
    return TraitsOf(Connection.ConsoleModel).MinPas;
}

double GetMinInTime() {
    return GetMinPas();
}

double GetOutValMax() {
    return TraitsOf(Connection.ConsoleModel).Output.ValMax;
}

double GetOutValMin() {
    return TraitsOf(Connection.ConsoleModel).Output.ValMin;
}

uint32_t GetInResolution() {
    return 4096;
}

uint32_t GetOutResolution() {
    return 4096;
}

double GetMaxDtInBuffMode() {
    return 6.535;
}

uint32_t GetNbPointPreSynchro() {
    return Connection.NbPointPreSynchro;
}

uint32_t GetParameter(uint32_t n) {
    switch (n) {
    case 3:
        return 10000;
    case 4:
        return 100;
    default:
        return 0;
    }
}

void SetFunction() {}
