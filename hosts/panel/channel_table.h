#pragma once

#include "hosts/session/channel_info.h"

#include <wx/imaglist.h>
#include <wx/listctrl.h>

namespace orvane {

/// The list of channels: a box, the colour of its curve, number and name, place, value, range. The
/// box of a channel selects it for curves and acquisitions, its row for the settings.
class ChannelTable : public wxListView {
public:
    explicit ChannelTable(wxWindow* parent);

    /// Replaces the channels, checks those named and selects the first row, which sends its event.
    void Fill(const std::vector<ChannelInfo>& channels, const std::vector<int>& checked);
    /// Updates the row of a channel.
    void UpdateRow(const ChannelInfo& channel);
    void ShowValues(const std::vector<ChannelInfo>& channels, const std::vector<double>& values);
    /// The channels whose box is checked, in ascending order.
    std::vector<int> Checked() const;

private:
    void SetText(long row, int column, const wxString& text);
    void FitColumns();
};

/// The number and name of a channel: "1 Voltmètre".
std::string NumberedName(const ChannelInfo& channel);

/// The connector and the channel on it: "1.0".
std::string PlaceOf(const ChannelInfo& channel);

/// Strokes in the colours of this many curves. The list that it is assigned to takes it.
wxImageList* MakeSwatches(const wxWindow& window, size_t count);

} // namespace orvane
