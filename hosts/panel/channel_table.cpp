#include "hosts/panel/channel_table.h"

#include "hosts/panel/panel_text.h"
#include "hosts/session/number_text.h"

#include <wx/intl.h>

#include <algorithm>

namespace orvane {

namespace {

constexpr long checkedAtFirst = 4;

enum Column { Name, Value, Unit, Range };

} // namespace

ChannelTable::ChannelTable(wxWindow* parent)
    : wxListView(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                 wxLC_REPORT | wxLC_SINGLE_SEL) {
    EnableCheckBoxes();
    AppendColumn(_("Channel"), wxLIST_FORMAT_LEFT, FromDIP(150));
    AppendColumn(_("Value"), wxLIST_FORMAT_RIGHT, FromDIP(80));
    AppendColumn(_("Unit"), wxLIST_FORMAT_LEFT, FromDIP(50));
    AppendColumn(_("Range"), wxLIST_FORMAT_LEFT, FromDIP(120));
    SetMinSize(FromDIP(wxSize(410, 120)));
}

void ChannelTable::Fill(const std::vector<ChannelInfo>& channels) {
    DeleteAllItems();
    for (const ChannelInfo& channel : channels) {
        const long row = InsertItem(GetItemCount(), FromUtf8(channel.Name));
        CheckItem(row, row < checkedAtFirst);
        UpdateRow(channel);
    }
    if (!channels.empty()) {
        Select(0);
        Focus(0);
    }
}

void ChannelTable::UpdateRow(const ChannelInfo& channel) {
    SetText(channel.Index, Unit, FromUtf8(channel.Unit));
    SetText(channel.Index, Range, FromUtf8(RangeText(channel.Min, channel.Max)));
}

void ChannelTable::ShowValues(const std::vector<double>& values) {
    for (size_t i = 0; i < values.size(); ++i) {
        SetText(static_cast<long>(i), Value, FromUtf8(NumberText(values[i])));
    }
}

std::vector<int> ChannelTable::Checked() const {
    std::vector<int> checked;
    for (int row = 0; row < GetItemCount(); ++row) {
        if (IsItemChecked(row)) {
            checked.push_back(row);
        }
    }
    return checked;
}

void ChannelTable::SetText(long row, int column, const wxString& text) {
    if (GetItemText(row, column) != text) {
        SetItem(row, column, text);
    }
}

} // namespace orvane
