#include "hosts/panel/plot_view.h"

#include "hosts/plot/chart_drawing.h"

#include <wx/dcbuffer.h>
#include <wx/dcgraph.h>
#include <wx/dcmemory.h>
#include <wx/graphics.h>
#include <wx/scrolwin.h>
#include <wx/sizer.h>

#include <algorithm>
#include <cmath>

namespace orvane {

namespace {

constexpr int shortestDrag = 4; // pixels; less is a click
constexpr double wheelFactor = 0.8;

const wxColour cursorColour(120, 128, 138);
const wxColour pointColour(20, 90, 170);
const wxColour stretchColour(20, 90, 170, 40);

wxWindow* MakeFrame(wxWindow* parent, const wxSize& smallest) {
    auto* frame = new wxScrolledWindow(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                                       wxVSCROLL | wxBORDER_THEME);
    frame->SetScrollRate(0, parent->FromDIP(10));
    frame->SetMinSize(smallest);
    return frame;
}

} // namespace

PlotView::PlotView(wxWindow* parent, PlotSource source, const wxSize& smallest)
    : wxWindow(MakeFrame(parent, smallest), wxID_ANY, wxDefaultPosition, wxDefaultSize,
               wxWANTS_CHARS),
      Source(std::move(source)) {
    SetBackgroundStyle(wxBG_STYLE_PAINT);
    auto* whole = new wxBoxSizer(wxVERTICAL);
    whole->Add(this, wxSizerFlags(1).Expand());
    Frame()->SetSizer(whole);
    Bind(wxEVT_PAINT, [this](wxPaintEvent&) { OnPaint(); });
    Bind(wxEVT_SIZE, [this](wxSizeEvent&) { Invalidate(); });
    for (const auto& type : {wxEVT_MOTION, wxEVT_LEFT_DOWN, wxEVT_LEFT_UP, wxEVT_LEFT_DCLICK,
                             wxEVT_LEAVE_WINDOW, wxEVT_MOUSEWHEEL}) {
        Bind(type, &PlotView::OnMouse, this);
    }
    Bind(wxEVT_MOUSE_CAPTURE_LOST, [this](wxMouseCaptureLostEvent&) { DragFrom.reset(); });
    for (const auto& type : {wxEVT_SET_FOCUS, wxEVT_KILL_FOCUS}) {
        Bind(type, [this](wxFocusEvent& event) {
            event.Skip();
            Refresh(false);
        });
    }
    Bind(wxEVT_KEY_DOWN, &PlotView::OnKey, this);
}

void PlotView::Invalidate() {
    Stale = true;
    PlaceCursor(CursorSec);
}

void PlotView::ResetZoom() {
    ZoomSec.reset();
    Invalidate();
}

wxRect PlotView::CurveArea() const {
    if (Areas.empty()) {
        return {};
    }
    return {wxPoint(static_cast<int>(Areas.front().Left), static_cast<int>(Areas.front().Top)),
            wxPoint(static_cast<int>(Areas.back().Right), static_cast<int>(Areas.back().Bottom))};
}

void PlotView::Draw() {
    const double pixels = GetContentScaleFactor();
    const wxSize size = GetClientSize() * pixels;
    Chart chart = Source.Picture(ZoomSec, static_cast<size_t>(std::max(size.x, 1)));
    chart.Width = size.x;
    chart.Height = size.y;
    chart.Scale = pixels;
    Stale = false;
    Areas.clear();
    Picture = wxBitmap();
    MakeRoomFor(chart.Lanes.size());
    if (chart.Lanes.empty()) {
        return;
    }
    Picture.Create(size);
    {
        wxMemoryDC memory(Picture);
        const std::unique_ptr<wxGraphicsContext> context(wxGraphicsContext::Create(memory));
        DrawChart(static_cast<cairo_t*>(context->GetNativeContext()), chart);
    }
    Picture.SetScaleFactor(pixels);
    ShownSec = chart.X;
    Areas = AreasOf(chart);
    for (ChartArea& area : Areas) {
        area.Left /= pixels;
        area.Right /= pixels;
        area.Top /= pixels;
        area.Bottom /= pixels;
    }
}

void PlotView::MakeRoomFor(size_t panels) {
    constexpr int lowestPanel = 90;
    const wxSize smallest(-1, static_cast<int>(panels) * FromDIP(lowestPanel) +
                                  FromDIP(lowestPanel / 2));
    if (GetMinSize() != smallest) {
        SetMinSize(smallest);
        // Not while the window is painted.
        CallAfter([this] { Frame()->FitInside(); });
    }
}

void PlotView::OnPaint() {
    if (Stale) {
        Draw();
    }
    wxAutoBufferedPaintDC dc(this);
    dc.SetBackground(*wxWHITE_BRUSH);
    dc.Clear();
    if (!Picture.IsOk()) {
        dc.SetTextForeground(cursorColour);
        dc.DrawLabel(Source.EmptyText, GetClientRect(), wxALIGN_CENTRE);
        return;
    }
    dc.DrawBitmap(Picture, 0, 0);
    DrawCursor(dc);
    if (HasFocus()) {
        dc.SetPen(pointColour);
        dc.SetBrush(*wxTRANSPARENT_BRUSH);
        dc.DrawRectangle(GetClientRect());
    }
}

void PlotView::DrawCursor(wxDC& dc) const {
    wxGCDC smooth;
    smooth.SetGraphicsContext(wxGraphicsContext::CreateFromUnknownDC(dc));
    const wxRect area = CurveArea();
    if (DragFrom) {
        smooth.SetPen(*wxTRANSPARENT_PEN);
        smooth.SetBrush(stretchColour);
        smooth.DrawRectangle(std::min(*DragFrom, DragTo), area.y, std::abs(DragTo - *DragFrom),
                             area.height);
    }
    if (!Cursor || Cursor->TimeSec < ShownSec.From || Cursor->TimeSec > ShownSec.To) {
        return;
    }
    const int x = wxRound(PixelAt(Cursor->TimeSec));
    smooth.SetPen(wxPen(cursorColour, 1, wxPENSTYLE_SHORT_DASH));
    smooth.DrawLine(x, area.GetTop(), x, area.GetBottom());
    smooth.SetPen(wxPen(pointColour, 2));
    smooth.SetBrush(*wxWHITE_BRUSH);
    for (size_t i = 0; i < std::min(Areas.size(), Cursor->Values.size()); ++i) {
        const ChartArea& panel = Areas[i];
        const double part =
            (Cursor->Values[i] - panel.Value.From) / (panel.Value.To - panel.Value.From);
        constexpr int radius = 4;
        smooth.DrawCircle(x, wxRound(panel.Bottom - part * (panel.Bottom - panel.Top)), radius);
    }
}

double PlotView::TimeAt(int x) const {
    const ChartArea& area = Areas.front();
    const double part = (x - area.Left) / (area.Right - area.Left);
    return ShownSec.From + std::clamp(part, 0.0, 1.0) * (ShownSec.To - ShownSec.From);
}

double PlotView::PixelAt(double timeSec) const {
    const ChartArea& area = Areas.front();
    const double part = (timeSec - ShownSec.From) / (ShownSec.To - ShownSec.From);
    return area.Left + part * (area.Right - area.Left);
}

void PlotView::ZoomTo(AxisRange range) {
    constexpr double shortestSec = 1e-6;
    if (!Source.CanZoom || range.To - range.From < shortestSec) {
        return;
    }
    const AxisRange whole = Source.Whole();
    ZoomSec = {std::max(range.From, whole.From), std::min(range.To, whole.To)};
    if (ZoomSec->From == whole.From && ZoomSec->To == whole.To) {
        ZoomSec.reset();
    }
    Invalidate();
}

void PlotView::ZoomBy(double factor) {
    const double middle = Cursor ? Cursor->TimeSec : (ShownSec.From + ShownSec.To) / 2.0;
    ZoomTo({middle - (middle - ShownSec.From) * factor, middle + (ShownSec.To - middle) * factor});
}

void PlotView::PlaceCursor(std::optional<double> timeSec) {
    const bool changes = CursorSec || timeSec;
    CursorSec = timeSec;
    Cursor = timeSec ? Source.At(*timeSec) : std::nullopt;
    if (changes) {
        Source.CursorMoved(Cursor);
    }
    Refresh(false);
}

void PlotView::OnMouse(wxMouseEvent& event) {
    const bool zooms = Source.CanZoom && event.GetWheelRotation() != 0;
    event.Skip(!zooms); // A wheel that does not zoom scrolls.
    if (Areas.empty()) {
        return;
    }
    const int x = event.GetX();
    if (event.Leaving()) {
        PlaceCursor(std::nullopt);
        return;
    }
    PlaceCursor(TimeAt(x));
    DragTo = x;
    if (event.LeftDClick()) {
        ResetZoom();
    } else if (event.LeftDown()) {
        SetFocus();
        if (Source.CanZoom) {
            DragFrom = x;
            CaptureMouse();
        }
    } else if (event.LeftUp() && DragFrom) {
        ReleaseMouse();
        if (std::abs(x - *DragFrom) >= shortestDrag) {
            ZoomTo({TimeAt(std::min(x, *DragFrom)), TimeAt(std::max(x, *DragFrom))});
        }
        DragFrom.reset();
    } else if (zooms) {
        ZoomBy(event.GetWheelRotation() > 0 ? wheelFactor : 1.0 / wheelFactor);
    }
}

void PlotView::OnKey(wxKeyEvent& event) {
    if (Areas.empty()) {
        event.Skip();
        return;
    }
    const double step = (ShownSec.To - ShownSec.From) / 100.0;
    const double at = Cursor ? Cursor->TimeSec : (ShownSec.From + ShownSec.To) / 2.0;
    switch (event.GetKeyCode()) {
    case WXK_LEFT:
        PlaceCursor(std::max(at - step, ShownSec.From));
        break;
    case WXK_RIGHT:
        PlaceCursor(std::min(at + step, ShownSec.To));
        break;
    case '+':
    case '=':
    case WXK_NUMPAD_ADD:
        ZoomBy(wheelFactor);
        break;
    case '-':
    case WXK_NUMPAD_SUBTRACT:
        ZoomBy(1.0 / wheelFactor);
        break;
    case '0':
    case WXK_HOME:
        ResetZoom();
        break;
    case WXK_TAB:
        Navigate(event.ShiftDown() ? wxNavigationKeyEvent::IsBackward
                                   : wxNavigationKeyEvent::IsForward);
        break;
    default:
        event.Skip();
    }
}

} // namespace orvane
