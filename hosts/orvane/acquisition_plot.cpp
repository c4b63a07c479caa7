#include "hosts/orvane/acquisition_plot.h"

#include "hosts/common/host_error.h"
#include "hosts/common/sample_series.h"

#include <plplot.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <string_view>

namespace {

// Sizes in pixels.
constexpr int pictureWidth = 1600;
constexpr int panelHeight = 400;
constexpr int marginLeft = 130;
constexpr int marginRight = 50;
constexpr int marginTop = 74;     // above each panel, for its title
constexpr int marginBottom = 100; // under the last panel, for the axis
constexpr double titleText = 25.0;
constexpr double labelText = 21.0;
constexpr double tickText = 19.0;
constexpr double dotText = 18.0;
constexpr double largeDotText = 30.0; // of a short run
constexpr double tickLength = 7.0;

constexpr size_t drawnSteps = 1400; // about one for each pixel of a panel's width

enum Colour : PLINT { Ground, Ink, Grid, Curve, Dots };

struct Range {
    double From;
    double To;
};

constexpr double dotsPerInch = 90.0;

/// The plotting library takes the heights of characters and ticks in millimetres.
constexpr double Millimetres(double pixels) {
    return pixels * 25.4 / dotsPerInch;
}

void SetTextHeight(double pixels) {
    plschr(Millimetres(pixels), 1.0);
}

/// Distance of the ticks that cuts a range into about `parts`: 1, 2 or 5 times a power of ten.
double TickStep(Range range, double parts) {
    const double rough = (range.To - range.From) / parts;
    const double power = std::pow(10.0, std::floor(std::log10(rough)));
    const double digit = rough / power;
    return power * (digit <= 1.0 ? 1.0 : digit <= 2.0 ? 2.0 : digit <= 5.0 ? 5.0 : 10.0);
}

struct TickSteps {
    double Time;
    double Value;
};

/// Writes a tick's number with the decimals that the tick distance needs.
void LabelTick(PLINT axis, PLFLT value, char* label, PLINT length, PLPointer data) {
    const auto* steps = static_cast<const TickSteps*>(data);
    const double step = axis == PL_X_AXIS ? steps->Time : steps->Value;
    const int decimals = std::max(0, -static_cast<int>(std::floor(std::log10(step) + 1e-9)));
    const double shown = std::abs(value) < step * 1e-6 ? 0.0 : value; // no "-0"
    std::snprintf(label, static_cast<size_t>(length), "%.*f", decimals, shown);
}

/// From a little before the first point, whose dot stays whole so, to the end of the last period.
Range TimeRange(std::span<const double> times) {
    constexpr double air = 0.006;
    const double period = times.size() > 1 ? times[1] - times[0] : 1.0;
    const double end = times.back() + period;
    return {times.front() - air * (end - times.front()), end};
}

/// All that is drawn with some air around it; the calibre if that spans no range.
Range ValueRange(const PlotPanel& panel) {
    constexpr double air = 0.08;
    const SeriesSummary live = Summarise(panel.Live);
    const SeriesSummary fetched = panel.Fetched.empty() ? live : Summarise(panel.Fetched);
    const auto spans = [](Range range) {
        return range.From < range.To && std::isfinite(range.To - range.From);
    };
    Range range{std::min(live.Min, fetched.Min), std::max(live.Max, fetched.Max)};
    if (!spans(range)) {
        range = {panel.Min, panel.Max};
    }
    if (!spans(range)) {
        range = {-1.0, 1.0};
    }
    const double around = air * (range.To - range.From);
    return {range.From - around, range.To + around};
}

/// The plotting library takes a # for the start of a command.
std::string PlotText(const std::string& text) {
    std::string escaped;
    for (const char c : text) {
        escaped += c == '#' ? "##" : std::string(1, c);
    }
    return escaped;
}

void SetColours() {
    plscol0(Ground, 255, 255, 255);
    plscol0(Ink, 45, 52, 60);
    plscol0(Grid, 226, 230, 235);
    plscol0(Curve, 20, 90, 170);
    plscol0(Dots, 240, 140, 40);
}

void DrawAxes(Range time, Range value, bool last) {
    TickSteps steps{TickStep(time, 11.0), TickStep(value, 8.0)};
    plslabelfunc(LabelTick, &steps);
    plcol0(Grid);
    plwidth(1.0);
    plbox("g", steps.Time, 0, "g", steps.Value, 0);
    plcol0(Ink);
    plwidth(1.5);
    plsmaj(Millimetres(tickLength), 1.0);
    SetTextHeight(tickText);
    plbox(last ? "bnoti" : "bti", steps.Time, 0, "bnotiv", steps.Value, 0);
    plslabelfunc(nullptr, nullptr);
}

void DrawSeries(const PlotPanel& panel, std::span<const double> times) {
    constexpr size_t shortRun = 200;
    plcol0(Dots);
    SetTextHeight(panel.Live.size() <= shortRun ? largeDotText : dotText);
    for (const size_t i : SamplesToDraw(panel.Live, drawnSteps)) {
        plstring(1, &times[i], &panel.Live[i], "•");
    }
    std::vector<double> x;
    std::vector<double> y;
    for (const size_t i : SamplesToDraw(panel.Fetched, drawnSteps)) {
        x.push_back(times[i]);
        y.push_back(panel.Fetched[i]);
    }
    plcol0(Curve);
    if (x.size() == 1) {
        plstring(1, x.data(), y.data(), "•");
    }
    plwidth(2.5);
    plline(static_cast<PLINT>(x.size()), x.data(), y.data());
}

void DrawTexts(const PlotPanel& panel, bool last) {
    plcol0(Ink);
    SetTextHeight(titleText);
    plmtex("t", 0.9, 0.0, 0.0, PlotText(panel.Title).c_str());
    SetTextHeight(labelText);
    plmtex("l", 4.4, 0.5, 0.5, PlotText(panel.ValueLabel).c_str());
    if (last) {
        plmtex("b", 3.4, 0.5, 0.5, "Time (s)");
    }
    constexpr double legendStep = 0.092; // of the panel's width
    double right = 1.0;
    if (!panel.Fetched.empty()) {
        plcol0(Curve);
        plmtex("t", 1.0, right, 1.0, "— fetched");
        right -= legendStep;
    }
    plcol0(Dots);
    plmtex("t", 1.0, right, 1.0, "• live");
}

bool HasDevice(std::string_view device) {
    std::array<const char*, 128> descriptions{};
    std::array<const char*, 128> names{};
    const char** descriptionsBegin = descriptions.data();
    const char** namesBegin = names.data();
    int count = static_cast<int>(names.size());
    plgFileDevs(&descriptionsBegin, &namesBegin, &count);
    return std::ranges::count(names.begin(), names.begin() + count, device) > 0;
}

/// A device that meets a full disk says nothing: the end of the file tells.
bool IsComplete(const std::filesystem::path& file, const std::string& device) {
    const std::string_view end = device == "svgcairo" ? "</svg>" : "IEND";
    constexpr std::streamoff tail = 16;
    std::ifstream in(file, std::ios::binary);
    in.seekg(-tail, std::ios::end);
    const std::string text(std::istreambuf_iterator<char>(in), {});
    return text.find(end) != std::string::npos;
}

} // namespace

std::string PlotDeviceFor(const std::string& fileName) {
    std::string suffix = std::filesystem::path(fileName).extension();
    std::ranges::transform(suffix, suffix.begin(), [](unsigned char c) { return std::tolower(c); });
    if (suffix != ".png" && suffix != ".svg") {
        throw WrongArgument("The plot " + fileName + " must be a .png or a .svg file.");
    }
    std::string device = suffix == ".png" ? "pngcairo" : "svgcairo";
    // Initialised with a device that it lacks, the plotting library would ask the user for another.
    if (!HasDevice(device)) {
        throw HostError("The plotting library has no device " + device + " for " + fileName + ".");
    }
    return device;
}

void DrawAcquisition(const std::filesystem::path& file, const std::string& name,
                     const std::string& device, std::span<const double> timesSec,
                     const std::vector<PlotPanel>& panels) {
    const auto count = static_cast<int>(panels.size());
    const int height = count * (marginTop + panelHeight) + marginBottom;
    plsdev(device.c_str());
    plsfnam(file.c_str());
    plspage(dotsPerInch, dotsPerInch, pictureWidth, height, 0, 0);
    SetColours();
    plinit();
    pladv(0);
    const Range time = TimeRange(timesSec);
    for (int i = 0; i < count; ++i) {
        const PlotPanel& panel = panels[static_cast<size_t>(i)];
        const bool last = i + 1 == count;
        const double top = height - (i + 1) * marginTop - i * panelHeight;
        plvpor(1.0 * marginLeft / pictureWidth, 1.0 - 1.0 * marginRight / pictureWidth,
               (top - panelHeight) / height, top / height);
        const Range value = ValueRange(panel);
        plwind(time.From, time.To, value.From, value.To);
        DrawAxes(time, value, last);
        DrawSeries(panel, timesSec);
        DrawTexts(panel, last);
    }
    plend();
    if (!IsComplete(file, device)) {
        throw HostError(name + " cannot be written in full.");
    }
}
