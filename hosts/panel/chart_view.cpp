#include "hosts/panel/chart_view.h"

#include "hosts/panel/catalogue.h"
#include "hosts/panel/frame_times.h"
#include "hosts/panel/theme.h"
#include "hosts/plot/chart_drawing.h"

#include <wx/dcbuffer.h>
#include <wx/dcmemory.h>
#include <wx/intl.h>
#include <wx/scrolwin.h>
#include <wx/settings.h>
#include <wx/sizer.h>

#include <algorithm>
#include <cmath>
#include <memory>

namespace orvane {

namespace {

wxWindow* MakeFrame(wxWindow* parent, const wxSize& smallest) {
    auto* frame = new wxScrolledWindow(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                                       wxVSCROLL | wxBORDER_THEME);
    frame->SetScrollRate(0, parent->FromDIP(10));
    frame->SetMinSize(smallest);
    return frame;
}

} // namespace

ChartView::ChartView(wxWindow* parent, const wxString& name, ChartSource source,
                     const wxSize& smallest)
    : wxWindow(MakeFrame(parent, smallest), wxID_ANY, wxDefaultPosition, wxDefaultSize,
               wxWANTS_CHARS, name),
      Source(std::move(source)) {
    SetBackgroundStyle(wxBG_STYLE_PAINT);
    auto* whole = new wxBoxSizer(wxVERTICAL);
    whole->Add(this, wxSizerFlags(1).Expand());
    Frame()->SetSizer(whole);
    Bind(wxEVT_PAINT, [this](wxPaintEvent&) { OnPaint(); });
    Bind(wxEVT_SIZE, [this](wxSizeEvent&) { Invalidate(); });
    for (const auto& type :
         {wxEVT_MOTION, wxEVT_LEFT_DOWN, wxEVT_LEFT_UP, wxEVT_MIDDLE_DOWN, wxEVT_MIDDLE_UP,
          wxEVT_LEFT_DCLICK, wxEVT_LEAVE_WINDOW, wxEVT_MOUSEWHEEL}) {
        Bind(type, &ChartView::OnMouse, this);
    }
    Bind(wxEVT_MOUSE_CAPTURE_LOST, [this](wxMouseCaptureLostEvent&) { Dragging = Drag::None; });
    for (const auto& type : {wxEVT_SET_FOCUS, wxEVT_KILL_FOCUS}) {
        Bind(type, [this](wxFocusEvent& event) {
            event.Skip();
            Refresh(false);
        });
    }
    Bind(wxEVT_SYS_COLOUR_CHANGED, [this](wxSysColourChangedEvent& event) {
        event.Skip();
        Invalidate();
    });
    Bind(wxEVT_KEY_DOWN, &ChartView::OnKey, this);
}

void ChartView::Invalidate() {
    Stale = true;
    Refresh(false);
}

void ChartView::Draw() {
    const FrameTimer timer;
    const double pixels = GetContentScaleFactor();
    const wxSize size = GetClientSize() * pixels;
    Stale = false;
    LaneAreas.clear();
    Picture = wxBitmap();
    if (size.x < 1 || size.y < 1) {
        return;
    }
    Chart chart = Source.Chart(Shown, static_cast<size_t>(size.x));
    chart.Width = size.x;
    chart.Height = size.y;
    chart.Scale = FromDIP(1000) / 1000.0 * pixels;
    chart.Colours = WindowColours();
    chart.DecimalPoint = DecimalPoint();
    MakeRoomFor(chart.Lanes.size());
    Picture.Create(size);
    {
        wxMemoryDC memory(Picture);
        const std::unique_ptr<wxGraphicsContext> to(wxGraphicsContext::Create(memory));
        DrawChart(static_cast<cairo_t*>(to->GetNativeContext()), chart);
    }
    Picture.SetScaleFactor(pixels);
    LaneAreas = AreasOf(chart);
    for (ChartArea& area : LaneAreas) {
        area.Left /= pixels;
        area.Right /= pixels;
        area.Top /= pixels;
        area.Bottom /= pixels;
    }
}

void ChartView::MakeRoomFor(size_t lanes) {
    constexpr int lowestLane = 102; // 72 and the gap
    const wxSize smallest(-1, static_cast<int>(lanes) * FromDIP(lowestLane) + FromDIP(60));
    if (GetMinSize() != smallest) {
        SetMinSize(smallest);
        CallAfter([this] { Frame()->FitInside(); }); // Not while the window is painted.
    }
}

void ChartView::OnPaint() {
    if (Stale) {
        Draw();
    }
    wxAutoBufferedPaintDC dc(this);
    dc.SetBackground(wxBrush(ToColour(WindowColours().Ground)));
    dc.Clear();
    if (Picture.IsOk()) {
        dc.DrawBitmap(Picture, 0, 0);
        DrawOverlay(dc);
    }
}

void ChartView::DrawOverlay(wxDC& dc) {
    const std::unique_ptr<wxGraphicsContext> to(wxGraphicsContext::CreateFromUnknownDC(dc));
    const ChartColours& colours = WindowColours();
    if (HasFocus()) {
        to->SetPen(wxPen(wxSystemSettings::GetColour(wxSYS_COLOUR_HIGHLIGHT), FromDIP(2)));
        to->SetBrush(*wxTRANSPARENT_BRUSH);
        to->DrawRectangle(0, 0, GetClientSize().x, GetClientSize().y);
    }
    if (LaneAreas.empty()) {
        return;
    }
    const ChartArea& first = LaneAreas.front();
    const double bottom = LaneAreas.back().Bottom;
    if (Dragging == Drag::Stretch) {
        to->SetPen(*wxTRANSPARENT_PEN);
        to->SetBrush(ToColour(colours.Curves[0], 40));
        to->DrawRectangle(std::min(DragFrom.x, DragTo), first.Top, std::abs(DragTo - DragFrom.x),
                          bottom - first.Top);
    }
    if (HoverX && !CursorsShown && Source.At) {
        DrawCursor(*to, *HoverX, "");
    }
    if (CursorsShown) {
        DrawCursor(*to, Cursors[0], "A");
        DrawCursor(*to, Cursors[1], "B");
    }
    DrawLevel(*to);
}

void ChartView::DrawCursor(wxGraphicsContext& to, double x, const wxString& flag) const {
    const std::vector<CursorValue> values = Source.At ? Source.At(x) : std::vector<CursorValue>{};
    const ChartArea& first = LaneAreas.front();
    if (x < first.X.From || x > first.X.To) {
        return;
    }
    const ChartColours& colours = WindowColours();
    const wxColour ink = ToColour(colours.Mark);
    const double pixel = std::floor(PixelX(first, x)) + 0.5;
    to.SetPen(wxPen(ink, 1, flag == "A" ? wxPENSTYLE_SOLID : wxPENSTYLE_SHORT_DASH));
    to.StrokeLine(pixel, first.Top, pixel, LaneAreas.back().Bottom);
    for (const CursorValue& value : values) {
        if (value.Lane < LaneAreas.size() && std::isfinite(value.Value)) {
            const double radius = FromDIP(4);
            const double y = PixelY(LaneAreas[value.Lane], value.Value);
            const size_t curve = value.Ink.Curve;
            to.SetPen(wxPen(
                curve == ChartInk::Mark ? ink : ToColour(colours.Curves[CurveColourOf(curve)]),
                FromDIP(2)));
            to.SetBrush(ToColour(colours.Ground));
            to.DrawEllipse(pixel - radius, y - radius, 2.0 * radius, 2.0 * radius);
        }
    }
    if (!flag.empty()) {
        const double half = FromDIP(9);
        to.SetPen(*wxTRANSPARENT_PEN);
        to.SetBrush(ink);
        to.DrawRoundedRectangle(pixel - half, first.Top - 2.0 * half - FromDIP(4), 2.0 * half,
                                2.0 * half, FromDIP(3));
        to.SetFont(GetFont().Bold(), ToColour(colours.Ground));
        double width = 0.0;
        double height = 0.0;
        to.GetTextExtent(flag, &width, &height);
        to.DrawText(flag, pixel - width / 2.0, first.Top - half - FromDIP(4) - height / 2.0);
    }
}

void ChartView::DrawLevel(wxGraphicsContext& to) const {
    const std::optional<LevelTag> tag = Source.Level ? Source.Level() : std::nullopt;
    if (!tag || tag->Lane >= LaneAreas.size()) {
        return;
    }
    const ChartArea& area = LaneAreas[tag->Lane];
    const double y = std::clamp(PixelY(area, tag->Value), area.Top, area.Bottom);
    const ChartColours& colours = WindowColours();
    const wxColour ink = tag->Ink.Curve == ChartInk::Mark
                             ? ToColour(colours.Mark)
                             : ToColour(colours.Curves[CurveColourOf(tag->Ink.Curve)]);
    to.SetPen(wxPen(ink, FromDIP(2), wxPENSTYLE_DOT));
    to.StrokeLine(area.Left, y, area.Right, y);
    const double half = FromDIP(9);
    wxGraphicsPath path = to.CreatePath();
    path.MoveToPoint(area.Right, y);
    path.AddLineToPoint(area.Right + half, y - half);
    path.AddLineToPoint(area.Right + FromDIP(36), y - half);
    path.AddLineToPoint(area.Right + FromDIP(36), y + half);
    path.AddLineToPoint(area.Right + half, y + half);
    path.CloseSubpath();
    to.SetPen(*wxTRANSPARENT_PEN);
    to.SetBrush(ink);
    to.FillPath(path);
    to.SetFont(GetFont().Bold(), ToColour(colours.Ground));
    double width = 0.0;
    double height = 0.0;
    to.GetTextExtent(tag->Text, &width, &height);
    to.DrawText(tag->Text, area.Right + FromDIP(21) - width / 2.0, y - height / 2.0);
}

} // namespace orvane
