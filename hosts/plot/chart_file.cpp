// Charts as files, without a display.

#include "hosts/plot/chart_drawing.h"
#include "hosts/session/host_error.h"
#include "hosts/session/translation.h"

#include <cairo-svg.h>
#include <cairo.h>

#include <algorithm>
#include <cctype>
#include <memory>

namespace orvane {

namespace {

struct Destroy {
    void operator()(cairo_t* context) const {
        cairo_destroy(context);
    }
    void operator()(cairo_surface_t* surface) const {
        cairo_surface_destroy(surface);
    }
};
using Surface = std::unique_ptr<cairo_surface_t, Destroy>;

std::string Suffix(const std::string& fileName) {
    std::string suffix = std::filesystem::path(fileName).extension();
    std::ranges::transform(suffix, suffix.begin(),
                           [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return suffix;
}

using Row = std::span<const Chart>;

int WidthOf(Row row) {
    int width = 0;
    for (const Chart& chart : row) {
        width += chart.Width;
    }
    return width;
}

int HeightOf(Row row) {
    return std::ranges::max(row, {}, &Chart::Height).Height;
}

void DrawTo(cairo_surface_t* surface, Row row) {
    const std::unique_ptr<cairo_t, Destroy> context(cairo_create(surface));
    for (const Chart& chart : row) {
        DrawChart(context.get(), chart);
        cairo_translate(context.get(), chart.Width, 0.0);
    }
}

cairo_status_t WritePng(Row row, const std::filesystem::path& file) {
    const Surface surface(
        cairo_image_surface_create(CAIRO_FORMAT_RGB24, WidthOf(row), HeightOf(row)));
    DrawTo(surface.get(), row);
    return cairo_surface_write_to_png(surface.get(), file.c_str());
}

cairo_status_t WriteSvg(Row row, const std::filesystem::path& file) {
    const Surface surface(cairo_svg_surface_create(file.c_str(), WidthOf(row), HeightOf(row)));
    DrawTo(surface.get(), row);
    cairo_surface_finish(surface.get());
    return cairo_surface_status(surface.get());
}

} // namespace

void CheckChartFile(const std::string& fileName) {
    const std::string suffix = Suffix(fileName);
    if (suffix != ".png" && suffix != ".svg") {
        throw WrongArgument(Translated("The plot %s must be a .png or a .svg file.", {fileName}));
    }
}

void DrawToFile(Row row, const std::filesystem::path& file, const std::string& name) {
    const auto write = Suffix(name) == ".svg" ? WriteSvg : WritePng;
    if (write(row, file) != CAIRO_STATUS_SUCCESS) {
        throw HostError(Translated("%s cannot be written in full.", {name}));
    }
}

} // namespace orvane
