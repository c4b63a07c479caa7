#include "channels/channel_records.h"

namespace orvane {

bool ReadChannel(uint8_t connecteur, int canal, tChannelDesc& desc) {
    return FitsPort(canal) && OVGetChannelDesc(connecteur, static_cast<uint8_t>(canal), &desc);
}

bool ReadFunction(uint8_t connecteur, int canal, int fonction, tFunctionDesc& desc) {
    return FitsPort(canal) && FitsPort(fonction) &&
           OVGetFunctionDesc(connecteur, static_cast<uint8_t>(canal),
                             static_cast<uint8_t>(fonction), &desc);
}

bool ReadFunction(const TvlVoieOrvane& voie, int fonction, tFunctionDesc& desc) {
    return ReadFunction(voie.Connecteur, voie.Canal, fonction, desc);
}

bool ReadSelectedFunction(const TvlVoieOrvane& voie, tFunctionDesc& desc) {
    return ReadFunction(voie, voie.Desc.FonctionCourante, desc);
}

bool ReadCalibre(const TvlVoieOrvane& voie, int calibre, tCalibreDesc& desc) {
    return FitsPort(calibre) &&
           OVGetCalibreDesc(voie.Connecteur, voie.Canal, voie.Desc.FonctionCourante,
                            static_cast<uint8_t>(calibre), &desc);
}

} // namespace orvane
