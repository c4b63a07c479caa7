// Who made the console, what it is called, what its limits are, and the texts of its memory.

#include "connection/connection_state.h"
#include "connection/console_memory.h"
#include "connection/console_models.h"
#include "lifecycle_exports.h"

namespace {

wxString LoadedText(TexteConsole text) {
    // A failed load has shown its message; what the image holds is the answer in any case.
    LoadConsoleMemory();
    return TextOfConsole(text);
}

} // namespace

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
    switch (Connection.ConsoleModel) {
    case ModelOrvane310:
    case ModelOrvane310B:
        return "Orvane310";
    case ModelOrvane150:
        return "Orvane150";
    case ModelOrvane3600:
        return "Orvane3600";
    default:
        return "Orvane????";
    }
}

double GetMinPas() {
    switch (Connection.ConsoleModel) {
    case ModelOrvane310:
    case ModelOrvane310B:
        return 0.0001;
    case ModelOrvane150:
        return 0.00001;
    case ModelOrvane3600:
        return 6.666666e-8;
    default:
        return 0.0;
    }
}

double GetMinInTime() {
    return GetMinPas();
}

double GetOutValMax() {
    return OutputRangeOf(Connection.ConsoleModel).ValMax;
}

double GetOutValMin() {
    return OutputRangeOf(Connection.ConsoleModel).ValMin;
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
