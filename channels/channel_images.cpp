// The pictures of functions and adjustments: fetched from the console and made into bitmaps.

#include "channels/adjustments.h"
#include "channels/channel_lists.h"
#include "channels/channel_records.h"
#include "channels/record_text.h"
#include "connection/connection_state.h"
#include "connection/console_models.h"
#include "image_exports.h"
#include "images/image_decoding.h"
#include "platform/zeroed_buffer.h"

#include <wx/bitmap.h>
#include <wx/image.h>

#include <memory>

namespace orvane {

namespace {

constexpr int functionImageSide = 32;

bool ReadImageDesc(uint8_t connecteur, int canal, int fonction, tFunctionDesc& desc) {
    desc.Image.TailleImage = 0;
    ClearText(desc.Image.TypeImage);
    return ReadFunction(connecteur, canal, fonction, desc);
}

/// Fetches the image of a function; no image where the console has none.
wxImage FetchImage(uint8_t connecteur, int canal, int fonction, const tImageDesc& desc) {
    if (desc.TailleImage == 0) {
        return {};
    }
    const auto file = platform::AllocateZeroed<uint8_t>(desc.TailleImage);
    if (file == nullptr ||
        !OVReadFunctionImage(connecteur, static_cast<uint8_t>(canal),
                             static_cast<uint8_t>(fonction), file.get(), desc.TailleImage)) {
        return {};
    }
    return DecodeImage({file.get(), desc.TailleImage}, FieldBytes(desc.TypeImage));
}

wxBitmap WithMagentaMask(wxBitmap bitmap) {
    auto mask = std::make_unique<wxMask>(bitmap, wxColour(255, 0, 255));
    bitmap.SetMask(mask.get());
    [[maybe_unused]] const wxMask* bitmapsOwn = mask.release(); // Not before: SetMask may throw.
    return bitmap;
}

} // namespace

} // namespace orvane

using namespace orvane;

wxBitmap QuelBitmapPour(int index) {
    const TvlVoieOrvane* voie = ChannelAt(InputChannels, index);
    tFunctionDesc desc;
    if (voie == nullptr || !TraitsOf(Connection.ConsoleModel).Pictures ||
        !ReadImageDesc(voie->Connecteur, voie->Canal, voie->Desc.FonctionCourante, desc)) {
        return wxNullBitmap;
    }
    const wxImage image =
        FetchImage(voie->Connecteur, voie->Canal, voie->Desc.FonctionCourante, desc.Image);
    if (!image.IsOk()) {
        return wxNullBitmap;
    }
    const wxBitmap bitmap(
        image.Scale(functionImageSide, functionImageSide, wxIMAGE_QUALITY_NORMAL));
    return image.GetType() == wxBITMAP_TYPE_BMP ? WithMagentaMask(bitmap) : bitmap;
}

wxBitmap QuelImageReglagePour(int index) {
    const TvlVoieOrvane* voie = ChannelAt(InputChannels, index);
    tChannelDesc etat;
    etat.FonctionCourante = 0;
    tFunctionDesc desc;
    if (voie == nullptr || !HasMode(*voie, AdjustmentMode::StateWithImage) ||
        !ReadChannel(voie->Connecteur, voie->VoieEtat, etat) ||
        !ReadImageDesc(voie->Connecteur, voie->VoieEtat, etat.FonctionCourante, desc) ||
        !TraitsOf(Connection.ConsoleModel).Pictures) {
        return wxNullBitmap;
    }
    const wxImage image =
        FetchImage(voie->Connecteur, voie->VoieEtat, etat.FonctionCourante, desc.Image);
    return image.IsOk() ? wxBitmap(image) : wxNullBitmap;
}
