#include "hosts/plot/chart_text.h"

namespace orvane {

ChartWriter::ChartWriter(cairo_t* context, double scale)
    : Context(context), Scale(scale), Layout(pango_cairo_create_layout(context)),
      Font(pango_font_description_from_string("Sans")) {}

double Write(ChartWriter& writer, const std::string& text, double x, double y, Anchor anchor,
             const TextStyle& style) {
    pango_font_description_set_absolute_size(writer.Font.get(),
                                             style.Size * writer.Scale * PANGO_SCALE);
    pango_font_description_set_weight(writer.Font.get(),
                                      style.Bold ? PANGO_WEIGHT_BOLD : PANGO_WEIGHT_NORMAL);
    PangoLayout* layout = writer.Layout.get();
    pango_layout_set_font_description(layout, writer.Font.get());
    pango_layout_set_text(layout, text.data(), static_cast<int>(text.size()));
    int width = 0;
    int height = 0;
    pango_layout_get_pixel_size(layout, &width, &height);
    const double left = anchor == Anchor::Left ? 0.0 : anchor == Anchor::Middle ? 0.5 : 1.0;
    cairo_set_source_rgba(writer.Context, style.Ink.Red / 255.0, style.Ink.Green / 255.0,
                          style.Ink.Blue / 255.0, style.Alpha);
    cairo_move_to(writer.Context, x - left * width, y - height / 2.0);
    pango_cairo_show_layout(writer.Context, layout);
    return width;
}

} // namespace orvane
