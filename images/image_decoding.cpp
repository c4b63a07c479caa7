#include "images/image_decoding.h"

#include <wx/log.h>
#include <wx/mstream.h>

namespace orvane {

namespace {

struct ImageFormat {
    std::string_view Name; ///< What the console's type begins with.
    wxBitmapType Type;
    ImageBytes (*ValidPart)(ImageBytes file);
};

constexpr ImageFormat formats[] = {{"png", wxBITMAP_TYPE_PNG, ValidPng},
                                   {"bmp", wxBITMAP_TYPE_BMP, ValidBmp},
                                   {"gif", wxBITMAP_TYPE_GIF, ValidGif}};

} // namespace

wxImage DecodeImage(ImageBytes file, std::string_view type) {
    wxImage image;
    for (const ImageFormat& format : formats) {
        if (type.starts_with(format.Name)) {
            const ImageBytes valid = format.ValidPart(file);
            const wxLogNull silence;
            wxMemoryInputStream stream(valid.data(), valid.size());
            if (!valid.empty()) {
                image.LoadFile(stream, format.Type, -1);
            }
        }
    }
    return image;
}

} // namespace orvane
