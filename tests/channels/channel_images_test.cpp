// Pictures of functions and adjustments: the rules of each format, seen in pixels, and bytes that
// are no picture.

#include "channel_exports.h"
#include "channels/channel_lists.h"
#include "channels/image_checks.h"
#include "connection/connection_state.h"
#include "image_exports.h"
#include "lifecycle_exports.h"
#include "tests/support/scripted_console.h"

#include <wx/bitmap.h>
#include <wx/imaggif.h>
#include <wx/imagpng.h>
#include <wx/log.h>
#include <wx/mstream.h>
#include <wx/palette.h>

#include <gmock/gmock.h>

#include <algorithm>
#include <array>
#include <climits>
#include <memory>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using Bytes = std::vector<uint8_t>;

const wxColour Magenta(255, 0, 255);
const wxColour Green(0, 128, 0);

/// A picture, magenta in its left half and green in its right.
wxImage HalfAndHalf(int width, int height) {
    wxImage image(width, height);
    image.SetRGB(wxRect(0, 0, width / 2, height), Magenta.Red(), Magenta.Green(), Magenta.Blue());
    image.SetRGB(wxRect(width / 2, 0, width - width / 2, height), Green.Red(), Green.Green(),
                 Green.Blue());
    const std::array<uint8_t, 2> red{255, 0};
    const std::array<uint8_t, 2> green{0, 128};
    const std::array<uint8_t, 2> blue{255, 0};
    image.SetPalette(wxPalette(2, red.data(), green.data(), blue.data()));
    return image;
}

Bytes Stored(wxImage image, wxBitmapType type) {
    wxMemoryOutputStream stream;
    EXPECT_TRUE(image.SaveFile(stream, type));
    Bytes bytes(stream.GetSize());
    stream.CopyTo(bytes.data(), bytes.size());
    return bytes;
}

Bytes Stored(int width, int height, wxBitmapType type) {
    return Stored(HalfAndHalf(width, height), type);
}

wxColour ColourAt(const wxImage& image, int x, int y) {
    return {image.GetRed(x, y), image.GetGreen(x, y), image.GetBlue(x, y)};
}

/// Fails the test on all that is logged, and on what the toolkit holds to be impossible.
class NothingIsLogged : public wxLog {
public:
    NothingIsLogged() {
        wxLog::SetActiveTarget(this);
        wxSetAssertHandler([](const wxString&, int, const wxString&, const wxString& condition,
                              const wxString&) { ADD_FAILURE() << condition; });
    }
    ~NothingIsLogged() override {
        wxLog::SetActiveTarget(nullptr);
        wxSetDefaultAssertHandler();
    }

protected:
    void DoLogRecord(wxLogLevel /*level*/, const wxString& text,
                     const wxLogRecordInfo& /*info*/) override {
        ADD_FAILURE() << text;
    }
};

/// A measuring channel 0 with an adjustment 1 of mode 4 and its state 2, enumerated.
class Images : public testing::Test {
protected:
    Images() {
        wxImage::AddHandler(std::make_unique<wxPNGHandler>().release());
        wxImage::AddHandler(std::make_unique<wxGIFHandler>().release());
        Console.Memory.assign(32768, 0);
        Console.Connectors[1] =
            Adapter("482034", {InputChannel("U", -12, 12), AdjustmentChannel("Reglage=4"),
                               StateChannel("Reglage=4")});
        ScriptedChannel& state = Console.Connectors[1].Channels[2];
        state.Functions.push_back(state.Functions[0]);
        state.Desc.FonctionCourante = 1;
        StartDll(0, "", "fr", 0);
        CombienDeCanauxEnEntree();
        Console.TakeCalls();
    }
    static void Give(ScriptedFunction& function, const char* type, Bytes bytes) {
        SetText(function.Desc.Image.TypeImage, type);
        function.Desc.Image.TailleImage = 0;
        function.Image = std::move(bytes);
    }
    static ScriptedFunction& Function() {
        return Console.Connectors[1].Channels[0].Functions[0];
    }
    static ScriptedFunction& State() {
        return Console.Connectors[1].Channels[2].Functions[1];
    }
    const NothingIsLogged silence;
};

TEST_F(Images, OfAFunctionAreThirtyTwoPixelsWideAndHigh) {
    struct Row {
        const char* Type;
        wxBitmapType Format;
        int Width, Height;
    };
    constexpr Row rows[] = {
        {"bmp", wxBITMAP_TYPE_BMP, 16, 16},         {"bmp", wxBITMAP_TYPE_BMP, 32, 32},
        {"bmp 24 bits", wxBITMAP_TYPE_BMP, 100, 8}, {"png", wxBITMAP_TYPE_PNG, 32, 32},
        {"png", wxBITMAP_TYPE_PNG, 64, 2},          {"gif", wxBITMAP_TYPE_GIF, 32, 32},
        {"gif", wxBITMAP_TYPE_GIF, 17, 40}};
    for (const Row& row : rows) {
        SCOPED_TRACE(std::string(row.Type) + ' ' + std::to_string(row.Width));
        Give(Function(), row.Type, Stored(row.Width, row.Height, row.Format));
        const wxBitmap bitmap = QuelBitmapPour(0);
        ASSERT_TRUE(bitmap.IsOk());
        EXPECT_EQ(bitmap.GetSize(), wxSize(32, 32));
        const bool masked = row.Format == wxBITMAP_TYPE_BMP;
        EXPECT_EQ(bitmap.GetMask() != nullptr, masked);
        const wxImage image = bitmap.ConvertToImage();
        EXPECT_EQ(image.IsTransparent(0, 0), masked);
        EXPECT_FALSE(image.IsTransparent(31, 31));
        EXPECT_EQ(ColourAt(image, 31, 31), Green);
        if (!masked) {
            EXPECT_EQ(ColourAt(image, 14, 31), Magenta) << "each pixel is one of the picture's";
            EXPECT_EQ(ColourAt(image, 17, 0), Green);
        }
    }
}

TEST_F(Images, OfAnAdjustmentKeepTheirSizeAndHaveNoMask) {
    constexpr std::pair<const char*, wxBitmapType> formats[] = {
        {"bmp", wxBITMAP_TYPE_BMP}, {"png", wxBITMAP_TYPE_PNG}, {"gif", wxBITMAP_TYPE_GIF}};
    for (const auto& [type, format] : formats) {
        SCOPED_TRACE(type);
        Give(State(), type, Stored(48, 20, format));
        const wxBitmap bitmap = QuelImageReglagePour(0);
        ASSERT_TRUE(bitmap.IsOk());
        EXPECT_EQ(bitmap.GetSize(), wxSize(48, 20));
        EXPECT_EQ(bitmap.GetMask(), nullptr);
        EXPECT_EQ(ColourAt(bitmap.ConvertToImage(), 23, 19), Magenta);
    }
}

TEST_F(Images, KeepTheTransparencyThatTheyBring) {
    wxImage image = HalfAndHalf(48, 20);
    image.SetAlpha();
    image.SetAlpha(0, 0, 77);
    Give(State(), "png", Stored(image, wxBITMAP_TYPE_PNG));
    EXPECT_EQ(QuelImageReglagePour(0).ConvertToImage().GetAlpha(0, 0), 77);
}

TEST_F(Images, AreFetchedAtEachCallAndInOrder) {
    const Bytes png = Stored(8, 8, wxBITMAP_TYPE_PNG);
    Give(Function(), "png", png);
    Give(State(), "png", png);
    const std::string size = std::to_string(png.size());
    for (int call = 0; call < 2; ++call) {
        EXPECT_TRUE(QuelBitmapPour(0).IsOk());
        EXPECT_THAT(Console.TakeCalls(), ElementsAre("OVGetFunctionDesc(1, 0, 0)",
                                                     "OVReadFunctionImage(1, 0, 0, " + size + ")"));
        EXPECT_TRUE(QuelImageReglagePour(0).IsOk());
        EXPECT_THAT(Console.TakeCalls(),
                    ElementsAre("OVGetChannelDesc(1, 2)", "OVGetFunctionDesc(1, 2, 1)",
                                "OVReadFunctionImage(1, 2, 1, " + size + ")"));
    }
}

TEST_F(Images, AreRefusedWithoutAskingForTheirBytes) {
    const Bytes png = Stored(8, 8, wxBITMAP_TYPE_PNG);
    Give(Function(), "png", png);
    Give(State(), "png", png);
    const auto none = [] { return !QuelBitmapPour(0).IsOk() && !QuelImageReglagePour(0).IsOk(); };
    for (const int index : {-1, 1, INT_MAX}) {
        EXPECT_FALSE(QuelBitmapPour(index).IsOk());
        EXPECT_FALSE(QuelImageReglagePour(index).IsOk());
    }
    Connection.ConsoleModel = 12336;
    EXPECT_TRUE(none());
    EXPECT_THAT(Console.TakeCalls(),
                ElementsAre("OVGetChannelDesc(1, 2)", "OVGetFunctionDesc(1, 2, 1)"));
    Connection.ConsoleModel = 12304;
    Console.Fail("OVGetFunctionDesc");
    EXPECT_TRUE(none());
    Console.FailNothing();
    Console.Fail("OVGetChannelDesc");
    EXPECT_FALSE(QuelImageReglagePour(0).IsOk());
    Console.FailNothing();
    InputChannels[0]->VoieEtat = -1;
    EXPECT_FALSE(QuelImageReglagePour(0).IsOk());
    InputChannels[0]->VoieEtat = 2;
    InputChannels[0]->ModeReglage = 5;
    EXPECT_FALSE(QuelImageReglagePour(0).IsOk());
    Give(Function(), "png", {});
    EXPECT_FALSE(QuelBitmapPour(0).IsOk());
    EXPECT_THAT(Console.CallsOf("OVReadFunctionImage"), IsEmpty());
}

TEST_F(Images, ThatCantBeReadAreNone) {
    const Bytes png = Stored(8, 8, wxBITMAP_TYPE_PNG);
    for (const char* type : {"PNG", "pn", "", " png", "gif", "bmp"}) {
        Give(Function(), type, png);
        EXPECT_FALSE(QuelBitmapPour(0).IsOk()) << type;
    }
    Give(Function(), "png", png);
    Console.Fail("OVReadFunctionImage", 1);
    EXPECT_FALSE(QuelBitmapPour(0).IsOk());
    Bytes wrongSum = png;
    wrongSum[wrongSum.size() - 20] ^= 1;
    Give(Function(), "png", wrongSum);
    EXPECT_FALSE(QuelBitmapPour(0).IsOk());
    Give(Function(), "png", png);
    Function().Desc.Image.TailleImage = UINT32_MAX;
    EXPECT_TRUE(QuelBitmapPour(0).IsOk()) << "a picture, and 4 GiB of nothing behind it";
    Function().Image.clear();
    EXPECT_FALSE(QuelBitmapPour(0).IsOk());
    wxImage::CleanUpHandlers();
    Give(Function(), "png", png);
    EXPECT_FALSE(QuelBitmapPour(0).IsOk()) << "the host has no reader for it";
}

using Check = ImageBytes (*)(ImageBytes);

struct Format {
    const char* Name;
    wxBitmapType Type;
    Check Sound;
};
constexpr Format Formats[] = {{"png", wxBITMAP_TYPE_PNG, SoundPng},
                              {"bmp", wxBITMAP_TYPE_BMP, SoundBmp},
                              {"gif", wxBITMAP_TYPE_GIF, SoundGif}};

TEST_F(Images, AreGivenToTheirDecoderWholeOrNotAtAll) {
    for (const Format& format : Formats) {
        SCOPED_TRACE(format.Name);
        Bytes bytes = Stored(40, 9, format.Type);
        const std::size_t sound = format.Sound(bytes).size();
        ASSERT_GT(sound, 0U);
        for (std::size_t size = 0; size < sound; ++size) {
            ASSERT_THAT(format.Sound({bytes.data(), size}), IsEmpty()) << size << " of " << sound;
        }
        bytes.resize(bytes.size() + 100);
        EXPECT_EQ(format.Sound(bytes).size(), sound);
        Give(Function(), format.Name, {bytes.begin(), bytes.begin() + ptrdiff_t(sound)});
        EXPECT_TRUE(QuelBitmapPour(0).IsOk());
    }
}

Bytes Little(uint64_t number, int bytes) {
    Bytes result;
    for (int i = 0; i < bytes; ++i) {
        result.push_back(static_cast<uint8_t>(number >> (8 * i)));
    }
    return result;
}

Bytes operator+(Bytes left, const Bytes& right) {
    left.insert(left.end(), right.begin(), right.end());
    return left;
}

/// A GIF of one square picture; its codes are 3 bits wide, so that 4 is a clear and 5 the end.
struct Gif {
    uint32_t Side = 2;
    uint8_t Flags = 0x81; ///< With a table of 4 colours.
    uint8_t CodeWidth = 2;
    std::vector<unsigned> Codes{4, 1, 4, 2, 4, 3, 4, 0, 5};
};

Bytes Stored(const Gif& gif) {
    Bytes packed(gif.Codes.size() * 3 / 8 + 1, 0);
    for (std::size_t bit = 0; bit < gif.Codes.size() * 3; ++bit) {
        packed[bit / 8] |= static_cast<uint8_t>((gif.Codes[bit / 3] >> bit % 3 & 1U) << bit % 8);
    }
    const std::size_t colours = gif.Flags == 0 ? 0 : std::size_t{2} << (gif.Flags & 7U);
    return Bytes{'G', 'I', 'F', '8', '9', 'a'} + Little(gif.Side, 2) + Little(gif.Side, 2) +
           Bytes{gif.Flags, 0, 0} + Bytes(3 * colours, 9) + Bytes{0x21, 0xFE, 2, 'h', 'i', 0} +
           Bytes{0x21, 0xF9, 4, 0, 0, 0, 0, 0, 0x2C} + Bytes(4, 0) + Little(gif.Side, 2) +
           Little(gif.Side, 2) + Bytes{0, gif.CodeWidth, static_cast<uint8_t>(packed.size())} +
           packed + Bytes{0, 0x3B};
}

struct Bmp {
    uint32_t Width = 4;
    uint32_t Height = 2;
    uint32_t Bits = 8;
    uint32_t Packing = 0;
    uint32_t Colours = 4;
    Bytes Pixels{0, 1, 2, 3, 3, 2, 1, 0};
    uint32_t InfoSize = 40;
};

Bytes Stored(const Bmp& bmp) {
    return Bytes{'B', 'M'} + Bytes(8, 0) + Little(14 + bmp.InfoSize + 4 * bmp.Colours, 4) +
           Little(bmp.InfoSize, 4) + Little(bmp.Width, 4) + Little(bmp.Height, 4) + Little(1, 2) +
           Little(bmp.Bits, 2) + Little(bmp.Packing, 4) + Bytes(12, 0) + Little(bmp.Colours, 4) +
           Bytes(bmp.InfoSize - 36, 0) + Bytes(4 * bmp.Colours, 7) + bmp.Pixels;
}

Bytes PngThatClaims(uint8_t sideInBytes) {
    Bytes png = Stored(8, 8, wxBITMAP_TYPE_PNG);
    std::fill_n(png.begin() + 16, 8, sideInBytes);
    return png;
}

/// Lets a picture through its check and into a bitmap.
bool IsTaken(const Format& format, const Bytes& bytes) {
    SetText(Console.Connectors[1].Channels[0].Functions[0].Desc.Image.TypeImage, format.Name);
    Console.Connectors[1].Channels[0].Functions[0].Image = bytes;
    const bool bitmap = QuelBitmapPour(0).IsOk();
    EXPECT_EQ(bitmap, !format.Sound(bytes).empty());
    return bitmap;
}

TEST_F(Images, OfRarerKindsAreTaken) {
    const auto& [png, bmp, gif] = Formats;
    EXPECT_TRUE(IsTaken(gif, Stored(Gif{})));
    EXPECT_TRUE(IsTaken(gif, Stored(Gif{.Codes = {4, 1, 6, 1, 5}}))) << "a code while it is made";
    const Bmp sound[] = {
        {},
        {.Height = 0U - 2},
        {.InfoSize = 124},
        {.Width = 7, .Height = 1, .Bits = 4, .Pixels = {0x01, 0x23, 0x32, 0x1F}},
        {.Width = 5, .Height = 1, .Bits = 24, .Colours = 0, .Pixels = Bytes(16, 3)},
        {.Packing = 1, .Pixels = {4, 1, 0, 0, 0, 4, 0, 1, 2, 3, 0, 1}},
        {.Packing = 1, .Pixels = {1, 1, 0, 0, 1, 1, 0, 1}},
        {.Packing = 1, .Pixels = {0, 2, 1, 1, 0, 3, 0, 1, 2, 9}},
        {.Bits = 4, .Packing = 2, .Pixels = {4, 0x12, 0, 3, 0x12, 0x30, 1, 0x1F, 0, 1}},
    };
    for (const Bmp& picture : sound) {
        EXPECT_TRUE(IsTaken(bmp, Stored(picture))) << &picture - sound;
    }
}

TEST_F(Images, ThatWouldHarmTheirDecoderAreNone) {
    const auto& [png, bmp, gif] = Formats;
    EXPECT_FALSE(IsTaken(png, PngThatClaims(0))) << "no pixels";
    EXPECT_FALSE(IsTaken(png, PngThatClaims(0x75))) << "2 000 million pixels each way";
    const Gif gifs[] = {
        {.Codes = {4, 1, 7, 1, 1, 1, 5}}, // A code that isn't made yet.
        {.Codes = {4, 6, 6, 6, 6, 5}},    // One to be made of nothing.
        {.Codes = {4, 1, 4, 2, 4, 3, 5}}, // A pixel is missing.
        {.Flags = 0x80},                  // Two colours only.
        {.Flags = 0},                     // No colours.
        {.CodeWidth = 12},                // Codes beyond the decoder's table.
        {.CodeWidth = 0},
        {.Side = 0},
        {.Side = 65535},
    };
    for (const Gif& picture : gifs) {
        EXPECT_FALSE(IsTaken(gif, Stored(picture))) << &picture - gifs;
    }
    const Bmp bmps[] = {
        {.Width = 30000, .Height = 30000, .Packing = 1, .Pixels = {0, 1}}, // 2 GiB from two bytes.
        {.Width = 0},
        {.Height = 0x80000000},
        {.Bits = 0},
        {.Bits = 2},
        {.Colours = 3},
        {.Colours = 257},
        {.Bits = 24, .Packing = 1, .Colours = 0, .Pixels = Bytes(24, 0)},
        {.Packing = 3},
        {.Packing = 4},
        {.Packing = 1, .Pixels = {5, 1, 0, 1}},                   // A run beyond its line.
        {.Packing = 1, .Pixels = {0, 5, 1, 1, 1, 1, 1, 0, 0, 1}}, // Single pixels beyond it.
        {.Packing = 1, .Pixels = {0, 2, 5, 0, 0, 1}},             // Moves out of the picture.
        {.Packing = 1, .Pixels = {0, 2, 0, 2, 4, 1, 0, 1}},
        {.Packing = 1, .Pixels = {4, 4, 0, 1}}, // A colour beyond the table.
        {.Packing = 1, .Pixels = {0, 3, 1, 4, 1, 0, 0, 1}},
        {.Packing = 1, .Pixels = {4, 1, 1, 1}}, // No end.
        {.InfoSize = 39},
    };
    for (const Bmp& picture : bmps) {
        EXPECT_FALSE(IsTaken(bmp, Stored(picture))) << &picture - bmps;
    }
}

} // namespace
