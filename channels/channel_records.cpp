#include "channels/channel_records.h"

#include "console/console_port.h"

namespace {

bool FitsPort(int index) {
    return index >= 0 && index <= 255;
}

} // namespace

bool ReadFunction(const TvlVoieOrvane& voie, int fonction, tFunctionDesc& desc) {
    return FitsPort(fonction) &&
           OVGetFunctionDesc(voie.Connecteur, voie.Canal, static_cast<uint8_t>(fonction), &desc);
}

bool ReadSelectedFunction(const TvlVoieOrvane& voie, tFunctionDesc& desc) {
    return ReadFunction(voie, voie.Desc.FonctionCourante, desc);
}

bool ReadCalibre(const TvlVoieOrvane& voie, int calibre, tCalibreDesc& desc) {
    return FitsPort(calibre) &&
           OVGetCalibreDesc(voie.Connecteur, voie.Canal, voie.Desc.FonctionCourante,
                            static_cast<uint8_t>(calibre), &desc);
}
