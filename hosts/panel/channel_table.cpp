#include "hosts/panel/channel_table.h"

#include "hosts/panel/panel_text.h"
#include "hosts/panel/theme.h"
#include "hosts/session/unit_prefix.h"

#include <wx/dcmemory.h>
#include <wx/imaglist.h>
#include <wx/intl.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace orvane {

namespace {

enum Column { Name, Place, Value, Range };

/// A stroke in the colour of a curve, on the ground of charts.
wxBitmap Swatch(const wxWindow& window, size_t number) {
    const wxSize size = window.FromDIP(wxSize(20, 14));
    constexpr std::array<wxPenStyle, 3> styles{wxPENSTYLE_SOLID, wxPENSTYLE_SHORT_DASH,
                                               wxPENSTYLE_DOT};
    wxBitmap bitmap(size);
    wxMemoryDC dc(bitmap);
    dc.SetBackground(ToColour(WindowColours().Ground));
    dc.Clear();
    dc.SetPen(wxPen(ToColour(WindowColours().Curves[CurveColourOf(number)]), window.FromDIP(3),
                    styles.at(static_cast<size_t>(CurveDashOf(number)))));
    dc.DrawLine(window.FromDIP(2), size.y / 2, size.x - window.FromDIP(2), size.y / 2);
    return bitmap;
}

} // namespace

wxImageList* MakeSwatches(const wxWindow& window, size_t count) {
    const wxSize size = window.FromDIP(wxSize(20, 14));
    auto* swatches = new wxImageList(size.x, size.y, false); // NOLINT: its list takes it
    for (size_t number = 0; number < count; ++number) {
        swatches->Add(Swatch(window, number));
    }
    return swatches;
}

std::string NumberedName(const ChannelInfo& channel) {
    return std::to_string(channel.Index + 1) + " " + channel.Name;
}

std::string PlaceOf(const ChannelInfo& channel) {
    return std::to_string(channel.Connector) + "." + std::to_string(channel.Channel);
}

ChannelTable::ChannelTable(wxWindow* parent)
    : wxListView(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                 wxLC_REPORT | wxLC_SINGLE_SEL) {
    EnableCheckBoxes();
    SetName(_("Channels"));
    AppendColumn(_("Channel"), wxLIST_FORMAT_LEFT, FromDIP(160));
    AppendColumn(_("Place"), wxLIST_FORMAT_RIGHT, FromDIP(50));
    AppendColumn(_("Value"), wxLIST_FORMAT_RIGHT, FromDIP(90));
    AppendColumn(_("Range"), wxLIST_FORMAT_LEFT, FromDIP(110));
    SetMinSize(FromDIP(wxSize(270, 160)));
    Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
        event.Skip();
        FitColumns();
    });
    Bind(wxEVT_MOTION, [this](wxMouseEvent& event) {
        event.Skip();
        int flags = 0;
        const long row = HitTest(event.GetPosition(), flags);
        const wxString name =
            row >= 0 ? GetItemText(row) + ", " + GetItemText(row, Range) : wxString();
        if (name != GetToolTipText()) {
            SetToolTip(name); // They may be cut in the row.
        }
    });
}

/// The name takes what the others leave; in a narrow table the range goes.
void ChannelTable::FitColumns() {
    const int width = GetClientSize().x;
    const bool isNarrow = width < FromDIP(320);
    const int place = FromDIP(42);
    const int value = FromDIP(80);
    const int range = isNarrow ? 0 : FromDIP(84);
    SetColumnWidth(Place, place);
    SetColumnWidth(Value, value);
    SetColumnWidth(Range, range);
    SetColumnWidth(Name, std::max(width - place - value - range, FromDIP(100)));
}

void ChannelTable::Fill(const std::vector<ChannelInfo>& channels, const std::vector<int>& checked) {
    DeleteAllItems();
    AssignImageList(MakeSwatches(*this, channels.size()), wxIMAGE_LIST_SMALL);
    for (const ChannelInfo& channel : channels) {
        const long row = InsertItem(GetItemCount(), FromUtf8(NumberedName(channel)), channel.Index);
        CheckItem(row, std::ranges::count(checked, channel.Index) > 0);
        UpdateRow(channel);
    }
    if (!channels.empty()) {
        Select(0);
        Focus(0);
    }
}

void ChannelTable::UpdateRow(const ChannelInfo& channel) {
    SetText(channel.Index, Place, FromUtf8(PlaceOf(channel)));
    SetText(channel.Index, Range, LocalNumbers(ToldRange(channel)));
}

void ChannelTable::ShowValues(const std::vector<ChannelInfo>& channels,
                              const std::vector<double>& values) {
    for (size_t i = 0; i < std::min(values.size(), channels.size()); ++i) {
        const std::string value = ToldValue(channels[i], values[i]);
        SetText(static_cast<long>(i), Value,
                value.empty() ? wxString()
                              : LocalNumbers(value) + " " + FromUtf8(ToldUnitOf(channels[i]).Name));
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
