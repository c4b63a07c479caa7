#include "hosts/plot/plot_picture.h"

#include "hosts/session/host_error.h"
#include "hosts/session/number_text.h"
#include "hosts/session/translation.h"

#include <plplot.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>
#include <cmath>
#include <fstream>
#include <limits>
#include <string_view>

namespace orvane {

namespace {

// Sizes in pixels at scale 1.
constexpr int panelHeight = 400; // in a file
constexpr int marginLeft = 130;
constexpr int marginRight = 50;
constexpr int marginTop = 74;     // above each panel, for its title
constexpr int marginBottom = 100; // under the last panel, for the axis
constexpr double timeTickDistance = 130.0;
constexpr double valueTickDistance = 50.0;
constexpr double titleText = 25.0;
constexpr double labelText = 21.0;
constexpr double tickText = 19.0;
constexpr double smallDot = 5.0;
constexpr double largeDot = 8.0; // of a short run
constexpr double tickLength = 7.0;

enum Colour : PLINT { Ground, Ink, Grid, Curve, Dots };

constexpr double dotsPerInch = 90.0;

/// The plotting library takes the heights of characters and ticks in millimetres.
constexpr double Millimetres(double pixels) {
    return pixels * 25.4 / dotsPerInch;
}

void SetTextHeight(double pixels) {
    plschr(Millimetres(pixels), 1.0);
}

/// Distance of the ticks that cuts a range into about `parts`: 1, 2 or 5 times a power of ten.
double TickStep(PlotRange range, double parts) {
    constexpr double minParts = 4.0;
    const double rough = (range.To - range.From) / std::max(parts, minParts);
    const double power = std::pow(10.0, std::floor(std::log10(rough)));
    const double digit = rough / power;
    return power * (digit <= 1.0 ? 1.0 : digit <= 2.0 ? 2.0 : digit <= 5.0 ? 5.0 : 10.0);
}

struct TickSteps {
    double Time;
    double Value;
};

/// Writes a tick's number with the decimals that the tick distance needs, and a point in every
/// locale.
void LabelTick(PLINT axis, PLFLT value, char* label, PLINT length, PLPointer data) {
    const auto* steps = static_cast<const TickSteps*>(data);
    const double step = axis == PL_X_AXIS ? steps->Time : steps->Value;
    const int decimals = std::max(0, -static_cast<int>(std::floor(std::log10(step) + 1e-9)));
    const double shown = std::abs(value) < step * 1e-6 ? 0.0 : value; // no "-0"
    const auto [end, error] =
        std::to_chars(label, label + length - 1, shown, std::chars_format::fixed, decimals);
    *(error == std::errc() ? end : label) = '\0';
}

/// The range of all that is drawn, with a margin; that of the calibre if all values are equal.
PlotRange ValueRange(const PlotPanel& panel) {
    constexpr double margin = 0.08;
    const auto spans = [](PlotRange range) {
        return range.From < range.To && std::isfinite(range.To - range.From);
    };
    PlotRange range{std::numeric_limits<double>::infinity(),
                    -std::numeric_limits<double>::infinity()};
    for (const PlotPoints* points : {&panel.Dots, &panel.Curve}) {
        for (const double value : points->Values) {
            range = {std::min(range.From, value), std::max(range.To, value)};
        }
    }
    if (!spans(range)) {
        range = {panel.Min, panel.Max};
    }
    if (!spans(range)) {
        range = {-1.0, 1.0};
    }
    const double around = margin * (range.To - range.From);
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

void DrawAxes(const PlotPicture& picture, const PlotArea& area, bool last) {
    const double scale = picture.Scale;
    TickSteps steps{
        TickStep(picture.TimeSec, (area.Right - area.Left) / (timeTickDistance * scale)),
        TickStep(area.Value, (area.Bottom - area.Top) / (valueTickDistance * scale))};
    plslabelfunc(LabelTick, &steps);
    plcol0(Grid);
    plwidth(1.0 * scale);
    plbox("g", steps.Time, 0, "g", steps.Value, 0);
    plcol0(Ink);
    plwidth(1.5 * scale);
    plsmaj(Millimetres(tickLength * scale), 1.0);
    SetTextHeight(tickText * scale);
    plbox(last ? "bnoti" : "bti", steps.Time, 0, "bnotiv", steps.Value, 0);
    plslabelfunc(nullptr, nullptr);
}

/// A long line in pieces: the renderer's effort grows with the crossings within one piece.
void DrawLine(const PlotPoints& points) {
    constexpr size_t piece = 16;
    for (size_t i = 0; i + 1 < points.Values.size(); i += piece) {
        plline(static_cast<PLINT>(std::min(piece + 1, points.Values.size() - i)),
               &points.TimesSec[i], &points.Values[i]);
    }
}

/// A dot is a line without length, which the renderer gives round ends.
void DrawDots(const PlotPoints& points, double scale) {
    constexpr size_t few = 200;
    plwidth((points.Values.size() <= few ? largeDot : smallDot) * scale);
    for (size_t i = 0; i < points.Values.size(); ++i) {
        pljoin(points.TimesSec[i], points.Values[i], points.TimesSec[i], points.Values[i]);
    }
}

void DrawSeries(const PlotPanel& panel, double scale) {
    plcol0(Dots);
    DrawDots(panel.Dots, scale);
    plcol0(Curve);
    if (panel.Curve.Values.size() == 1) {
        DrawDots(panel.Curve, scale);
    }
    plwidth(2.5 * scale);
    DrawLine(panel.Curve);
}

void DrawTexts(const PlotPicture& picture, const PlotPanel& panel, const PlotArea& area,
               bool last) {
    plcol0(Ink);
    SetTextHeight(titleText * picture.Scale);
    plmtex("t", 0.9, 0.0, 0.0, PlotText(panel.Title).c_str());
    SetTextHeight(labelText * picture.Scale);
    plmtex("l", 4.4, 0.5, 0.5, PlotText(panel.ValueLabel).c_str());
    if (last) {
        plmtex("b", 3.4, 0.5, 0.5, PlotText(picture.TimeLabel).c_str());
    }
    double right = 1.0; // of the panel's width
    const auto legend = [&](Colour colour, const std::string& text) {
        if (!text.empty()) {
            constexpr double meanCharacter = 0.55; // width in heights
            plcol0(colour);
            plmtex("t", 1.0, right, 1.0, text.c_str());
            right -= static_cast<double>(CharacterCount(text) + 2) * meanCharacter * labelText *
                     picture.Scale / (area.Right - area.Left);
        }
    };
    legend(Curve, panel.Curve.Values.empty() ? "" : PlotText(picture.CurveLegend));
    legend(Dots, PlotText(picture.DotsLegend));
}

/// Draws to the device that is set. `setTarget` tells the device where to.
template <class SetTarget>
void Draw(const PlotPicture& picture, const std::string& device, const SetTarget& setTarget) {
    plsdev(device.c_str());
    setTarget();
    plspage(dotsPerInch, dotsPerInch, picture.Width, picture.Height, 0, 0);
    SetColours();
    plinit();
    pladv(0);
    const std::vector<PlotArea> areas = PlotAreas(picture);
    for (size_t i = 0; i < areas.size(); ++i) {
        const PlotArea& area = areas[i];
        const bool last = i + 1 == areas.size();
        plvpor(area.Left / picture.Width, area.Right / picture.Width,
               1.0 - area.Bottom / picture.Height, 1.0 - area.Top / picture.Height);
        plwind(picture.TimeSec.From, picture.TimeSec.To, area.Value.From, area.Value.To);
        DrawAxes(picture, area, last);
        DrawSeries(picture.Panels[i], picture.Scale);
        DrawTexts(picture, picture.Panels[i], area, last);
    }
    plend1(); // plend would search for all devices again at the next picture, and leak memory each
              // time.
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

/// A device does not report a full disk, so the end of the file is checked.
bool IsComplete(const std::filesystem::path& file, const std::string& device) {
    const std::string_view end = device == "svgcairo" ? "</svg>" : "IEND";
    constexpr std::streamoff tail = 16;
    std::ifstream in(file, std::ios::binary);
    in.seekg(-tail, std::ios::end);
    const std::string text(std::istreambuf_iterator<char>(in), {});
    return text.find(end) != std::string::npos;
}

} // namespace

int FileHeight(size_t panels) {
    return static_cast<int>(panels) * (marginTop + panelHeight) + marginBottom;
}

std::vector<PlotArea> PlotAreas(const PlotPicture& picture) {
    const auto count = static_cast<double>(picture.Panels.size());
    const double top = marginTop * picture.Scale;
    const double left = marginLeft * picture.Scale;
    // A picture that is too small for its margins keeps a pixel for each panel.
    const double height =
        std::max((picture.Height - marginBottom * picture.Scale) / count - top, 1.0);
    const double right = std::max(picture.Width - marginRight * picture.Scale, left + 1.0);
    std::vector<PlotArea> areas;
    double y = top;
    for (const PlotPanel& panel : picture.Panels) {
        areas.push_back({left, right, y, y + height, ValueRange(panel)});
        y += height + top;
    }
    return areas;
}

std::string PlotDeviceFor(const std::string& fileName) {
    std::string suffix = std::filesystem::path(fileName).extension();
    std::ranges::transform(suffix, suffix.begin(), [](unsigned char c) { return std::tolower(c); });
    if (suffix != ".png" && suffix != ".svg") {
        throw WrongArgument(Translated("The plot %s must be a .png or a .svg file.", {fileName}));
    }
    std::string device = suffix == ".png" ? "pngcairo" : "svgcairo";
    // If the device is missing, the initialisation would ask the user for another.
    if (!HasDevice(device)) {
        throw HostError(
            Translated("The plotting library has no device %s for %s.", {device, fileName}));
    }
    return device;
}

void DrawToFile(const PlotPicture& picture, const std::filesystem::path& file,
                const std::string& name, const std::string& device) {
    Draw(picture, device, [&] { plsfnam(file.c_str()); });
    if (!IsComplete(file, device)) {
        throw HostError(Translated("%s cannot be written in full.", {name}));
    }
}

void DrawToPixels(const PlotPicture& picture, unsigned char* pixels) {
    // The device draws over what is there.
    constexpr size_t colours = 3;
    std::fill_n(pixels,
                colours * static_cast<size_t>(picture.Width) * static_cast<size_t>(picture.Height),
                static_cast<unsigned char>(0xff));
    Draw(picture, "memcairo", [&] { plsmem(picture.Width, picture.Height, pixels); });
}

} // namespace orvane
