// What the host sets on a channel: values that the channel object stores, selections that the
// console stores, and the calibration, which is only passed on.

#include "channels/channel_lists.h"
#include "channels/channel_records.h"
#include "settings_exports.h"

namespace orvane {

namespace {

template <class Field, class Value>
void SetField(int index, Field TvlVoieOrvane::*field, Value value) {
    if (TvlVoieOrvane* voie = ChannelAt(InputChannels, index); voie != nullptr) {
        voie->*field = value;
    }
}

wxString TextOrEmpty(const wchar_t* text) {
    return text == nullptr ? wxString() : wxString(text);
}

void RefreshSnapshot(TvlVoieOrvane& voie) {
    ReadChannel(voie.Connecteur, voie.Canal, voie.Desc);
}

/// Calls a port operation that takes only a connector and a channel.
void CallOnChannel(int index, bool (*operation)(uint8_t connector, uint8_t channel)) {
    if (const TvlVoieOrvane* voie = ChannelAt(InputChannels, index); voie != nullptr) {
        operation(voie->Connecteur, voie->Canal);
    }
}

} // namespace

} // namespace orvane

using namespace orvane;

void MetAmpliPour(int index, double ampli) {
    SetField(index, &TvlVoieOrvane::Ampli, ampli);
}

void MetOffsetPour(int index, double offset) {
    SetField(index, &TvlVoieOrvane::Offset, offset);
}

void MetModeSpecialPour(int index, int mode) {
    const auto lowByte = static_cast<uint8_t>(mode);
    SetField(index, &TvlVoieOrvane::ModeSpecial, lowByte);
    if (lowByte == 0) {
        MetAmpliPour(index, 1.0);
        MetOffsetPour(index, 0.0);
    }
}

void MetGrandeurPour(int index, const wchar_t* grandeur) {
    SetField(index, &TvlVoieOrvane::GrandeurSpeciale, TextOrEmpty(grandeur));
}

void MetUnitPour(int index, const wchar_t* unite) {
    SetField(index, &TvlVoieOrvane::UniteSpeciale, TextOrEmpty(unite));
}

void MetFonctionPour(int index, int fonction) {
    TvlVoieOrvane* voie = ChannelAt(InputChannels, index);
    const auto lowByte = static_cast<uint8_t>(fonction);
    if (voie == nullptr || lowByte == voie->Desc.FonctionCourante) {
        return;
    }
    if (OVSelectFunction(voie->Connecteur, voie->Canal, lowByte)) {
        RefreshSnapshot(*voie);
    }
    voie->RafraichirCalibre();
}

void MetCalibrePour(int index, int calibre) {
    TvlVoieOrvane* voie = ChannelAt(InputChannels, index);
    if (voie == nullptr) {
        return;
    }
    tFunctionDesc function;
    function.CalibreCourant = 0;
    if (ReadSelectedFunction(*voie, function) && function.CalibreCourant != calibre &&
        FitsPort(calibre) &&
        OVSelectCalibre(voie->Connecteur, voie->Canal, static_cast<uint8_t>(calibre))) {
        RefreshSnapshot(*voie);
    }
    voie->RafraichirCalibre();
}

void DebutCalibrationPour(int index) {
    if (const TvlVoieOrvane* voie = ChannelAt(InputChannels, index); voie != nullptr) {
        OVSelectFunction(voie->Connecteur, voie->Canal, voie->Desc.FonctionCourante);
    }
    CallOnChannel(index, OVCalibrationStart);
}

void AbandonCalibrationPour(int index) {
    CallOnChannel(index, OVCalibrationAbort);
}

void ParDefautCalibrationPour(int index) {
    CallOnChannel(index, OVCalibrationDefault);
}

void MetCalibrationValuePour(int index, int point, double valeur) {
    if (const TvlVoieOrvane* voie = ChannelAt(InputChannels, index); voie != nullptr) {
        OVSetCalibrationValue(voie->Connecteur, voie->Canal, static_cast<uint32_t>(point),
                              static_cast<float>(valeur));
    }
}
