#pragma once

#include "hosts/session/channel_info.h"

#include <wx/listctrl.h>

namespace orvane {

/// The list of channels: name, value, unit and range. The box of a channel selects it for curves
/// and acquisitions, its row for the settings.
class ChannelTable : public wxListView {
public:
    explicit ChannelTable(wxWindow* parent);

    /// Replaces the channels. Checks the first ones and selects the first row, which sends its
    /// event.
    void Fill(const std::vector<ChannelInfo>& channels);
    /// Updates the row of a channel.
    void UpdateRow(const ChannelInfo& channel);
    void ShowValues(const std::vector<double>& values);
    /// The channels whose box is checked, in ascending order.
    std::vector<int> Checked() const;

private:
    void SetText(long row, int column, const wxString& text);
};

} // namespace orvane
