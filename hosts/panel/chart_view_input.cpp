// What mouse and keys do in a chart.

#include "hosts/panel/chart_view.h"

#include <algorithm>
#include <cmath>

namespace orvane {

namespace {

constexpr int shortestDrag = 4; // pixels; less is a click
constexpr double wheelFactor = 0.8;
constexpr double pagePart = 0.8;     // of what is shown
constexpr double levelSteps = 100.0; // of a lane

} // namespace

AxisRange ChartView::ShownX() const {
    return LaneAreas.empty() ? AxisRange{} : LaneAreas.front().X;
}

size_t ChartView::LaneAt(int y) const {
    for (size_t lane = 0; lane < LaneAreas.size(); ++lane) {
        if (y <= LaneAreas[lane].Bottom) {
            return lane;
        }
    }
    return LaneAreas.empty() ? 0 : LaneAreas.size() - 1;
}

void ChartView::ResetZoom() {
    if (!Shown.IsWhole()) {
        Left.push_back(Shown);
    }
    Shown = {};
    Invalidate();
}

void ChartView::ZoomBack() {
    if (!Left.empty()) {
        Shown = Left.back();
        Left.pop_back();
        Invalidate();
    }
}

void ChartView::ZoomX(AxisRange range, bool remember) {
    if (!Source.Whole) {
        return;
    }
    const AxisRange whole = Source.Whole();
    constexpr double shortest = 1e-9; // of the whole
    if (!(range.To - range.From > shortest * (whole.To - whole.From))) {
        return;
    }
    if (remember) {
        Left.push_back(Shown);
    }
    const AxisRange held = HeldWithin(range, whole);
    if (held.To - held.From >= whole.To - whole.From) {
        Shown.X.reset();
    } else {
        Shown.X = held;
    }
    Invalidate();
}

void ChartView::ZoomValue(size_t lane, AxisRange range) {
    if (!Source.Whole || !(range.To > range.From)) {
        return;
    }
    Left.push_back(Shown);
    Shown.Value = range;
    Shown.Lane = lane;
    Invalidate();
}

void ChartView::ShowCursors(bool show) {
    CursorsShown = show;
    const AxisRange shown = ShownX();
    const bool isFirstTime = Cursors[0] == Cursors[1];
    for (double& cursor : Cursors) { // One that can't be seen comes into view.
        if (isFirstTime || cursor < shown.From || cursor > shown.To) {
            const bool isFirst = &cursor == Cursors.data();
            cursor = Scaled(shown, shown.From, isFirst ? 0.25 : 0.5).To;
            if (Source.At) {
                Source.At(cursor);
            }
        }
    }
    Refresh(false);
    if (Source.CursorsMoved) {
        Source.CursorsMoved();
    }
}

void ChartView::SetCursor(size_t which, double x) {
    Cursors.at(which) = x;
    if (Source.At) {
        Source.At(Cursors.at(which));
    }
    Refresh(false);
    if (Source.CursorsMoved) {
        Source.CursorsMoved();
    }
}

void ChartView::Hover(std::optional<double> x) {
    HoverX = x;
    if (Source.Hovered) {
        Source.Hovered(x);
    }
    Refresh(false);
}

void ChartView::MoveLevel(double value, bool snaps) {
    const std::optional<LevelTag> tag = Source.Level ? Source.Level() : std::nullopt;
    if (!tag || tag->Lane >= LaneAreas.size() || !Source.LevelMoved) {
        return;
    }
    const AxisRange lane = LaneAreas[tag->Lane].Value;
    const double step = (lane.To - lane.From) / levelSteps;
    Source.LevelMoved(
        std::clamp(snaps ? std::round(value / step) * step : value, lane.From, lane.To));
    Refresh(false);
}

void ChartView::OnMouse(wxMouseEvent& event) {
    const bool zooms = Source.Whole && event.GetWheelRotation() != 0;
    event.Skip(!zooms); // A wheel that does not zoom scrolls.
    if (LaneAreas.empty()) {
        return;
    }
    const ChartArea& first = LaneAreas.front();
    const double pixel = std::clamp<double>(event.GetX(), first.Left, first.Right);
    if (event.Leaving()) {
        Hover(std::nullopt);
    } else if (zooms) {
        OnWheel(event);
    } else if (event.LeftDClick()) {
        ResetZoom();
    } else if (event.LeftDown() || event.MiddleDown()) {
        OnDown(event);
    } else if (event.LeftUp() || event.MiddleUp()) {
        OnUp(event);
    } else {
        Hover(XAt(first, pixel));
        OnDragged(event);
    }
}

void ChartView::OnWheel(const wxMouseEvent& event) {
    const double factor = event.GetWheelRotation() > 0 ? wheelFactor : 1.0 / wheelFactor;
    const size_t lane = LaneAt(event.GetY());
    if (event.ShiftDown()) {
        const ChartArea& area = LaneAreas[lane];
        ZoomValue(lane, Scaled(area.Value, ValueAt(area, event.GetY()), factor));
    } else {
        ZoomX(Scaled(ShownX(), XAt(LaneAreas.front(), event.GetX()), factor));
    }
}

void ChartView::OnDown(const wxMouseEvent& event) {
    SetFocus();
    DragFrom = event.GetPosition();
    DragTo = DragFrom.x;
    DraggedX = ShownX();
    const ChartArea& first = LaneAreas.front();
    const bool onTag = DragFrom.x > first.Right && Source.Level && Source.Level();
    Dragging = onTag                                       ? Drag::Level
               : event.ControlDown() || event.MiddleDown() ? Drag::Move
               : CursorsShown                              ? Drag::None
               : Source.Whole                              ? Drag::Stretch
                                                           : Drag::None;
    if (CursorsShown && !onTag && Dragging == Drag::None) {
        const double x = XAt(first, DragFrom.x);
        const auto distance = [&](size_t which) { return std::abs(Cursors.at(which) - x); };
        ChosenCursor = distance(0) <= distance(1) ? 0 : 1;
        SetCursor(ChosenCursor, x);
    }
    CaptureMouse();
}

void ChartView::OnDragged(const wxMouseEvent& event) {
    if (!HasCapture()) {
        return;
    }
    DragTo = event.GetX();
    const ChartArea& first = LaneAreas.front();
    if (Dragging == Drag::Move) {
        const double part = (DragFrom.x - DragTo) / (first.Right - first.Left);
        ZoomX(Moved(DraggedX, part), false);
    } else if (Dragging == Drag::Level) {
        const ChartArea& area = LaneAreas[Source.Level()->Lane];
        MoveLevel(ValueAt(area, event.GetY()), !event.ShiftDown());
    } else if (Dragging == Drag::None && CursorsShown) {
        SetCursor(ChosenCursor, XAt(first, DragTo));
    }
}

void ChartView::OnUp(const wxMouseEvent& event) {
    if (HasCapture()) {
        ReleaseMouse();
    }
    if (Dragging == Drag::Stretch && std::abs(event.GetX() - DragFrom.x) >= shortestDrag) {
        const ChartArea& first = LaneAreas.front();
        const double from = std::max<double>(std::min(event.GetX(), DragFrom.x), first.Left);
        const double to = std::min<double>(std::max(event.GetX(), DragFrom.x), first.Right);
        ZoomX({XAt(first, from), XAt(first, to)});
    }
    Dragging = Drag::None;
    Refresh(false);
}

void ChartView::OnKey(wxKeyEvent& event) {
    if (event.GetKeyCode() == WXK_TAB) {
        Navigate(event.ShiftDown() ? wxNavigationKeyEvent::IsBackward
                                   : wxNavigationKeyEvent::IsForward);
    } else if (event.GetKeyCode() == WXK_ESCAPE && Dragging != Drag::None) {
        Dragging = Drag::None;
        Refresh(false);
    } else if (LaneAreas.empty() || event.ControlDown() || event.AltDown() || !HandleKey(event)) {
        event.Skip();
    }
}

bool ChartView::HandleKey(const wxKeyEvent& event) {
    const ChartArea& first = LaneAreas.front();
    const AxisRange shown = ShownX();
    const double pixel = (shown.To - shown.From) / (first.Right - first.Left);
    const double step = pixel * (event.ShiftDown() ? 10.0 : 1.0);
    const double middle = HoverX.value_or((shown.From + shown.To) / 2.0);
    const auto moveCursor = [&](double by) {
        if (CursorsShown) {
            SetCursor(ChosenCursor,
                      std::clamp(Cursors.at(ChosenCursor) + by, shown.From, shown.To));
        } else {
            Hover(std::clamp(middle + by, shown.From, shown.To));
        }
    };
    const auto moveLevel = [&](double by) {
        if (const auto tag = Source.Level ? Source.Level() : std::nullopt; tag) {
            const AxisRange lane = LaneAreas.at(tag->Lane).Value;
            MoveLevel(tag->Value + by * (lane.To - lane.From) / levelSteps, !event.ShiftDown());
        }
    };
    switch (event.GetKeyCode()) {
    case WXK_LEFT:
        moveCursor(-step);
        return true;
    case WXK_RIGHT:
        moveCursor(step);
        return true;
    case WXK_UP:
        moveLevel(1.0);
        return true;
    case WXK_DOWN:
        moveLevel(-1.0);
        return true;
    case 'A':
    case 'B':
        ChosenCursor = event.GetKeyCode() == 'A' ? 0 : 1;
        return true;
    case '+':
    case '=':
    case WXK_NUMPAD_ADD:
        ZoomX(Scaled(shown, middle, wheelFactor));
        return true;
    case '-':
    case WXK_NUMPAD_SUBTRACT:
        ZoomX(Scaled(shown, middle, 1.0 / wheelFactor));
        return true;
    case WXK_PAGEUP:
        ZoomX(Moved(shown, -pagePart));
        return true;
    case WXK_PAGEDOWN:
        ZoomX(Moved(shown, pagePart));
        return true;
    case WXK_BACK:
        ZoomBack();
        return true;
    case '0':
    case WXK_HOME:
        ResetZoom();
        return true;
    default:
        return false;
    }
}

} // namespace orvane
