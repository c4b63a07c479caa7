// Queries of the host about a channel: fields of the channel object, records read at the call, and
// values measured at the call. Nothing is changed.

#include "channel_exports.h"
#include "channels/channel_lists.h"
#include "channels/channel_records.h"
#include "channels/channel_text.h"
#include "channels/record_text.h"
#include "channels/reference_numbers.h"

namespace orvane {

namespace {

/// A field of the selected function's record, read now; 0 if that fails.
int SelectedFunctionField(int index, uint8_t tFunctionDesc::*field) {
    tFunctionDesc desc;
    desc.*field = 0;
    if (const TvlVoieOrvane* voie = ChannelAt(InputChannels, index); voie != nullptr) {
        ReadSelectedFunction(*voie, desc);
    }
    return desc.*field;
}

/// A text of the channel: the host's own in special mode, otherwise the console's, read now.
wxString QuantityText(int index, wxString TvlVoieOrvane::*own,
                      char (tFunctionDesc::*field)[RecordTextSize]) {
    const TvlVoieOrvane* voie = ChannelAt(InputChannels, index);
    if (voie == nullptr) {
        return {};
    }
    if (voie->ModeSpecial != 0) {
        return voie->*own;
    }
    tFunctionDesc desc;
    ClearText(desc.*field);
    ReadSelectedFunction(*voie, desc);
    return FieldText(desc.*field);
}

/// A limit of a calibre in the host's scale; the limit counts as 0.0 if there is no such calibre.
double CalibreLimit(int index, int calibre, float tCalibreDesc::*limit) {
    const TvlVoieOrvane* voie = ChannelAt(InputChannels, index);
    if (voie == nullptr) {
        return 0.0;
    }
    tCalibreDesc desc;
    desc.*limit = 0.0F;
    ReadCalibre(*voie, calibre, desc);
    return voie->Scaled(desc.*limit);
}

double Measure(int index, bool personnalise) {
    const TvlVoieOrvane* voie = ChannelAt(InputChannels, index);
    if (voie == nullptr) {
        return 0.0;
    }
    return voie->ConvertirBrut(ReadValue(voie->Connecteur, voie->Canal), personnalise);
}

/// A field of the channel object; the neutral value of its type for a bad index.
template <class Field> Field FieldOf(int index, Field TvlVoieOrvane::*field) {
    const TvlVoieOrvane* voie = ChannelAt(InputChannels, index);
    return voie == nullptr ? Field{} : voie->*field;
}

uint8_t SnapshotField(int index, uint8_t tChannelDesc::*field) {
    const TvlVoieOrvane* voie = ChannelAt(InputChannels, index);
    return voie == nullptr ? uint8_t{0} : voie->Desc.*field;
}

double LimitOf(int index, double TvlVoieOrvane::*limit) {
    const TvlVoieOrvane* voie = ChannelAt(InputChannels, index);
    return voie == nullptr ? 0.0 : voie->Scaled(voie->*limit);
}

} // namespace

} // namespace orvane

using namespace orvane;

int QuelCanalPour(int index) {
    return FieldOf(index, &TvlVoieOrvane::Canal);
}

int QuelVoiePhysiquePour(int index) {
    return FieldOf(index, &TvlVoieOrvane::Connecteur);
}

int QuelReferencePour(int index) {
    return FieldOf(index, &TvlVoieOrvane::CodeReference);
}

int QuelCodePour(int index) {
    return FieldOf(index, &TvlVoieOrvane::ValeurAdaptateur);
}

bool IsSynchroExternePour(int index) {
    return FieldOf(index, &TvlVoieOrvane::SynchroExterne);
}

int CombienDeFonctionPour(int index) {
    return SnapshotField(index, &tChannelDesc::NbFonctions);
}

int QuelFonctionPour(int index) {
    return SnapshotField(index, &tChannelDesc::FonctionCourante);
}

double QuelDefaultPeriodSecPour(int index) {
    return FieldOf(index, &TvlVoieOrvane::PeriodeDefautSec);
}

double QuelTempsMinPour(int index) {
    return FieldOf(index, &TvlVoieOrvane::TempsMinSec);
}

int CombienDeCalibrePour(int index) {
    return SelectedFunctionField(index, &tFunctionDesc::NbCalibres);
}

int QuelCalibrePour(int index) {
    return SelectedFunctionField(index, &tFunctionDesc::CalibreCourant);
}

wxString QuelGrandeurPour(int index) {
    return QuantityText(index, &TvlVoieOrvane::GrandeurSpeciale, &tFunctionDesc::Grandeur);
}

wxString QuelUnitePour(int index) {
    return QuantityText(index, &TvlVoieOrvane::UniteSpeciale, &tFunctionDesc::Unite);
}

double QuelMinPour(int index) {
    return LimitOf(index, &TvlVoieOrvane::MinCalibre);
}

double QuelMaxPour(int index) {
    return LimitOf(index, &TvlVoieOrvane::MaxCalibre);
}

double QuelMinPourCalibrePour(int index, int calibre) {
    return CalibreLimit(index, calibre, &tCalibreDesc::Min);
}

double QuelMaxPourCalibrePour(int index, int calibre) {
    return CalibreLimit(index, calibre, &tCalibreDesc::Max);
}

double QuelValeurPour(int index) {
    return Measure(index, true);
}

double QuelValeurSansPersonnalisationPour(int index) {
    return Measure(index, false);
}

double ConvertirSeuilSynchroPour(int index, double seuil) {
    const TvlVoieOrvane* voie = SynchroSource(index);
    return voie == nullptr ? 0.0 : voie->ConvertirInverse(seuil);
}

double ConvertirPour(int /*index*/, int /*brut*/) {
    return 0.0;
}

int Convertir2BitPour(int /*index*/, double /*valeur*/) {
    return 0;
}

int QuelBitCodagePour(int /*index*/) {
    return 0;
}

int QuelNbDecimalPour(int index) {
    const TvlVoieOrvane* voie = ChannelAt(InputChannels, index);
    if (voie == nullptr) {
        return 0;
    }
    return voie->CodeReference == ReferenceWithoutDecimals && voie->Canal == 1 ? 0 : -1;
}

int QuelEtiquettePour(int index) {
    const TvlVoieOrvane* voie = ChannelAt(InputChannels, index);
    if (voie == nullptr) {
        return 0;
    }
    if (voie->Desc.TailleTexte == 0) {
        return -1;
    }
    const auto text = FetchChannelText(voie->Connecteur, voie->Canal, voie->Desc.TailleTexte);
    return text ? FirstNumber(*text, "Etiquette").value_or(-1) : -1;
}
