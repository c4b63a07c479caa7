// The smallest console: a thermometer on connector 1. Operations that it doesn't have refuse.

#include "console/console_port.h"
#include "console/text_fields.h"

using orvane::SetText;

namespace {

constexpr uint8_t connectorOfThermometer = 1;
constexpr uint16_t model = 12304;

bool IsThermometer(uint8_t connector, uint8_t channel) {
    return connector == connectorOfThermometer && channel == 0;
}

} // namespace

// The start: one interface of a known model, which is available at once.

bool OVStartLibrary(const wxString& /*contexte*/, const wxString& /*langue*/) {
    return true;
}

bool OVOpen(tConsoleInterfaceId /*interfaceId*/) {
    return true;
}

int OVCountInterfaces(int /*kind*/) {
    return 1;
}

bool OVGetInterfaces(tInterfaceInfo* info, uint8_t /*capacity*/, uint32_t /*kind*/,
                     uint8_t* found) {
    info->Modele = model;
    *found = 1;
    return true;
}

bool OVConnect(uint8_t /*interfaceIndex*/) {
    return true;
}

void OVSetPlugCallback(tPlugCallback callback) {
    if (callback != nullptr) {
        callback(connectorOfThermometer, true);
    }
}

// What is plugged in: an adapter, its channel, its function, its calibre.

bool OVGetAdapterDesc(uint8_t connector, tAdapterDesc* desc) {
    if (connector != connectorOfThermometer) {
        return false;
    }
    SetText(desc->Reference, "482101");
    desc->NbVoies = 1;
    return true;
}

bool OVGetChannelDesc(uint8_t connector, uint8_t channel, tChannelDesc* desc) {
    if (!IsThermometer(connector, channel)) {
        return false;
    }
    SetText(desc->Nom, "Thermomètre");
    desc->Sens = 1;
    desc->TempsMinNs = 1'000'000;
    desc->PeriodeDefautNs = 100'000'000;
    desc->NbFonctions = 1;
    return true;
}

bool OVGetFunctionDesc(uint8_t connector, uint8_t channel, uint8_t function, tFunctionDesc* desc) {
    if (!IsThermometer(connector, channel) || function != 0) {
        return false;
    }
    SetText(desc->Nom, "Température");
    SetText(desc->Grandeur, "T");
    SetText(desc->Unite, "°C");
    desc->NbCalibres = 1;
    return true;
}

bool OVGetCalibreDesc(uint8_t connector, uint8_t channel, uint8_t function, uint8_t calibre,
                      tCalibreDesc* desc) {
    if (!IsThermometer(connector, channel) || function != 0 || calibre != 0) {
        return false;
    }
    SetText(desc->Nom, "-20 à 110 °C");
    desc->Min = -20.0F;
    desc->Max = 110.0F;
    return true;
}

bool OVReadValue(uint8_t connector, uint8_t channel, uint32_t /*count*/, uint32_t /*reserved*/,
                 double* value) {
    if (!IsThermometer(connector, channel)) {
        return false;
    }
    *value = 20.5;
    return true;
}
