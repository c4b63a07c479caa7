#include "hosts/panel/channel_table.h"

#include "hosts/panel/panel_text.h"
#include "hosts/panel/theme.h"
#include "hosts/session/number_text.h"

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

std::string NumberedName(const ChannelInfo& channel) {
    return std::to_string(channel.Index + 1) + " " + channel.Name;
}

std::string PlaceOf(const ChannelInfo& channel) {
    return std::to_string(channel.Connector) + "." + std::to_string(channel.Channel);
}

std::string ReadingText(const ChannelInfo& channel, double value) {
    constexpr double steps = 4096.0; // of a converter
    const double range = std::abs(channel.Max - channel.Min);
    const int decimals =
        range > 0.0 ? std::clamp(static_cast<int>(std::ceil(-std::log10(range / steps))), 0, 9) : 3;
    if (!std::isfinite(value)) {
        return "";
    }
    std::string text = FixedText(std::abs(value), decimals);
    return (std::signbit(value) && text.find_first_of("123456789") != std::string::npos ? "\u2212"
                                                                                        : "") +
           text;
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
    SetMinSize(FromDIP(wxSize(340, 150)));
}

void ChannelTable::MakeSwatches(size_t count) {
    const wxSize size = FromDIP(wxSize(20, 14));
    auto* swatches = new wxImageList(size.x, size.y, false);
    for (size_t number = 0; number < count; ++number) {
        swatches->Add(Swatch(*this, number));
    }
    AssignImageList(swatches, wxIMAGE_LIST_SMALL);
}

void ChannelTable::Fill(const std::vector<ChannelInfo>& channels, const std::vector<int>& checked) {
    DeleteAllItems();
    MakeSwatches(channels.size());
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
    SetText(channel.Index, Range, FromUtf8(RangeText(channel)));
}

void ChannelTable::ShowValues(const std::vector<ChannelInfo>& channels,
                              const std::vector<double>& values) {
    for (size_t i = 0; i < std::min(values.size(), channels.size()); ++i) {
        SetText(static_cast<long>(i), Value,
                FromUtf8(ReadingText(channels[i], values[i]) + " " + channels[i].Unit));
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
