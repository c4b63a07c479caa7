#pragma once

#include "hosts/panel/curves.h"

#include <wx/listctrl.h>
#include <wx/panel.h>
#include <wx/stattext.h>

#include <array>
#include <memory>

namespace orvane {

/// The part of a run that the curves show.
struct ShownStretch {
    std::shared_ptr<const ShownRun> Run; ///< Null: none yet.
    AxisRange TimeSec;
    std::optional<std::array<double, 2>> Cursors;
    size_t Selected = 0; ///< Index of the channel that is selected in the table.
};

/// The cursors in a line, and what the curves measure in a table.
class MeasuresView : public wxPanel {
public:
    explicit MeasuresView(wxWindow* parent);

    void ShowStretch(const ShownStretch& shown);
    /// Leaves the line only, which then has the mean of the selected channel.
    void Fold(bool folded);

    wxStaticText* Line;
    wxListView* Table;

private:
    void ShowLine(const ShownStretch& shown);
    void FillRows(const ShownStretch& shown);
    void ShowRow(long row, const ShownStretch& shown);
    void SetText(long row, int column, const wxString& text);

    bool Folded = false;
    std::vector<ChannelInfo> Rows; ///< The channels of the rows.
};

} // namespace orvane
