#include "channels/tvl_voie_orvane.h"

#include "console/console_port.h"

namespace orvane {

void TvlVoieOrvane::RafraichirCalibre() {
    tFunctionDesc function{};
    if (!OVGetFunctionDesc(Connecteur, Canal, Desc.FonctionCourante, &function)) {
        return;
    }
    PeriodeDefautSec = Desc.PeriodeDefautNs / 1e9;
    TempsMinSec = Desc.TempsMinNs * 1e-9;
    tCalibreDesc calibre{};
    if (OVGetCalibreDesc(Connecteur, Canal, Desc.FonctionCourante, function.CalibreCourant,
                         &calibre)) {
        MinCalibre = calibre.Min;
        MaxCalibre = calibre.Max;
    }
}

} // namespace orvane
