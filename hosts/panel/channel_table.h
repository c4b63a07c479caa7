#pragma once

#include "hosts/session/channel_info.h"

#include <wx/listctrl.h>

namespace orvane {

/// The list of channels: name, value, unit and range. The box of a channel selects it for curves
/// and acquisitions, its row for the settings.
class ChannelTable : public wxListView {
public:
    explicit ChannelTable(wxWindow* parent);

    /// Shows other channels. The first ones are checked, the first row is selected,
    /// which tells of itself.
    void Fill(const std::vector<ChannelInfo>& channels);
    /// Shows what a channel has become.
    void UpdateRow(const ChannelInfo& channel);
    void ShowValues(const std::vector<double>& values);
    /// The channels whose box is checked, in ascending order.
    std::vector<int> Checked() const;

private:
    void SetText(long row, int column, const wxString& text);
};

} // namespace orvane
