#pragma once

/// \file
/// Other looks at the part of a run that the curves show: its spectrum, and a channel over another.

#include "hosts/panel/chart_view.h"
#include "hosts/panel/measures_view.h"
#include "hosts/spectrum/spectrum.h"

#include <wx/choice.h>

namespace orvane {

class SpectrumView : public wxPanel {
public:
    explicit SpectrumView(wxWindow* parent);

    void ShowStretch(const ShownStretch& shown);

    wxChoice* Window;
    wxChoice* Scale;
    wxStaticText* Peaks;
    ChartView* View;

private:
    void Compute();

    ShownStretch Shown;
    size_t Points = 0; ///< When it was computed.
    std::vector<Spectrum> Spectra;
};

class XyView : public wxPanel {
public:
    explicit XyView(wxWindow* parent);

    void ShowStretch(const ShownStretch& shown);

    wxChoice* Horizontal;
    wxChoice* Vertical;
    ChartView* View;

private:
    /// The samples of the channel of a choice; empty: there are none.
    std::span<const double> SamplesOf(const wxChoice& choice) const;
    Chart MakeChart(const ChartZoom& zoom) const;

    ShownStretch Shown;
    std::vector<ChannelInfo> Channels; ///< Of the choices.
};

/// The lower half of the page of acquisitions: one of three views.
class LowerView : public wxPanel {
public:
    enum class Kind { Measures, Spectrum, Xy };

    explicit LowerView(wxWindow* parent);

    void ShowKind(Kind kind);
    Kind Now() const {
        return Current;
    }
    void ShowStretch(const ShownStretch& shown);

    MeasuresView* Measures;
    SpectrumView* Spectra;
    XyView* Xy;

private:
    Kind Current = Kind::Measures;
};

} // namespace orvane
