#include "channels/enumeration.h"

#include "channel_exports.h"
#include "channels/adapter_map.h"
#include "channels/channel_lists.h"
#include "channels/channel_text.h"
#include "channels/record_text.h"
#include "channels/reference_numbers.h"
#include "connection/connection_state.h"
#include "connection/console_models.h"
#include "console/console_port.h"
#include "platform/text.h"

namespace orvane {

namespace {

bool IsInput(const tChannelDesc& desc) {
    return desc.Genre == 0 && desc.Sens == 1;
}

bool IsAnalogOutput(const tChannelDesc& desc) {
    const std::string_view nom = FieldUtf8(desc.Nom);
    return desc.Genre == 0 && desc.Sens == 0 &&
           (nom.starts_with("Sortie a") || nom.starts_with("Analog o"));
}

bool IsExternalTrigger(const tChannelDesc& desc) {
    const std::string_view nom = FieldUtf8(desc.Nom);
    return platform::EqualsIgnoringCase(nom, "Synchro externe") ||
           platform::EqualsIgnoringCase(nom, "Extern trigger");
}

int32_t ReferenceOf(uint8_t connecteur) {
    if (connecteur == 0) {
        return ReferenceConsole;
    }
    const auto adapter = PluggedAdapter(connecteur);
    return adapter ? ReferenceNumber(FieldUtf8(adapter->Reference)) : -1;
}

void SetLinks(TvlVoieOrvane& voie, const AdjustmentLinks& links) {
    voie.VoieReglage = links.VoieReglage;
    voie.VoieValeur = links.VoieValeur;
    voie.VoieEtat = links.VoieEtat;
    voie.ModeReglage = links.ModeReglage;
}

/// Records the part of one channel of an adapter in its adjustment. The first channel of each kind
/// is linked; the last "Reglage" line gives the mode.
void FindLinks(uint8_t connecteur, uint8_t canal, AdjustmentLinks& links) {
    tChannelDesc desc{};
    if (!OVGetChannelDesc(connecteur, canal, &desc)) {
        return;
    }
    const auto takeFirst = [canal](int32_t& link) { link = link == -1 ? canal : link; };
    if (desc.Genre == 1) {
        const auto text = FetchChannelText(connecteur, canal, desc.TailleTexte);
        const auto mode = text ? LastNumber(*text, "Reglage") : std::nullopt;
        if (!mode) {
            return;
        }
        links.ModeReglage = *mode;
        if (desc.Sens == 0) {
            takeFirst(links.VoieReglage);
        } else if (desc.Sens == 1) {
            takeFirst(links.VoieEtat);
        }
    } else if (desc.Genre == 2 && desc.Sens == 1) {
        takeFirst(links.VoieValeur);
    }
}

void ReselectFunction(uint8_t connecteur) {
    tChannelDesc desc{};
    if (OVGetChannelDesc(connecteur, 0, &desc)) {
        OVSelectFunction(connecteur, 0, desc.FonctionCourante);
    }
}

void AddAdapter(uint8_t connecteur, const tAdapterDesc& adapter) {
    AdjustmentLinks links;
    for (unsigned canal = 0; canal < adapter.NbVoies; ++canal) {
        FindLinks(connecteur, static_cast<uint8_t>(canal), links);
    }
    for (unsigned canal = 0; canal < adapter.NbVoies; ++canal) {
        AjouteVoie(connecteur, static_cast<uint8_t>(canal), links,
                   static_cast<int32_t>(adapter.ValeurAdaptateur));
    }
    if (TraitsOf(Connection.ConsoleModel).Reselects &&
        ReferenceNumber(FieldUtf8(adapter.Reference)) == ReferenceReselected) {
        ReselectFunction(connecteur);
    }
}

} // namespace

void AjouteVoie(uint8_t connecteur, uint8_t canal, const AdjustmentLinks& links,
                int32_t valeurAdaptateur) {
    TvlVoieOrvane voie;
    if (!OVGetChannelDesc(connecteur, canal, &voie.Desc)) {
        return;
    }
    const bool input = IsInput(voie.Desc);
    if (!input && (connecteur != 0 || !IsAnalogOutput(voie.Desc))) {
        return;
    }
    voie.Connecteur = connecteur;
    voie.Canal = canal;
    SetLinks(voie, links);
    voie.RafraichirCalibre();
    if (!input) {
        Append(OutputChannels, std::make_unique<TvlVoieOrvane>(voie));
        return;
    }
    voie.CodeReference = ReferenceOf(connecteur);
    voie.ValeurAdaptateur = valeurAdaptateur;
    voie.SynchroExterne = IsExternalTrigger(voie.Desc);
    Append(InputChannels, std::make_unique<TvlVoieOrvane>(voie));
    Append(SynchroChannels, static_cast<int32_t>(InputChannels.size() - 1));
}

} // namespace orvane

using namespace orvane;

int CombienDeCanauxEnEntree() {
    Clear(SynchroChannels);
    Clear(InputChannels);
    Clear(OutputChannels);
    for (unsigned canal = 0; canal < Connection.InterfaceDesc.NbVoiesEnumerees; ++canal) {
        AjouteVoie(0, static_cast<uint8_t>(canal), {}, 0);
    }
    for (const auto& [connecteur, adapter] : PluggedAdapters()) {
        AddAdapter(connecteur, adapter);
    }
    return static_cast<int>(InputChannels.size());
}

int CombienDeCanauxEnSortie() {
    return static_cast<int>(OutputChannels.size());
}

int CombienDeCanauxDeSynchro() {
    return static_cast<int>(SynchroChannels.size());
}
