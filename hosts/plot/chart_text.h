#pragma once

#include "hosts/plot/chart_colours.h"

#include <pango/pangocairo.h>

#include <memory>
#include <string>

namespace orvane {

/// Where a text lies relative to its point.
enum class Anchor { Left, Middle, Right };

/// Writes the texts of one chart.
struct ChartWriter {
    ChartWriter(cairo_t* context, double scale);

    struct Unref {
        void operator()(PangoLayout* layout) const {
            g_object_unref(layout);
        }
        void operator()(PangoFontDescription* font) const {
            pango_font_description_free(font);
        }
    };
    cairo_t* Context;
    double Scale;
    std::unique_ptr<PangoLayout, Unref> Layout;
    std::unique_ptr<PangoFontDescription, Unref> Font;
};

struct TextStyle {
    Colour Ink;
    double Size = 13.0; ///< Height of the font at scale 1.
    bool Bold = false;
    double Alpha = 1.0;
};

/// Writes a text whose anchor lies at x and whose middle lies at y. Returns its width.
double Write(ChartWriter& writer, const std::string& text, double x, double y, Anchor anchor,
             const TextStyle& style);

} // namespace orvane
