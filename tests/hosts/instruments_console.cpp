// What a driver over the scripted console finds when it is loaded: a console with instruments.

#include "tests/support/scripted_console.h"

#include <cstdlib>
#include <fstream>

namespace {

/// A bmp of one green pixel.
std::vector<uint8_t> Picture() {
    return {'B', 'M', 0, 0, 0, 0, 0, 0, 0,  0, 54, 0, 0, 0, 40, 0,   0, 0, 1, 0,
            0,   0,   1, 0, 0, 0, 1, 0, 24, 0, 0,  0, 0, 0, 0,  0,   0, 0, 0, 0,
            0,   0,   0, 0, 0, 0, 0, 0, 0,  0, 0,  0, 0, 0, 0,  255, 0, 0};
}

/// Sets the console up, with ORVANE_TRIGGERS as one that honours triggers, with ORVANE_CHANGES as
/// one whose adapters change when the log of a run is looked at, and at the end writes the calls
/// that it got to the file of ORVANE_CALLS.
struct Instruments {
    Instruments() {
        Console.Model = 12368;
        Console.Memory.resize(32768);
        Console.Connectors[0] = Adapter("", {OutputChannel("Analog output 1", -10, 10)});
        Console.Connectors[0].Channels[0].Desc.TempsMinNs = 100'000;
        Console.Connectors[2] =
            Adapter("482060", std::vector<ScriptedChannel>(8, InputChannel("Gate", 0, 1)), 21);
        ScriptedFunction& pictured = Console.Connectors[2].Channels[1].Functions[0];
        pictured.Image = Picture();
        SetText(pictured.Desc.Image.TypeImage, "bmp");
        if (std::getenv("ORVANE_TRIGGERS") != nullptr) {
            Console.SetValue(2, 0, 0.5);
            Console.Sample = [](uint8_t, uint8_t, uint32_t index) {
                return index < 50 ? 0.25 : 0.5;
            };
        }
        if (std::getenv("ORVANE_CHANGES") != nullptr) {
            Console.OnCall = [](const std::string& operation) {
                if (operation == "OVAutoGetLogCount") {
                    Console.Plug(2);
                }
            };
        }
    }
    ~Instruments() {
        if (const char* file = std::getenv("ORVANE_CALLS"); file != nullptr) {
            std::ofstream out(file);
            for (const std::string& call : Console.TakeCalls()) {
                out << call << '\n';
            }
        }
    }
};

// The console's own object stands above this one in every file, so it is there already.
const Instruments ready;

} // namespace
