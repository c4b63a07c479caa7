#pragma once

#include "hosts/plot/breath_charts.h"

#include <wx/listctrl.h>
#include <wx/stattext.h>

namespace orvane {

/// The figures of the manoeuvres, one in each column, and the best of those that are kept.
class BreathTable : public wxListView {
public:
    explicit BreathTable(wxWindow* parent);

    void Show(const std::vector<Manoeuvre>& list, const BreathUnits& units);
    using wxListView::Show;

private:
    void MakeColumns(size_t manoeuvres);
};

/// What is to be said of the figures together: whether they repeat, and start well. A line each.
wxString Judgement(const std::vector<Manoeuvre>& list);

} // namespace orvane
