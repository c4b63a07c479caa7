#include "channels/channel_names.h"

#include "channel_exports.h"
#include "channels/channel_lists.h"
#include "channels/channel_records.h"
#include "channels/record_text.h"
#include "channels/reference_numbers.h"
#include "connection/connection_state.h"
#include "connection/console_models.h"

#include <wx/translation.h>

namespace orvane {

namespace {

struct NomVoie {
    int32_t Reference;
    int32_t Canal;
    wxString Texte;
};

constexpr int consoleChannels = 4;

/// The catalogue's text, or the key where there is no catalogue or no such text in it. A copy: the
/// host may change its catalogues while the library is loaded.
wxString Translated(const wxString& key) {
    const wxTranslations* translations = wxTranslations::Get();
    const wxString* text =
        translations == nullptr ? nullptr : translations->GetTranslatedString(key);
    return text == nullptr ? key : *text;
}

NomVoie Row(int32_t reference, int32_t canal, const wxString& name) {
    return {reference, canal,
            Translated(wxString::Format("IDS_%s_CHANNEL%d_NAME", name, canal + 1))};
}

std::vector<NomVoie> FillTable() {
    std::vector<NomVoie> table;
    table.reserve(NamedReferences.size() + consoleChannels + 1);
    for (const int32_t reference : NamedReferences) {
        const bool second = !table.empty() && table.back().Reference == reference;
        table.push_back(Row(reference, second ? 1 : 0, wxString::Format("%d", reference)));
    }
    for (int32_t canal = 0; canal < consoleChannels; ++canal) {
        table.push_back(Row(ReferenceConsole, canal, "DIRECT"));
    }
    table.push_back(Row(ReferenceExternalTrigger, 0, "EXTERN_TRIGGER"));
    return table;
}

/// Filled when the library is loaded, from the catalogue that the host has loaded before.
const std::vector<NomVoie> TableNomsVoies = FillTable();

wxString NameInEnglish(int32_t reference, const wxString& nom) {
    switch (reference) {
    case ReferenceVoltmeter:
        return "Voltmeter";
    case ReferenceThermometer:
        return "Thermometer";
    default:
        return nom;
    }
}

wxString NameFromTable(const TvlVoieOrvane& voie, const wxString& nom) {
    const int32_t wanted = nom == L"Extern trigger" ? ReferenceExternalTrigger : voie.CodeReference;
    const bool canalCounts =
        voie.CodeReference == ReferenceTwoChannels || voie.CodeReference == ReferenceConsole;
    const auto row = std::ranges::find_if(TableNomsVoies, [&](const NomVoie& candidate) {
        return candidate.Reference == wanted && (!canalCounts || candidate.Canal == voie.Canal);
    });
    return row == TableNomsVoies.end() ? nom : row->Texte;
}

wxString NameOf(const TvlVoieOrvane* voie) {
    return voie == nullptr || !IsKnownModel(Connection.ConsoleModel)
               ? wxString()
               : NomDeVoie(*voie, Connection.Langue);
}

} // namespace

wxString NomDeVoie(const TvlVoieOrvane& voie, const wxString& langue) {
    const wxString nom = FieldText(voie.Desc.Nom);
    if (langue == L"fr") {
        return nom;
    }
    return langue == L"en" ? NameInEnglish(voie.CodeReference, nom) : NameFromTable(voie, nom);
}

} // namespace orvane

using namespace orvane;

wxString QuelNomPour(int index, int32_t /*reserved*/) {
    return NameOf(ChannelAt(InputChannels, index));
}

wxString QuelNomPourSynchro(int index) {
    return NameOf(SynchroSource(index));
}

wxString QuelNomPourFonction(int index, int fonction) {
    tFunctionDesc desc;
    ClearText(desc.Nom);
    if (const TvlVoieOrvane* voie = ChannelAt(InputChannels, index); voie != nullptr) {
        ReadFunction(*voie, fonction, desc);
    }
    return FieldText(desc.Nom);
}

wxString QuelNomPourCalibre(int index, int calibre) {
    tCalibreDesc desc;
    ClearText(desc.Nom);
    if (const TvlVoieOrvane* voie = ChannelAt(InputChannels, index); voie != nullptr) {
        ReadCalibre(*voie, calibre, desc);
    }
    return FieldText(desc.Nom);
}
