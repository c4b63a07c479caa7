// Draws charts with Cairo.

#include "hosts/plot/chart_drawing.h"

#include "hosts/plot/axis_ticks.h"
#include "hosts/plot/chart_text.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <span>

namespace orvane {

namespace {

constexpr double timeTickDistance = 90.0;
constexpr double valueTickDistance = 38.0;
constexpr double tickLength = 4.0;
constexpr double pale = 0.45;

/// A chart that is being drawn.
struct Drawing {
    cairo_t* To;
    const Chart& What;
    ChartWriter Writer;
};

Colour ColourOf(const Chart& chart, ChartInk ink) {
    return ink.Curve == ChartInk::Mark ? chart.Colours.Mark
                                       : chart.Colours.Curves[CurveColourOf(ink.Curve)];
}

void SetInk(const Drawing& drawing, Colour colour, double alpha = 1.0) {
    cairo_set_source_rgba(drawing.To, colour.Red / 255.0, colour.Green / 255.0, colour.Blue / 255.0,
                          alpha);
}

void SetLine(const Drawing& drawing, double width, Dash dash) {
    const double scale = drawing.What.Scale;
    const std::array<double, 2> dashed{6.0 * scale, 3.0 * scale};
    const std::array<double, 2> dotted{2.0 * scale, 2.0 * scale};
    const auto& pattern = dash == Dash::Dashed ? dashed : dotted;
    cairo_set_line_width(drawing.To, width * scale);
    cairo_set_dash(drawing.To, pattern.data(), dash == Dash::Solid ? 0 : 2, 0.0);
}

/// On the middle of a pixel, so that a thin line is sharp.
double Sharp(double pixel) {
    return std::floor(pixel) + 0.5;
}

void Line(const Drawing& drawing, double x1, double y1, double x2, double y2) {
    cairo_move_to(drawing.To, x1, y1);
    cairo_line_to(drawing.To, x2, y2);
    cairo_stroke(drawing.To);
}

void DrawGround(const Drawing& drawing) {
    SetInk(drawing, drawing.What.Colours.Ground);
    cairo_rectangle(drawing.To, 0.0, 0.0, drawing.What.Width, drawing.What.Height);
    cairo_fill(drawing.To);
}

void DrawShades(const Drawing& drawing, const ChartLane& lane, const ChartArea& area) {
    SetInk(drawing, drawing.What.Colours.Shade);
    for (const ChartShade& shade : lane.Shades) {
        const double from =
            shade.Horizontal ? PixelY(area, shade.Range.To) : PixelX(area, shade.Range.From);
        const double to =
            shade.Horizontal ? PixelY(area, shade.Range.From) : PixelX(area, shade.Range.To);
        if (shade.Horizontal) {
            const double top = std::clamp(from, area.Top, area.Bottom);
            cairo_rectangle(drawing.To, area.Left, top, area.Right - area.Left,
                            std::clamp(to, area.Top, area.Bottom) - top);
        } else {
            const double left = std::clamp(from, area.Left, area.Right);
            cairo_rectangle(drawing.To, left, area.Top,
                            std::clamp(to, area.Left, area.Right) - left, area.Bottom - area.Top);
        }
        cairo_fill(drawing.To);
    }
}

void DrawRowNames(Drawing& drawing, const ChartLane& lane, const ChartArea& area) {
    for (size_t row = 0; row < lane.Rows.size(); ++row) {
        const double y = Sharp(PixelY(area, static_cast<double>(row + 1)));
        SetInk(drawing, drawing.What.Colours.Grid);
        Line(drawing, area.Left, y, area.Right, y);
        Write(drawing.Writer, lane.Rows[row], area.Left - 8.0 * drawing.What.Scale,
              PixelY(area, static_cast<double>(row) + 0.5), Anchor::Right,
              {.Ink = drawing.What.Colours.Ink});
    }
}

void DrawAxes(Drawing& drawing, const ChartLane& lane, const ChartArea& area, bool last) {
    const Chart& chart = drawing.What;
    const double scale = chart.Scale;
    const TextStyle text{.Ink = chart.Colours.Ink};
    const AxisRange shownX{area.X.From / chart.XUnit, area.X.To / chart.XUnit};
    const AxisTicks xTicks = TicksOf(shownX, area.Right - area.Left, timeTickDistance * scale);
    const AxisRange shownValue{area.Value.From / lane.Unit, area.Value.To / lane.Unit};
    const AxisTicks yTicks = TicksOf(shownValue, area.Bottom - area.Top, valueTickDistance * scale);
    SetLine(drawing, 1.0, Dash::Solid);
    for (size_t i = 0; i < xTicks.Count; ++i) {
        const double x = Sharp(PixelX(area, TickAt(xTicks, i) * chart.XUnit));
        SetInk(drawing, chart.Colours.Grid);
        Line(drawing, x, area.Top, x, area.Bottom);
        SetInk(drawing, chart.Colours.Ink);
        if (last) {
            Line(drawing, x, area.Bottom, x, area.Bottom + tickLength * scale);
            Write(drawing.Writer, TickText(xTicks, i, chart.DecimalPoint), x,
                  area.Bottom + 14.0 * scale, Anchor::Middle, text);
        }
    }
    DrawRowNames(drawing, lane, area);
    for (size_t i = 0; i < yTicks.Count; ++i) {
        const double y = Sharp(PixelY(area, TickAt(yTicks, i) * lane.Unit));
        SetInk(drawing, chart.Colours.Grid);
        Line(drawing, area.Left, y, area.Right, y);
        SetInk(drawing, chart.Colours.Ink);
        Line(drawing, area.Left - tickLength * scale, y, area.Left, y);
        Write(drawing.Writer, TickText(yTicks, i, chart.DecimalPoint), area.Left - 7.0 * scale, y,
              Anchor::Right, text);
    }
    SetInk(drawing, chart.Colours.Ink);
    Line(drawing, Sharp(area.Left), area.Top, Sharp(area.Left), area.Bottom);
    Line(drawing, area.Left, Sharp(area.Bottom), area.Right, Sharp(area.Bottom));
    Write(drawing.Writer, lane.Label, 10.0 * scale, area.Top - 16.0 * scale, Anchor::Left,
          {.Ink = chart.Colours.Ink, .Size = 12.5, .Bold = true});
}

/// Strokes the points of an uninterrupted stretch in pieces: the effort of a piece grows with the
/// crossings within it.
void StrokeStretch(const Drawing& drawing, const ChartArea& area, const ChartCurve& curve,
                   size_t first, size_t end) {
    constexpr size_t piece = 24;
    const bool whole = curve.Line != Dash::Solid; // A pattern would begin anew with each piece.
    for (size_t from = first; from + 1 < end || from == first; from += piece) {
        const size_t to = whole ? end : std::min(from + piece + 1, end);
        double y = PixelY(area, curve.Points.Y[from]);
        cairo_move_to(drawing.To, PixelX(area, curve.Points.X[from]), y);
        for (size_t i = from + 1; i < to; ++i) {
            const double x = PixelX(area, curve.Points.X[i]);
            if (curve.Steps) {
                cairo_line_to(drawing.To, x, y);
            }
            y = PixelY(area, curve.Points.Y[i]);
            cairo_line_to(drawing.To, x, y);
        }
        cairo_stroke(drawing.To);
        if (whole) {
            return;
        }
    }
}

/// Whether a pattern of dashes has a gap at this pixel.
bool IsGap(const Drawing& drawing, Dash line, double pixel) {
    if (line == Dash::Solid) {
        return false;
    }
    const double drawn = line == Dash::Dashed ? 6.0 : 2.0;
    const double period = line == Dash::Dashed ? 9.0 : 4.0;
    return std::fmod(pixel / drawing.What.Scale, period) >= drawn;
}

/// Fills what a curve crosses of each column of pixels: where it has several points for each, that
/// looks as its strokes do and takes a tenth of their time.
void FillColumns(const Drawing& drawing, const ChartArea& area, const ChartCurve& curve) {
    struct Crossed {
        double Top = std::numeric_limits<double>::infinity();
        double Bottom = -std::numeric_limits<double>::infinity();
    };
    const double left = std::floor(area.Left);
    std::vector<Crossed> columns(static_cast<size_t>(std::ceil(area.Right) - left) + 1);
    const auto last = static_cast<double>(columns.size() - 1);
    const auto cross = [&](size_t column, double y1, double y2) {
        columns[column].Top = std::min({columns[column].Top, y1, y2});
        columns[column].Bottom = std::max({columns[column].Bottom, y1, y2});
    };
    for (size_t i = 1; i < curve.Points.Y.size(); ++i) {
        const double x1 = PixelX(area, curve.Points.X[i - 1]) - left;
        const double x2 = PixelX(area, curve.Points.X[i]) - left;
        const double y1 = PixelY(area, curve.Points.Y[i - 1]);
        const double y2 = PixelY(area, curve.Points.Y[i]);
        if (!std::isfinite(y1 + y2) || x2 < 0.0 || x1 > last) {
            continue;
        }
        const auto from = static_cast<size_t>(std::clamp(x1, 0.0, last));
        const auto to = static_cast<size_t>(std::clamp(x2, 0.0, last));
        const double slope = x2 > x1 ? (y2 - y1) / (x2 - x1) : 0.0;
        for (size_t column = from; column <= to; ++column) {
            const double enters = std::max(x1, static_cast<double>(column));
            const double leaves = std::min(x2, static_cast<double>(column) + 1.0);
            cross(column, x2 > x1 ? y1 + slope * (enters - x1) : y1,
                  x2 > x1 ? y1 + slope * (leaves - x1) : y2);
        }
    }
    const double width = std::max(curve.LineWidth * drawing.What.Scale, 1.0);
    const double half = width / 2.0;
    for (size_t i = 0; i < columns.size(); ++i) {
        const double x = left + static_cast<double>(i);
        const double top = std::max(columns[i].Top - half, area.Top - 1.0);
        const double bottom = std::min(columns[i].Bottom + half, area.Bottom + 1.0);
        if (bottom > top && !IsGap(drawing, curve.Line, x)) {
            cairo_rectangle(drawing.To, x + 0.5 - half, top, width, bottom - top);
        }
    }
    cairo_fill(drawing.To);
}

/// Whether a curve goes from left to right with more than a point for each pixel.
bool IsDense(const ChartArea& area, const ChartCurve& curve) {
    return !curve.Steps && static_cast<double>(curve.Points.X.size()) > area.Right - area.Left &&
           std::ranges::is_sorted(curve.Points.X);
}

void StrokeCurve(const Drawing& drawing, const ChartArea& area, const ChartCurve& curve) {
    constexpr size_t many = 200; // points, with which the finest edges take too long
    SetLine(drawing, curve.LineWidth, curve.Line);
    const size_t count = curve.Points.Y.size();
    cairo_set_antialias(drawing.To, count > many ? CAIRO_ANTIALIAS_FAST : CAIRO_ANTIALIAS_DEFAULT);
    const auto isPoint = [&](size_t i) {
        return std::isfinite(curve.Points.X[i]) && std::isfinite(curve.Points.Y[i]);
    };
    for (size_t first = 0; first < count; ++first) {
        size_t end = first;
        while (end < count && isPoint(end)) {
            ++end;
        }
        if (end > first) {
            StrokeStretch(drawing, area, curve, first, end);
        }
        first = end;
    }
    cairo_set_antialias(drawing.To, CAIRO_ANTIALIAS_DEFAULT);
}

void DrawDisc(const Drawing& drawing, double x, double y, double radius) {
    cairo_new_sub_path(drawing.To);
    cairo_arc(drawing.To, x, y, radius, 0.0, 2.0 * std::numbers::pi);
}

void DrawCurve(const Drawing& drawing, const ChartArea& area, const ChartCurve& curve) {
    SetInk(drawing, ColourOf(drawing.What, curve.Ink), (curve.Pale ? pale : 1.0) * curve.Opacity);
    if (curve.LineWidth > 0.0 && IsDense(area, curve)) {
        FillColumns(drawing, area, curve);
    } else if (curve.LineWidth > 0.0) {
        StrokeCurve(drawing, area, curve);
    }
    if (curve.DotWidth > 0.0) {
        for (size_t i = 0; i < curve.Points.Y.size(); ++i) {
            DrawDisc(drawing, PixelX(area, curve.Points.X[i]), PixelY(area, curve.Points.Y[i]),
                     curve.DotWidth / 2.0 * drawing.What.Scale);
            cairo_fill(drawing.To);
        }
    }
}

void DrawRule(Drawing& drawing, const ChartArea& area, const ChartRule& rule) {
    const Colour colour = ColourOf(drawing.What, rule.Ink);
    const double scale = drawing.What.Scale;
    SetInk(drawing, colour);
    SetLine(drawing, 1.2, rule.Line);
    const TextStyle style{.Ink = drawing.What.Colours.Ink, .Size = 12.0};
    if (rule.Horizontal) {
        const double y = Sharp(PixelY(area, rule.At));
        Line(drawing, area.Left, y, area.Right, y);
        Write(drawing.Writer, rule.Text, area.Right - 4.0 * scale, y - 10.0 * scale, Anchor::Right,
              style);
    } else {
        const double x = Sharp(PixelX(area, rule.At));
        Line(drawing, x, area.Top, x, area.Bottom);
        Write(drawing.Writer, rule.Text, x + 5.0 * scale, area.Bottom - 10.0 * scale, Anchor::Left,
              style);
    }
}

void DrawMark(Drawing& drawing, const ChartArea& area, const ChartMark& mark) {
    const double scale = drawing.What.Scale;
    const double x = PixelX(area, mark.X);
    const double y = PixelY(area, mark.Y);
    if (!mark.TextOnly) {
        DrawDisc(drawing, x, y, 4.0 * scale);
        SetInk(drawing,
               mark.Filled ? ColourOf(drawing.What, mark.Ink) : drawing.What.Colours.Ground);
        cairo_fill_preserve(drawing.To);
        SetInk(drawing, ColourOf(drawing.What, mark.Ink));
        SetLine(drawing, 1.8, Dash::Solid);
        cairo_stroke(drawing.To);
    }
    const bool fitsRight = x + 120.0 * scale < drawing.What.Width;
    const double raised = fitsRight || mark.TextOnly ? 0.0 : 14.0 * scale; // off its curve
    Write(drawing.Writer, mark.Text, x + (fitsRight ? 10.0 : -10.0) * scale, y - raised,
          fitsRight ? Anchor::Left : Anchor::Right,
          {.Ink = mark.TextOnly ? drawing.What.Colours.Ink : drawing.What.Colours.Mark,
           .Bold = !mark.TextOnly});
}

/// The labels at the ends of the curves, pushed apart where they would overlap.
void DrawEndLabels(Drawing& drawing, const ChartLane& lane, const ChartArea& area) {
    struct Label {
        const ChartCurve* Curve;
        double Y;
    };
    const double height = 13.0 * drawing.What.Scale;
    std::vector<Label> labels;
    for (const ChartCurve& curve : lane.Curves) {
        if (!curve.EndLabel.empty() && !curve.Points.Y.empty() &&
            std::isfinite(curve.Points.Y.back())) {
            labels.push_back(
                {&curve, std::clamp(PixelY(area, curve.Points.Y.back()), area.Top, area.Bottom)});
        }
    }
    std::ranges::sort(labels, {}, &Label::Y);
    for (size_t i = 1; i < labels.size(); ++i) {
        labels[i].Y = std::max(labels[i].Y, labels[i - 1].Y + height);
    }
    for (const Label& label : labels) {
        Write(drawing.Writer, label.Curve->EndLabel, area.Right + 6.0 * drawing.What.Scale, label.Y,
              Anchor::Left, {.Ink = ColourOf(drawing.What, label.Curve->Ink), .Bold = true});
    }
}

void DrawAxisMarks(const Drawing& drawing, const ChartArea& area) {
    const double half = 5.0 * drawing.What.Scale;
    for (const ChartAxisMark& mark : drawing.What.AxisMarks) {
        const double x = PixelX(area, mark.X);
        if (x >= area.Left - 1.0 && x <= area.Right + 1.0) {
            SetInk(drawing, ColourOf(drawing.What, mark.Ink));
            cairo_move_to(drawing.To, x, area.Bottom - 2.0 * half);
            cairo_line_to(drawing.To, x - half, area.Bottom);
            cairo_line_to(drawing.To, x + half, area.Bottom);
            cairo_fill(drawing.To);
        }
    }
}

void DrawLegend(Drawing& drawing, const ChartArea& area) {
    const double scale = drawing.What.Scale;
    double right = area.Right;
    const std::vector<ChartLegend>& legend = drawing.What.Legend;
    for (size_t i = legend.size(); i-- > 0;) {
        right -= 12.0 * scale + Write(drawing.Writer, legend[i].Text, right,
                                      area.Top - 16.0 * scale, Anchor::Right,
                                      {.Ink = ColourOf(drawing.What, legend[i].Ink), .Size = 12.5});
    }
}

void DrawLane(Drawing& drawing, const ChartLane& lane, const ChartArea& area, bool last) {
    DrawShades(drawing, lane, area);
    DrawAxes(drawing, lane, area, last);
    cairo_save(drawing.To);
    cairo_rectangle(drawing.To, area.Left, area.Top - 1.0, area.Right - area.Left + 1.0,
                    area.Bottom - area.Top + 2.0);
    cairo_clip(drawing.To);
    for (const ChartCurve& curve : lane.Curves) {
        DrawCurve(drawing, area, curve);
    }
    for (const ChartRule& rule : lane.Rules) {
        DrawRule(drawing, area, rule);
    }
    cairo_restore(drawing.To);
    for (const ChartMark& mark : lane.Marks) {
        DrawMark(drawing, area, mark);
    }
    DrawEndLabels(drawing, lane, area);
}

} // namespace

void DrawChart(cairo_t* context, const Chart& chart) {
    cairo_save(context);
    Drawing drawing{context, chart, ChartWriter(context, chart.Scale)};
    cairo_set_line_join(context, CAIRO_LINE_JOIN_BEVEL);
    DrawGround(drawing);
    const double scale = chart.Scale;
    const std::vector<ChartArea> areas = AreasOf(chart);
    for (size_t i = 0; i < areas.size(); ++i) {
        DrawLane(drawing, chart.Lanes[i], areas[i], i + 1 == areas.size());
    }
    const TextStyle plain{.Ink = chart.Colours.Ink, .Size = 12.5};
    if (areas.empty()) {
        Write(drawing.Writer, chart.Empty, chart.Width / 2.0, chart.Height / 2.0, Anchor::Middle,
              {.Ink = chart.Colours.Ink, .Size = 14.0});
    } else {
        Write(drawing.Writer, chart.XLabel, (areas[0].Left + areas[0].Right) / 2.0,
              areas.back().Bottom + 34.0 * scale, Anchor::Middle, plain);
        DrawAxisMarks(drawing, areas.back());
        DrawLegend(drawing, areas[0]);
    }
    cairo_restore(context);
}

} // namespace orvane
