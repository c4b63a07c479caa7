// The cost of queries that the virtual console's adapters don't support: adjustments and pictures.
// The driver is linked with a virtual console whose voltmeter is given both.

#include "adjustment_exports.h"
#include "channel_exports.h"
#include "channels/channel_lists.h"
#include "console/virtual/console_tree.h"
#include "cost_table.h"
#include "image_exports.h"
#include "lifecycle_exports.h"
#include "settings_exports.h"

#include <wx/bitmap.h>
#include <wx/image.h>
#include <wx/imagpng.h>
#include <wx/init.h>
#include <wx/mstream.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>

namespace orvane {

namespace {

std::vector<uint8_t> Picture;

/// A 32 by 32 png with as many colours as a drawn picture has.
std::vector<uint8_t> DrawPicture() {
    wxImage image(32, 32);
    for (int y = 0; y < 32; ++y) {
        for (int x = 0; x < 32; ++x) {
            image.SetRGB(x, y, static_cast<uint8_t>(x / 4 * 32), static_cast<uint8_t>(y * 8), 128);
        }
    }
    wxMemoryOutputStream stream;
    wxPNGHandler().SaveFile(&image, stream);
    std::vector<uint8_t> bytes(stream.GetSize());
    stream.CopyTo(bytes.data(), bytes.size());
    return bytes;
}

/// Makes the voltmeter its own adjustment, with a state and a picture.
void GiveAdjustment() {
    virtual_console::ChannelNode& node = *virtual_console::ChannelAt(1, 0);
    std::strcpy(node.Desc.Description, "Arrêt|Marche|Défaut");
    tFunctionDesc& function = node.Fonctions[0].Desc;
    function.NbVoiesLiees = 1;
    function.Image.TailleImage = static_cast<uint32_t>(Picture.size());
    std::strcpy(function.Image.TypeImage, "png");
    TvlVoieOrvane& voie = *InputChannels[0];
    voie.VoieReglage = voie.VoieEtat = 0;
}

template <auto Question, int Mode> void Ask(benchmark::State& state) {
    InputChannels[0]->ModeReglage = Mode;
    Measure(state, [] { return Question(0); });
}

void StateText(benchmark::State& state) {
    InputChannels[0]->ModeReglage = 3;
    int number = 0;
    Measure(state, [&] { return QuelStatusPour(0, &number); });
}

void SelectCalibre(benchmark::State& state) {
    int calibre = 0;
    for ([[maybe_unused]] auto _ : state) {
        calibre = 1 - calibre;
        MetCalibrePour(0, calibre);
    }
}

BENCHMARK(ClockRead);
BENCHMARK(Ask<QuelReglagePour, 5>)->Name("Code");
BENCHMARK(Ask<QuelValeurStatusPour, 5>)->Name("StateNumber");
BENCHMARK(Ask<QuelValeurReglagePour, 5>)->Name("AdjustmentValue");
BENCHMARK(Ask<QuelLibelleReglagePour, 5>)->Name("Label");
BENCHMARK(StateText);
BENCHMARK(SelectCalibre);
BENCHMARK(Ask<QuelBitmapPour, 4>)->Name("FunctionPicture");
BENCHMARK(Ask<QuelImageReglagePour, 4>)->Name("StatePicture");

const std::vector<Bound> Bounds{
    {"Code", "the kind of an adjustment", 1.5},
    {"StateNumber", "the number of its state", 1.5},
    {"AdjustmentValue", "its value (a record and a value)", 3.0},
    {"Label", "its label", 5.5},
    {"StateText", "the text of its state", 5.5},
    {"SelectCalibre", "selecting another calibre", 0},
    {"FunctionPicture", "a png picture of a function, 32 by 32", 1000},
    {"StatePicture", "a png picture of a state, 32 by 32", 1000},
};

} // namespace

} // namespace orvane

using namespace orvane;

// The linker puts it in place of the console's own.
extern "C" bool PictureOverride(uint8_t, uint8_t, uint8_t, uint8_t* buffer,
                                uint32_t size) __asm__("__wrap__Z19OVReadFunctionImagehhhPhj");

bool PictureOverride(uint8_t /*connector*/, uint8_t /*channel*/, uint8_t /*function*/,
                     uint8_t* buffer, uint32_t size) {
    std::copy_n(Picture.begin(), size, buffer);
    return true;
}

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    const wxInitializer toolkit;
    wxImage::AddHandler(std::make_unique<wxPNGHandler>().release());
    // The start reports on standard error that the console has no memory.
    if (std::freopen("/dev/null", "w", stderr) == nullptr) {
        return EXIT_FAILURE;
    }
    Picture = DrawPicture();
    StartDll(0, "", "fr", 0);
    CombienDeCanauxEnEntree();
    GiveAdjustment();
    CostCollector costs;
    benchmark::RunSpecifiedBenchmarks(&costs);
    PrintCosts(costs, "ClockRead", Bounds);
    StopDll();
    return EXIT_SUCCESS;
}
