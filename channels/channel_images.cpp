// The pictures of functions and adjustments: fetched from the console, decoded by the toolkit.

#include "channels/adjustments.h"
#include "channels/channel_lists.h"
#include "channels/channel_records.h"
#include "channels/image_checks.h"
#include "channels/record_text.h"
#include "connection/connection_state.h"
#include "connection/console_models.h"
#include "image_exports.h"
#include "platform/zeroed_buffer.h"

#include <wx/bitmap.h>
#include <wx/image.h>
#include <wx/log.h>
#include <wx/mstream.h>

#include <memory>

namespace {

constexpr int functionImageSide = 32;

struct ImageFormat {
    std::string_view Name; ///< What the console's type begins with.
    wxBitmapType Type;
    ImageBytes (*SoundPart)(ImageBytes file);
};

constexpr ImageFormat formats[] = {{"png", wxBITMAP_TYPE_PNG, SoundPng},
                                   {"bmp", wxBITMAP_TYPE_BMP, SoundBmp},
                                   {"gif", wxBITMAP_TYPE_GIF, SoundGif}};

/// The first picture of a file's bytes; no image where they hold none that is safe to decode.
wxImage Decode(ImageBytes file, std::string_view type) {
    wxImage image;
    for (const ImageFormat& format : formats) {
        if (type.starts_with(format.Name)) {
            const ImageBytes sound = format.SoundPart(file);
            const wxLogNull silence;
            wxMemoryInputStream stream(sound.data(), sound.size());
            if (!sound.empty()) {
                image.LoadFile(stream, format.Type, -1);
            }
        }
    }
    return image;
}

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
    return Decode({file.get(), desc.TailleImage}, FieldBytes(desc.TypeImage));
}

wxBitmap WithMagentaMask(wxBitmap bitmap) {
    auto mask = std::make_unique<wxMask>(bitmap, wxColour(255, 0, 255));
    bitmap.SetMask(mask.get());
    [[maybe_unused]] const wxMask* bitmapsOwn = mask.release(); // Not before: SetMask may throw.
    return bitmap;
}

} // namespace

wxBitmap QuelBitmapPour(int index) {
    const TvlVoieOrvane* voie = ChannelAt(InputChannels, index);
    tFunctionDesc desc;
    if (voie == nullptr || Connection.ConsoleModel == ModelOrvane150 ||
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
        Connection.ConsoleModel == ModelOrvane150) {
        return wxNullBitmap;
    }
    const wxImage image =
        FetchImage(voie->Connecteur, voie->VoieEtat, etat.FonctionCourante, desc.Image);
    return image.IsOk() ? wxBitmap(image) : wxNullBitmap;
}
