// Adjustments: values sent to the adapter, and the values and states that it reports. The links of
// a measuring channel are the numbers of the channels, on its connector, that do so; -1: none.

#include "channels/adjustments.h"

#include "adjustment_exports.h"
#include "channels/channel_lists.h"
#include "channels/channel_records.h"
#include "channels/record_text.h"
#include "channels/reference_numbers.h"
#include "platform/clock.h"
#include "platform/number_conversion.h"

#include <optional>

namespace orvane {

namespace {

/// The channel on which ReferenceOneAdjustedFunction reports its value.
constexpr int valueChannelOfOneFunction = 3;

constexpr uint32_t pauseMilliseconds = 100;
constexpr uint32_t longestWaitMilliseconds = 6000;

bool AdjustsOneFunction(const TvlVoieOrvane& voie) {
    return HasMode(voie, AdjustmentMode::ValueOnly) &&
           voie.CodeReference == ReferenceOneAdjustedFunction;
}

bool HasStateNumber(const TvlVoieOrvane& voie) {
    return voie.VoieEtat != -1 && (HasMode(voie, AdjustmentMode::StateWithImage) ||
                                   HasMode(voie, AdjustmentMode::StateNumber));
}

bool HasStateText(const TvlVoieOrvane& voie) {
    return voie.VoieEtat != -1 &&
           (HasMode(voie, AdjustmentMode::Preset) || HasMode(voie, AdjustmentMode::StateText));
}

/// The channel of the same connector that gives the value of a linked channel, if it has one.
std::optional<uint8_t> ValueLinkOf(uint8_t connecteur, int32_t canal) {
    tFunctionDesc desc;
    desc.NbVoiesLiees = 0;
    desc.VoieLiee = 0;
    const bool named = ReadFunction(connecteur, canal, 0, desc) && desc.NbVoiesLiees > 0;
    return named ? std::optional(desc.VoieLiee) : std::nullopt;
}

double AdjustmentValue(const TvlVoieOrvane& voie) {
    if (AdjustsOneFunction(voie)) {
        return ReadValue(voie.Connecteur, valueChannelOfOneFunction);
    }
    if (!HasMode(voie, AdjustmentMode::ValueOnly) && !HasStateNumber(voie)) {
        return 0.0;
    }
    if (const auto canal = ValueLinkOf(voie.Connecteur, voie.VoieReglage)) {
        return ReadValue(voie.Connecteur, *canal);
    }
    // The second source only has to have such a channel: its own value is read.
    return ValueLinkOf(voie.Connecteur, voie.VoieValeur)
               ? ReadValue(voie.Connecteur, voie.VoieValeur)
               : 0.0;
}

/// Waits until a state reads 0, but no longer than the longest wait. The first read follows a
/// pause.
void WaitForStateZero(uint8_t connecteur, int32_t voieEtat) {
    const uint32_t start = platform::TimeInMilliseconds();
    double etat = 0.0;
    do {
        platform::Pause(pauseMilliseconds);
        etat = ReadValue(connecteur, voieEtat, etat);
    } while (platform::TimeInMilliseconds() - start <= longestWaitMilliseconds &&
             ToInt32(etat) != 0);
}

} // namespace

int AdjustmentCode(const TvlVoieOrvane& voie, uint8_t typeReglage) {
    if (typeReglage != 0) {
        return typeReglage <= 3 ? 100 + typeReglage : 0;
    }
    switch (static_cast<AdjustmentMode>(voie.ModeReglage)) {
    case AdjustmentMode::ValueOnly:
        return !AdjustsOneFunction(voie) || voie.Desc.FonctionCourante == 1 ? 104 : 0;
    case AdjustmentMode::StateWithImage:
        return 105;
    case AdjustmentMode::Preset:
        return 106;
    case AdjustmentMode::StateNumber:
        return 107;
    default:
        return 0;
    }
}

std::wstring_view StateText(std::wstring_view states, int32_t number) {
    for (int32_t skipped = 0; skipped < number; ++skipped) {
        const std::size_t bar = states.find(L'|');
        if (bar == std::wstring_view::npos) {
            break;
        }
        states.remove_prefix(bar + 1);
    }
    return states.substr(0, states.find(L'|'));
}

} // namespace orvane

using namespace orvane;

void MetReglagePour(int index, double valeur) {
    const TvlVoieOrvane* voie = ChannelAt(InputChannels, index);
    if (voie != nullptr && voie->VoieReglage != -1) {
        OVWriteAdjustment(voie->Connecteur, voie->VoieReglage, valeur);
    }
}

void PresetAdaptateurPour(int index, int valeur) {
    const TvlVoieOrvane* voie = ChannelAt(InputChannels, index);
    if (voie == nullptr || !HasMode(*voie, AdjustmentMode::Preset) || voie->VoieReglage == -1) {
        return;
    }
    MetReglagePour(index, valeur);
    if (valeur != 1) {
        WaitForStateZero(voie->Connecteur, voie->VoieEtat);
    }
}

int QuelReglagePour(int index) {
    const TvlVoieOrvane* voie = ChannelAt(InputChannels, index);
    tFunctionDesc desc;
    desc.TypeReglage = 0;
    return voie != nullptr && ReadSelectedFunction(*voie, desc)
               ? AdjustmentCode(*voie, desc.TypeReglage)
               : 0;
}

wxString QuelLibelleReglagePour(int index) {
    const TvlVoieOrvane* voie = ChannelAt(InputChannels, index);
    tChannelDesc desc;
    ClearText(desc.Description);
    return voie != nullptr && ReadChannel(voie->Connecteur, voie->VoieReglage, desc)
               ? FieldText(desc.Description)
               : wxString();
}

int QuelValeurReglagePour(int index) {
    const TvlVoieOrvane* voie = ChannelAt(InputChannels, index);
    return voie == nullptr ? 0 : ToInt32(AdjustmentValue(*voie));
}

wxString QuelStatusPour(int index, int* numero) {
    int unread = 0;
    int& number = numero == nullptr ? unread : *numero;
    number = 0;
    const TvlVoieOrvane* voie = ChannelAt(InputChannels, index);
    tChannelDesc desc;
    ClearText(desc.Description);
    if (voie == nullptr || !HasStateText(*voie) ||
        !ReadChannel(voie->Connecteur, voie->VoieEtat, desc)) {
        return {};
    }
    number = ToInt32(ReadValue(voie->Connecteur, voie->VoieEtat) + 0.5);
    FieldRoom room;
    const std::wstring_view text = StateText(FieldCharacters(desc.Description, room), number);
    return {text.data(), text.size()};
}

int QuelValeurStatusPour(int index) {
    const TvlVoieOrvane* voie = ChannelAt(InputChannels, index);
    return voie != nullptr && HasStateNumber(*voie)
               ? ToInt32(ReadValue(voie->Connecteur, voie->VoieEtat))
               : 0;
}
