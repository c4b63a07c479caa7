#pragma once

#include "hosts/plot/chart.h"

#include <wx/bitmap.h>
#include <wx/window.h>

#include <functional>
#include <optional>

namespace orvane {

/// The point under the cursor of a plot: one value for each panel of the picture.
struct CursorPoint {
    double TimeSec = 0.0;
    std::vector<double> Values;
};

/// The content of a plot, requested when it is drawn.
struct PlotSource {
    /// The picture without its size. `zoom` is the stretch of time to show, all if there is none;
    /// each panel has about `steps` pixels for its time.
    std::function<Chart(std::optional<AxisRange> zoom, size_t steps)> Picture;
    /// The stretch of time without zoom.
    std::function<AxisRange()> Whole;
    /// The point nearest to a time.
    std::function<std::optional<CursorPoint>(double timeSec)> At;
    /// Called whenever the cursor moves.
    std::function<void(const std::optional<CursorPoint>&)> CursorMoved;
    bool CanZoom = false;
    wxString EmptyText; ///< Shown in the middle of a picture without panels.
};

/// A picture of curves, in a frame that scrolls if there are many, with a cursor that follows the
/// mouse and the arrow keys. If it can zoom: the wheel, + and - about the cursor, a stretch by
/// dragging; a double click, Home and 0 show all.
class PlotView : public wxWindow {
public:
    PlotView(wxWindow* parent, PlotSource source, const wxSize& smallest);

    /// Has the source drawn again at the next paint.
    void Invalidate();
    /// Shows all.
    void ResetZoom();
    std::optional<AxisRange> Zoom() const {
        return ZoomSec;
    }
    /// The frame to put into a layout.
    wxWindow* Frame() const {
        return GetParent();
    }
    /// The area of the panels in the window's pixels.
    wxRect CurveArea() const;

private:
    void OnPaint();
    void OnMouse(wxMouseEvent& event);
    void OnKey(wxKeyEvent& event);
    void Draw();
    void MakeRoomFor(size_t panels);
    void DrawCursor(wxDC& dc) const;
    void ZoomBy(double factor);
    void ZoomTo(AxisRange range);
    void PlaceCursor(std::optional<double> timeSec);
    double TimeAt(int x) const;
    double PixelAt(double timeSec) const;

    PlotSource Source;
    std::optional<AxisRange> ZoomSec;
    std::optional<double> CursorSec; ///< Where the user put the cursor.
    std::optional<CursorPoint> Cursor;
    std::optional<int> DragFrom; ///< Pixel at which a drag began.
    int DragTo = 0;
    bool Stale = true;
    AxisRange ShownSec;
    std::vector<ChartArea> Areas; ///< In the window's pixels.
    wxBitmap Picture;
};

} // namespace orvane
