// Pictures of functions and adjustments: the rules of each format, seen in pixels, and bytes that
// are no picture.

#include "connection/connection_state.h"
#include "image_exports.h"
#include "images/image_checks.h"
#include "tests/support/started_driver.h"

#include <wx/bitmap.h>
#include <wx/imaggif.h>
#include <wx/imagpng.h>
#include <wx/log.h>
#include <wx/mstream.h>

#include <memory>

using namespace orvane;

namespace {

using Bytes = std::vector<uint8_t>;

Bytes operator+(Bytes left, const Bytes& right) {
    left.insert(left.end(), right.begin(), right.end());
    return left;
}

Bytes Little(uint32_t number, int bytes) {
    const auto low = static_cast<uint8_t>(number);
    return bytes == 0 ? Bytes() : Bytes{low} + Little(number >> 8, bytes - 1);
}

/// A square of a magenta and a green column.
Bytes Png() {
    wxImage image(2, 2);
    image.SetRGB(wxRect(0, 0, 1, 2), 255, 0, 255);
    image.SetRGB(wxRect(1, 0, 1, 2), 0, 128, 0);
    wxMemoryOutputStream stream;
    wxPNGHandler().SaveFile(&image, stream);
    Bytes bytes(stream.GetSize());
    stream.CopyTo(bytes.data(), bytes.size());
    return bytes;
}

/// A square GIF. Code 4 is a clear and 5 the end; colour 0 is magenta and colour 1 green.
struct Gif {
    uint32_t Side = 2;
    uint8_t Flags = 0x81; ///< With a table of 4 colours.
    uint8_t CodeWidth = 2;
    std::vector<unsigned> Codes{4, 0, 4, 1, 4, 0, 4, 1, 5};

    /// Data blocks of 255 bytes with the codes, one bit wider when the strings made need it.
    [[nodiscard]] Bytes Blocks() const {
        Bytes blocks;
        std::size_t position = 0;
        unsigned width = 3;
        unsigned strings = 0;
        for (const unsigned code : Codes) {
            for (unsigned bit = 0; bit < width; ++bit, ++position) {
                const std::size_t block = position / (8 * 255);
                blocks.resize(256 * (block + 1));
                blocks[256 * block] = 255;
                blocks[position / 8 + block + 1] |=
                    static_cast<uint8_t>((code >> bit & 1U) << position % 8);
            }
            strings = code == 4 ? 5 : strings + 1;
            width = code == 4 ? 3 : std::min(12U, width + (strings == 1U << width ? 1 : 0));
        }
        return blocks;
    }
    [[nodiscard]] Bytes File() const {
        Bytes colours{255, 0, 255, 0, 128, 0, 1, 1, 1, 2, 2, 2};
        colours.resize(Flags == 0 ? 0 : std::size_t{6} << (Flags & 7U));
        const Bytes size = Little(Side, 2) + Little(Side, 2);
        return Bytes{'G', 'I', 'F', '8', '9', 'a'} + size + Bytes{Flags, 0, 0} + colours +
               Bytes{0x21, 0xFE, 2, 'h', 'i', 0, 0x21, 0xF9, 4, 0, 0, 0, 0, 0, 0x2C, 0, 0, 0, 0} +
               size + Bytes{0, CodeWidth} + Blocks() + Bytes{0, 0x3B};
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
    bool TellsOffset = true;

    [[nodiscard]] Bytes File() const {
        Bytes table{255, 0, 255, 0, 0, 128, 0, 0};
        table.resize(std::size_t{4} * Colours);
        return Bytes{'B', 'M'} + Bytes(8, 0) +
               Little(TellsOffset ? 14 + InfoSize + 4 * Colours : 0, 4) + Little(InfoSize, 4) +
               Little(Width, 4) + Little(Height, 4) + Little(1, 2) + Little(Bits, 2) +
               Little(Packing, 4) + Bytes(12, 0) + Little(Colours, 4) + Bytes(InfoSize - 36, 0) +
               table + Pixels;
    }
};

struct Format {
    const char* Type;
    ImageBytes (*Check)(ImageBytes);
    std::size_t EndMark; ///< Bytes that the decoder can do without.
};
constexpr Format png{"png", ValidPng, 0};
constexpr Format bmp{"bmp 4 colours", ValidBmp, 0};
constexpr Format gif{"gif", ValidGif, 2};

/// A measuring channel 0 with an adjustment 1 of mode 4 and its state 2, enumerated.
class Images : public testing::Test {
protected:
    Images() {
        wxImage::AddHandler(std::make_unique<wxPNGHandler>().release());
        wxImage::AddHandler(std::make_unique<wxGIFHandler>().release());
        ScriptedChannel state = StateChannel("Reglage=4");
        state.Functions.push_back(state.Functions[0]);
        state.Desc.FonctionCourante = 1;
        Console.Connectors[1] =
            Adapter("482034", {InputChannel("U", -12, 12), AdjustmentChannel("Reglage=4"), state});
        StartDriver();
        wxLog::SetActiveTarget(&log);
    }
    ~Images() override {
        EXPECT_EQ(log.GetBuffer(), "");
        wxLog::SetActiveTarget(nullptr);
    }
    static void Give(const char* type, const Bytes& bytes) {
        for (ScriptedFunction* function : {&Channel().Functions[0], &Channel(2).Functions[1]}) {
            SetText(function->Desc.Image.TypeImage, type);
            function->Image = bytes;
        }
    }
    /// A valid picture becomes a bitmap, and less of it is never decoded; another is none.
    static void Expect(bool valid, const Format& format, const Bytes& bytes) {
        Give(format.Type, bytes);
        EXPECT_EQ(QuelBitmapPour(0).IsOk(), valid);
        const std::size_t whole = valid ? bytes.size() - format.EndMark : 0;
        EXPECT_EQ(format.Check(bytes).size(), whole);
        for (std::size_t size = 0; size < whole; ++size) {
            ASSERT_TRUE(format.Check({bytes.data(), size}).empty()) << size << " of " << whole;
        }
    }
    wxLogBuffer log; ///< The host's, to which nothing is written.
};

TEST_F(Images, HaveTheirSizeAndTransparencyByFormatAndQuestion) {
    const Bytes large =
        Bmp{.Width = 32, .Height = 32, .Pixels = Bytes(512, 0) + Bytes(512, 1)}.File();
    for (const auto& [format, file, size] : {std::tuple{bmp, Bmp{}.File(), "4 | 2 | "},
                                             {bmp, large, "32 | 32 | "},
                                             {gif, Gif{}.File(), "2 | 2 | "},
                                             {png, Png(), "2 | 2 | "}}) {
        Expect(true, format, file);
        const wxBitmap bitmap = QuelBitmapPour(0);
        const wxBitmap ofState = QuelImageReglagePour(0);
        ASSERT_TRUE(bitmap.IsOk() && ofState.IsOk());
        const wxImage image = bitmap.ConvertToImage();
        const bool masked = format.Check == ValidBmp;
        EXPECT_EQ(Text(image.GetWidth(), image.GetHeight(), bitmap.GetMask() != nullptr,
                       image.IsTransparent(15, 31), image.IsTransparent(31, 0),
                       +image.GetGreen(31, 0)),
                  Text(32, 32, masked, masked, 0, 128));
        EXPECT_EQ(Text(ofState.GetWidth(), ofState.GetHeight()), size);
        EXPECT_EQ(ofState.GetMask(), nullptr);
    }
}

TEST_F(Images, AreFetchedAtEachCallUnlessTheyAreRefusedBefore) {
    const auto taken = [] {
        Console.TakeCalls();
        std::string pictures = Text(QuelBitmapPour(0).IsOk());
        pictures += Text(QuelImageReglagePour(0).IsOk());
        return pictures + Calls();
    };
    const Bytes file = Gif{}.File();
    Give("gif", file);
    const std::string size = ", " + std::to_string(file.size()) + ") ";
    const std::string state = "OVGetChannelDesc(1, 2) OVGetFunctionDesc(1, 2, 1) ";
    taken(); // Nothing is kept for the next call.
    EXPECT_EQ(taken(), "1 | 1 | OVGetFunctionDesc(1, 0, 0) OVReadFunctionImage(1, 0, 0" + size +
                           state + "OVReadFunctionImage(1, 2, 1" + size);
    Connection.ConsoleModel = 12336;
    EXPECT_EQ(taken(), "0 | 0 | " + state);
    Connection.ConsoleModel = 12304;
    Console.Fail("OVReadFunctionImage", 2);
    EXPECT_EQ(taken().substr(0, 8), "0 | 0 | ");
    Bytes broken = Png();
    broken.rbegin()[20] ^= 1U; // A wrong checksum.
    for (const auto& [type, bytes] : {std::pair{"GIF", file}, {"png", broken}}) {
        Give(type, bytes);
        EXPECT_EQ(taken().substr(0, 8), "0 | 0 | ") << type;
    }
    Voie().ModeReglage = 5;
    Give("gif", {});
    EXPECT_EQ(taken(), "0 | 0 | OVGetFunctionDesc(1, 0, 0) ");
    EXPECT_FALSE(QuelBitmapPour(-1).IsOk() || QuelImageReglagePour(1).IsOk());
}

/// A clear, so many codes of one pixel each without another one, and the rest of 4096 pixels.
Bytes LongGif(std::size_t codes) {
    Gif picture{.Side = 64, .Codes = std::vector<unsigned>(codes + 1, 1)};
    picture.Codes[0] = 4;
    picture.Codes.push_back(4);
    picture.Codes.resize(4096 + 2, 1);
    return picture.File();
}

TEST_F(Images, OfRarerKindsAreTaken) {
    Expect(true, gif, Gif{.Codes = {4, 1, 6, 1, 5}}.File());
    Expect(true, gif, LongGif(4091)); // The table of strings is full.
    const Bmp valid[] = {
        {.Height = 0U - 2},
        {.InfoSize = 124},
        {.Width = 7, .Bits = 4, .Pixels = {0x01, 0x23, 0x32, 0x1F, 0x01, 0x23, 0x32, 0x1F}},
        {.Width = 5, .Height = 1, .Bits = 24, .Colours = 0, .Pixels = Bytes(15, 3)},
        {.Packing = 1, .Pixels = {4, 1, 0, 0, 0, 4, 0, 1, 2, 3}},
        {.Packing = 1, .Pixels = {0, 2, 1, 1, 0, 3, 0, 1, 2, 9}},
        {.Packing = 1, .Pixels = {3, 1, 0, 1}},
        {.Bits = 4, .Packing = 2, .Pixels = {4, 0x12, 0, 3, 0x12, 0x30, 1, 0x1F}},
        {.Width = 1, .Bits = 24, .Pixels = Bytes(7, 3), .TellsOffset = false}, // A needless table.
        {.Bits = 4, .Colours = 256, .Pixels = {0x0F, 0x11, 0, 0, 0x0F, 0x12}},
        {.Width = 5, .Pixels = {0, 0, 1, 1, 1, 0, 0, 0, 0, 0, 1, 1, 1}}}; // No padding at the end.
    for (const Bmp& picture : valid) {
        SCOPED_TRACE(&picture - valid);
        Expect(true, bmp, picture.File());
    }
}

TEST_F(Images, ThatWouldHarmTheirDecoderAreNone) {
    EXPECT_TRUE(IsReasonableSize(4096, 4096) && !IsReasonableSize(4096, 4097));
    Bytes bomb = Png();
    std::fill_n(bomb.begin() + 16, 8, 0x75); // 2 000 million pixels each way.
    Expect(false, png, bomb);
    Expect(false, gif, LongGif(4092));                    // One code for which there is no string.
    const Gif gifs[] = {{.Codes = {4, 1, 7, 1, 1, 1, 5}}, // A code that isn't made yet.
                        {.Codes = {4, 0, 4, 6, 6, 6, 6, 5}}, // One to be made of nothing.
                        {.Codes = {4, 1, 4, 2, 4, 3, 5}},    // A pixel is missing.
                        {.Flags = 0x80, .Codes = {4, 2, 4, 2, 4, 2, 4, 2}}, // No such colour.
                        {.Flags = 0},                                       // No colours.
                        {.CodeWidth = 12}, // Codes beyond the decoder's table.
                        {.Side = 65535}};
    for (const Gif& picture : gifs) {
        SCOPED_TRACE(&picture - gifs);
        Expect(false, gif, picture.File());
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
        SCOPED_TRACE(&picture - bmps);
        Expect(false, bmp, picture.File());
    }
}

} // namespace
