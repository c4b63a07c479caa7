// Pictures of functions and adjustments: the rules of each format, seen in pixels, and bytes that
// are no picture.

#include "channel_exports.h"
#include "channels/channel_lists.h"
#include "connection/connection_state.h"
#include "image_exports.h"
#include "images/image_checks.h"
#include "lifecycle_exports.h"
#include "tests/support/scripted_console.h"

#include <wx/bitmap.h>
#include <wx/imaggif.h>
#include <wx/imagpng.h>
#include <wx/log.h>
#include <wx/mstream.h>

#include <gmock/gmock.h>

#include <algorithm>
#include <climits>
#include <memory>
#include <optional>

using namespace orvane;

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using Bytes = std::vector<uint8_t>;

const wxColour Magenta(255, 0, 255);
const wxColour Green(0, 128, 0);

Bytes Little(uint32_t number, int bytes) {
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

/// Magenta and green in columns.
Bytes Png(int side) {
    wxImage image(side, side);
    image.SetRGB(wxRect(0, 0, side / 2, side), 255, 0, 255);
    image.SetRGB(wxRect(side / 2, 0, side / 2, side), 0, 128, 0);
    wxMemoryOutputStream stream;
    wxPNGHandler().SaveFile(&image, stream);
    Bytes bytes(stream.GetSize());
    stream.CopyTo(bytes.data(), bytes.size());
    return bytes;
}

/// A square GIF. Its codes are 3 bits wide, so that 4 is a clear and 5 the end; colour 0 is magenta
/// and colour 1 green.
struct Gif {
    uint32_t Side = 2;
    uint8_t Flags = 0x81; ///< With a table of 4 colours.
    uint8_t CodeWidth = 2;
    std::vector<unsigned> Codes{4, 0, 4, 1, 4, 0, 4, 1, 5};

    [[nodiscard]] Bytes File() const {
        Bytes packed(Codes.size() * 3 / 8 + 1, 0);
        for (std::size_t bit = 0; bit < Codes.size() * 3; ++bit) {
            packed[bit / 8] |= static_cast<uint8_t>((Codes[bit / 3] >> bit % 3 & 1U) << bit % 8);
        }
        Bytes colours{255, 0, 255, 0, 128, 0, 1, 1, 1, 2, 2, 2};
        colours.resize(Flags == 0 ? 0 : std::size_t{6} << (Flags & 7U));
        const Bytes size = Little(Side, 2) + Little(Side, 2);
        return Bytes{'G', 'I', 'F', '8', '9', 'a'} + size + Bytes{Flags, 0, 0} + colours +
               Bytes{0x21, 0xFE, 2, 'h', 'i', 0, 0x21, 0xF9, 4, 0, 0, 0, 0, 0, 0x2C, 0, 0, 0, 0} +
               size + Bytes{0, CodeWidth, static_cast<uint8_t>(packed.size())} + packed +
               Bytes{0, 0x3B};
    }
};

/// A BMP whose colour 0 is magenta and whose colour 1 is green.
struct Bmp {
    uint32_t Width = 4;
    uint32_t Height = 2;
    uint32_t Bits = 8;
    uint32_t Packing = 0;
    uint32_t Colours = 4;
    uint32_t InfoSize = 40;
    Bytes Pixels{0, 0, 1, 1, 0, 3, 2, 1};
    std::optional<uint32_t> PixelOffset{}; ///< None: the true one.

    [[nodiscard]] Bytes File() const {
        Bytes table{255, 0, 255, 0, 0, 128, 0, 0};
        table.resize(std::size_t{4} * Colours);
        return Bytes{'B', 'M'} + Bytes(8, 0) +
               Little(PixelOffset.value_or(14 + InfoSize + 4 * Colours), 4) + Little(InfoSize, 4) +
               Little(Width, 4) + Little(Height, 4) + Little(1, 2) + Little(Bits, 2) +
               Little(Packing, 4) + Bytes(12, 0) + Little(Colours, 4) + Bytes(InfoSize - 36, 0) +
               table + Pixels;
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
        wxLog::SetActiveTarget(&log);
    }
    ~Images() override {
        EXPECT_EQ(log.GetBuffer(), "");
        wxLog::SetActiveTarget(nullptr);
    }
    static ScriptedFunction& Function(std::size_t canal = 0, std::size_t fonction = 0) {
        return Console.Connectors[1].Channels[canal].Functions[fonction];
    }
    static void Give(const char* type, const Bytes& bytes) {
        for (ScriptedFunction* function : {&Function(), &Function(2, 1)}) {
            SetText(function->Desc.Image.TypeImage, type);
            function->Image = bytes;
        }
    }
    /// Whether a picture of these bytes becomes a bitmap; its check has to agree.
    static bool IsTaken(const char* type, const Bytes& bytes, ImageBytes (*check)(ImageBytes)) {
        Give(type, bytes);
        const bool taken = QuelBitmapPour(0).IsOk();
        EXPECT_EQ(check(bytes).empty(), !taken);
        return taken;
    }
    wxLogBuffer log; ///< The host's, to which nothing is written.
};

TEST_F(Images, HaveTheirSizeAndTransparencyByFormatAndQuestion) {
    struct Row {
        const char* Type;
        Bytes File;
        wxSize Size;
    };
    const Row rows[] = {
        {"bmp 4 colours", Bmp{}.File(), {4, 2}},
        {"bmp",
         Bmp{.Width = 32, .Height = 32, .Pixels = Bytes(512, 0) + Bytes(512, 1)}.File(),
         {32, 32}},
        {"gif", Gif{}.File(), {2, 2}},
        {"png", Png(8), {8, 8}},
        {"png", Png(32), {32, 32}}};
    for (const Row& row : rows) {
        SCOPED_TRACE(row.Type);
        Give(row.Type, row.File);
        const wxBitmap bitmap = QuelBitmapPour(0);
        ASSERT_TRUE(bitmap.IsOk());
        EXPECT_EQ(bitmap.GetSize(), wxSize(32, 32));
        const bool masked = row.Type[0] == 'b';
        EXPECT_EQ(bitmap.GetMask() != nullptr, masked);
        const wxImage image = bitmap.ConvertToImage();
        EXPECT_EQ(image.IsTransparent(15, 31), masked);
        EXPECT_FALSE(image.IsTransparent(31, 0));
        EXPECT_EQ(image.GetGreen(31, 0), 128);
        const wxBitmap ofState = QuelImageReglagePour(0);
        ASSERT_TRUE(ofState.IsOk());
        EXPECT_EQ(ofState.GetSize(), row.Size);
        EXPECT_EQ(ofState.GetMask(), nullptr);
    }
}

TEST_F(Images, AreFetchedAtEachCallUnlessTheyAreRefusedBefore) {
    Give("gif", Gif{}.File());
    const std::string size = std::to_string(Function().Image.size()) + ")";
    for (int call = 0; call < 2; ++call) {
        EXPECT_TRUE(QuelBitmapPour(0).IsOk() && QuelImageReglagePour(0).IsOk());
        EXPECT_THAT(Console.TakeCalls(),
                    ElementsAre("OVGetFunctionDesc(1, 0, 0)",
                                "OVReadFunctionImage(1, 0, 0, " + size, "OVGetChannelDesc(1, 2)",
                                "OVGetFunctionDesc(1, 2, 1)",
                                "OVReadFunctionImage(1, 2, 1, " + size));
    }
    const auto none = [] { return !QuelBitmapPour(0).IsOk() && !QuelImageReglagePour(0).IsOk(); };
    Connection.ConsoleModel = 12336;
    EXPECT_TRUE(none());
    EXPECT_THAT(Console.TakeCalls(),
                ElementsAre("OVGetChannelDesc(1, 2)", "OVGetFunctionDesc(1, 2, 1)"));
    Connection.ConsoleModel = 12304;
    Console.Fail("OVGetFunctionDesc");
    EXPECT_TRUE(none());
    Console.FailNothing();
    InputChannels[0]->ModeReglage = 5;
    Function().Image.clear();
    EXPECT_TRUE(none() && !QuelBitmapPour(-1).IsOk() && !QuelImageReglagePour(1).IsOk());
    EXPECT_THAT(Console.CallsOf("OVReadFunctionImage"), IsEmpty());
}

TEST_F(Images, ThatCantBeReadAreNone) {
    for (const char* type : {"PNG", "pn", "", " png", "gif", "bmp"}) {
        Give(type, Png(8));
        EXPECT_FALSE(QuelBitmapPour(0).IsOk()) << type;
    }
    Give("png", Png(8));
    Console.Fail("OVReadFunctionImage", 1);
    EXPECT_FALSE(QuelBitmapPour(0).IsOk());
    Function().Desc.Image.TailleImage = UINT32_MAX;
    EXPECT_TRUE(QuelBitmapPour(0).IsOk()) << "a picture, and 4 GiB of nothing behind it";
    Function().Image.clear();
    EXPECT_FALSE(QuelBitmapPour(0).IsOk());
    Function().Desc.Image.TailleImage = 0;
    Give("png", Png(8));
    Function().Image.rbegin()[20] ^= 1U; // A wrong checksum.
    EXPECT_FALSE(QuelBitmapPour(0).IsOk());
    wxImage::CleanUpHandlers();
    Give("gif", Gif{}.File());
    EXPECT_FALSE(QuelBitmapPour(0).IsOk()) << "the host has no reader for it";
}

TEST_F(Images, AreGivenToTheirDecoderWholeOrNotAtAll) {
    const std::pair<ImageBytes (*)(ImageBytes), Bytes> pictures[] = {
        {ValidPng, Png(40)}, {ValidBmp, Bmp{}.File()}, {ValidGif, Gif{}.File()}};
    for (const auto& [check, file] : pictures) {
        const std::size_t whole = check(file).size();
        EXPECT_GE(whole + 2, file.size()) << "but for the end mark of a GIF";
        for (std::size_t size = 0; size < whole; ++size) {
            ASSERT_THAT(check({file.data(), size}), IsEmpty()) << size << " of " << whole;
        }
    }
}

TEST_F(Images, OfRarerKindsAreTaken) {
    EXPECT_TRUE(IsTaken("gif", Gif{.Codes = {4, 1, 6, 1, 5}}.File(), ValidGif));
    const Bmp valid[] = {
        {.Height = 0U - 2},
        {.InfoSize = 124},
        {.Width = 7, .Height = 1, .Bits = 4, .Pixels = {0x01, 0x23, 0x32, 0x1F}},
        {.Width = 5, .Height = 1, .Bits = 24, .Colours = 0, .Pixels = Bytes(16, 3)},
        {.Packing = 1, .Pixels = {4, 1, 0, 0, 0, 4, 0, 1, 2, 3, 0, 1}},
        {.Packing = 1, .Pixels = {0, 2, 1, 1, 0, 3, 0, 1, 2, 9}},
        {.Bits = 4, .Packing = 2, .Pixels = {4, 0x12, 0, 3, 0x12, 0x30, 1, 0x1F, 0, 1}},
        {.Width = 1, .Bits = 24, .Pixels = Bytes(8, 3), .PixelOffset = 0}, // And a needless table.
        {.Bits = 4, .Colours = 256, .Pixels = {0x0F, 0x11, 0, 0, 0x0F, 0x12, 0, 0}},
        {.Width = 5, .Pixels = {0, 0, 1, 1, 1, 0, 0, 0, 0, 0, 1, 1, 1}}}; // No padding at the end.
    for (const Bmp& picture : valid) {
        EXPECT_TRUE(IsTaken("bmp", picture.File(), ValidBmp)) << &picture - valid;
    }
}

TEST_F(Images, ThatWouldHarmTheirDecoderAreNone) {
    Bytes bomb = Png(8);
    std::fill_n(bomb.begin() + 16, 8, 0x75); // 2 000 million pixels each way.
    EXPECT_FALSE(IsTaken("png", bomb, ValidPng));
    const Gif gifs[] = {{.Codes = {4, 1, 7, 1, 1, 1, 5}}, // A code that isn't made yet.
                        {.Codes = {4, 6, 6, 6, 6, 5}},    // One to be made of nothing.
                        {.Codes = {4, 1, 4, 2, 4, 3, 5}}, // A pixel is missing.
                        {.Flags = 0x80, .Codes = {4, 2, 4, 2, 4, 2, 4, 2}}, // No such colour.
                        {.Flags = 0},                                       // No colours.
                        {.CodeWidth = 12}, // Codes beyond the decoder's table.
                        {.Side = 65535}};
    for (const Gif& picture : gifs) {
        EXPECT_FALSE(IsTaken("gif", picture.File(), ValidGif)) << &picture - gifs;
    }
    const Bmp bmps[] = {
        {.Width = 30000, .Height = 30000, .Packing = 1, .Pixels = {0, 1}}, // 2 GiB of two bytes.
        {.Height = 0x80000000},
        {.Bits = 0},
        {.Colours = 3},
        {.Packing = 1, .Pixels = {5, 1, 0, 1}},                   // A run beyond its line.
        {.Packing = 1, .Pixels = {0, 5, 1, 1, 1, 1, 1, 0, 0, 1}}, // Single pixels beyond it.
        {.Packing = 1, .Pixels = {0, 2, 5, 0, 0, 1}},             // Moves out of the picture.
        {.Packing = 1, .Pixels = {0, 2, 0, 2, 4, 1, 0, 1}},
        {.Packing = 1, .Pixels = {4, 4, 0, 1}}, // A colour beyond the table.
        {.Packing = 1, .Pixels = {4, 1, 1, 1}}, // No end.
        {.InfoSize = 39}};
    for (const Bmp& picture : bmps) {
        EXPECT_FALSE(IsTaken("bmp", picture.File(), ValidBmp)) << &picture - bmps;
    }
}

} // namespace
