#pragma once

#include "hosts/panel/chart_zoom.h"

#include <wx/bitmap.h>
#include <wx/graphics.h>
#include <wx/window.h>

#include <array>
#include <functional>

namespace orvane {

/// A value of a lane at a cursor: a ring is drawn there.
struct CursorValue {
    size_t Lane = 0;
    double Value = 0.0;
    ChartInk Ink = {};
};

/// A level on the right edge of a lane that the user can move.
struct LevelTag {
    size_t Lane = 0;
    double Value = 0.0;
    ChartInk Ink = {};
    wxString Text;
};

/// What a view shows and whom it tells. All but Chart may be empty.
struct ChartSource {
    /// The chart without its size, colours and scale, as the zoom wants it; `steps` is about the
    /// number of pixels of its width. Requested when it is drawn.
    std::function<orvane::Chart(const ChartZoom& zoom, size_t steps)> Chart = {};
    /// The stretch of the common axis without zoom. Without it the chart does not zoom.
    std::function<AxisRange()> Whole = {};
    /// The values at a place of the common axis, which moves to where they lie.
    std::function<std::vector<CursorValue>(double& x)> At = {};
    /// The mouse is at this place of the common axis; nothing: it has left.
    std::function<void(std::optional<double> x)> Hovered = {};
    std::function<void()> CursorsMoved = {};
    std::function<std::optional<LevelTag>()> Level = {};
    std::function<void(double value)> LevelMoved = {};
};

/// A chart in a frame that scrolls if it has many lanes. Mouse: the wheel zooms the common axis
/// about the mouse, with Shift the values; a drag zooms to its stretch; with Ctrl or the middle
/// button it moves the stretch; a double click shows all. Keys: + - 0 Home, PgUp PgDn, Backspace
/// for the zoom before; A and B choose a cursor, Left and Right move it, with Shift by ten pixels;
/// Up and Down move the level.
class ChartView : public wxWindow {
public:
    ChartView(wxWindow* parent, const wxString& name, ChartSource source, const wxSize& smallest);

    /// Has the chart drawn again at the next paint.
    void Invalidate();
    void ResetZoom();
    void SetZoom(const ChartZoom& zoom) {
        Shown = zoom;
        Invalidate();
    }
    void ZoomBack();
    const ChartZoom& Zoom() const {
        return Shown;
    }
    /// Shows the two cursors, or hides them.
    void ShowCursors(bool show);
    bool HasCursors() const {
        return CursorsShown;
    }
    /// Where cursor A (0) or B (1) stands.
    double CursorAt(size_t which) const {
        return Cursors.at(which);
    }
    void SetCursor(size_t which, double x);
    /// The frame to put into a layout.
    wxWindow* Frame() const {
        return GetParent();
    }
    /// The areas of the lanes in the window's pixels.
    const std::vector<ChartArea>& Areas() const {
        return LaneAreas;
    }

private:
    enum class Drag { None, Stretch, Move, Level };

    void OnPaint();
    void OnMouse(wxMouseEvent& event);
    void OnWheel(const wxMouseEvent& event);
    void OnDown(const wxMouseEvent& event);
    void OnUp(const wxMouseEvent& event);
    void OnDragged(const wxMouseEvent& event);
    void OnKey(wxKeyEvent& event);
    bool HandleKey(const wxKeyEvent& event);
    void Draw();
    void MakeRoomFor(size_t lanes);
    void DrawOverlay(wxDC& dc);
    void DrawCursor(wxGraphicsContext& to, double x, const wxString& flag) const;
    void DrawLevel(wxGraphicsContext& to) const;
    void ZoomX(AxisRange range, bool remember = true);
    void ZoomValue(size_t lane, AxisRange range);
    void MoveLevel(double value, bool snaps);
    void Hover(std::optional<double> x);
    size_t LaneAt(int y) const;
    AxisRange ShownX() const;

    ChartSource Source;
    ChartZoom Shown;
    ZoomHistory Left;
    bool CursorsShown = false;
    std::array<double, 2> Cursors{};
    size_t ChosenCursor = 0;
    std::optional<double> HoverX;
    Drag Dragging = Drag::None;
    wxPoint DragFrom;
    AxisRange DraggedX; ///< As it was when the drag began.
    int DragTo = 0;
    bool Stale = true;
    std::vector<ChartArea> LaneAreas;
    wxBitmap Picture;
};

} // namespace orvane
