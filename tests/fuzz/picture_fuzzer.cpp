// The pictures of the functions: of any format, cut off, lying about their size, or no picture.

#include "driver_exports.h"
#include "tests/fuzz/fuzz_process.h"

#include <wx/bitmap.h>
#include <wx/image.h>
#include <wx/imaggif.h>
#include <wx/imagpng.h>

#include <array>
#include <cstdlib>
#include <memory>

extern "C" int LLVMFuzzerInitialize(int* /*argc*/, char*** /*argv*/) {
    BeFuzzedHost();
    // The toolkit has the one for BMP by itself.
    wxImage::AddHandler(std::make_unique<wxPNGHandler>().release());
    wxImage::AddHandler(std::make_unique<wxGIFHandler>().release());
    Console.Connectors[0].Channels = {InputChannel("U", 0, 5)};
    StartDll(0, "", "fr", 0);
    CombienDeCanauxEnEntree();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size < 2) {
        return 0;
    }
    // The first byte is the type that the console tells, the second one its lie about the size.
    constexpr std::array types{"png", "bmp", "gif"};
    ScriptedFunction& function = Console.Connectors[0].Channels[0].Functions[0];
    SetText(function.Desc.Image.TypeImage, types[data[0] % types.size()]);
    function.Image.assign(data + 2, data + size);
    function.Desc.Image.TailleImage =
        data[1] % 4 == 0 ? static_cast<uint32_t>(size + data[1]) : static_cast<uint32_t>(size - 2);
    const wxBitmap picture = QuelBitmapPour(0);
    Expect(!picture.IsOk() || picture.GetSize() == wxSize(32, 32));
    return 0;
}
