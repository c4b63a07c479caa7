#include "hosts/panel/radio_tables.h"

#include <wx/datetime.h>
#include <wx/intl.h>
#include <wx/settings.h>

#include <algorithm>

namespace orvane {

namespace {

enum PodColumn { PodId, State, Accepted, LastPing, PingTime, Joined };

wxString TimeOf(LogTime at) {
    return wxDateTime(std::chrono::system_clock::to_time_t(at)).FormatISOTime();
}

wxString Signed(wchar_t sign, const wxString& words) {
    return wxString(wxUniChar(sign)) + " " + words;
}

wxString DurationOf(std::chrono::seconds seconds) {
    const auto all = static_cast<long>(seconds.count());
    return wxString::Format("%ld:%02ld:%02ld", all / 3600, all / 60 % 60, all % 60);
}

wxString PingOf(const PodRecord& pod) {
    if (!pod.Answered) {
        return wxString(wxUniChar(0x2013));
    }
    return *pod.Answered ? Signed(L'\u2713', _("answered")) : Signed(L'\u25b2', _("no answer"));
}

wxString AcceptanceOf(const PodRecord& pod) {
    if (!pod.Connected) {
        return "";
    }
    return pod.Accepted ? Signed(L'\u2713', _("accepted")) : Signed(L'\u25cb', _("not yet"));
}

} // namespace

wxString WordsOf(const RadioEvent& event) {
    switch (event.What) {
    case RadioEvent::Kind::Opened:
        return wxString::Format(_("network open on channel %d, level %d"), event.Channel,
                                event.Level);
    case RadioEvent::Kind::Closed:
        return _("network closed");
    case RadioEvent::Kind::Joined:
        return _("joined the network");
    case RadioEvent::Kind::Left:
        return _("left the network");
    case RadioEvent::Kind::Accepted:
        return _("accepted");
    case RadioEvent::Kind::NotAccepted:
        return _("not accepted by the console");
    case RadioEvent::Kind::Answered:
        return _("answered the ping");
    case RadioEvent::Kind::Silent:
        return _("no answer to the ping");
    }
    return "";
}

PodTable::PodTable(wxWindow* parent)
    : wxListView(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                 wxLC_REPORT | wxLC_SINGLE_SEL) {
    SetName(_("Pods"));
    AppendColumn(_("Pod"), wxLIST_FORMAT_RIGHT, FromDIP(60));
    AppendColumn(_("State"), wxLIST_FORMAT_LEFT, FromDIP(150));
    AppendColumn(_("Accepted"), wxLIST_FORMAT_LEFT, FromDIP(140));
    AppendColumn(_("Last ping"), wxLIST_FORMAT_LEFT, FromDIP(150));
    AppendColumn(_("at"), wxLIST_FORMAT_RIGHT, FromDIP(100));
    AppendColumn(_("Joined for"), wxLIST_FORMAT_RIGHT, FromDIP(100));
}

void PodTable::Show(const RadioLog& log, LogTime now) {
    std::vector<int> ids;
    for (const PodRecord& pod : log.Pods) {
        ids.push_back(pod.Id);
    }
    if (ids != Ids) {
        const int selected = SelectedPod();
        Ids = ids;
        DeleteAllItems();
        for (size_t i = 0; i < ids.size(); ++i) {
            InsertItem(static_cast<long>(i), std::to_string(ids[i]));
        }
        const auto again = std::ranges::find(ids, selected);
        if (!ids.empty()) {
            Select(again == ids.end() ? 0 : static_cast<long>(again - ids.begin()));
        }
    }
    for (size_t i = 0; i < log.Pods.size(); ++i) {
        ShowRow(static_cast<long>(i), log.Pods[i], now);
    }
}

void PodTable::ShowRow(long row, const PodRecord& pod, LogTime now) {
    SetText(row, State,
            pod.Connected ? Signed(L'\u25cf', _("connected")) : Signed(L'\u25cb', _("left")));
    SetText(row, Accepted, AcceptanceOf(pod));
    SetText(row, LastPing, PingOf(pod));
    SetText(row, PingTime, pod.Answered ? TimeOf(pod.PingAt) : wxString());
    SetText(row, Joined, DurationOf(JoinedFor(pod, now)));
    const wxColour colour = wxSystemSettings::GetColour(pod.Connected ? wxSYS_COLOUR_LISTBOXTEXT
                                                                      : wxSYS_COLOUR_GRAYTEXT);
    if (GetItemTextColour(row) != colour) {
        SetItemTextColour(row, colour);
    }
}

void PodTable::SetText(long row, int column, const wxString& text) {
    if (GetItemText(row, column) != text) {
        SetItem(row, column, text);
    }
}

int PodTable::SelectedPod() const {
    const long row = GetFirstSelected();
    return row < 0 || static_cast<size_t>(row) >= Ids.size() ? -1 : Ids[static_cast<size_t>(row)];
}

RadioEventTable::RadioEventTable(wxWindow* parent)
    : wxListView(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                 wxLC_REPORT | wxLC_SINGLE_SEL) {
    SetName(_("Events"));
    AppendColumn(_("at"), wxLIST_FORMAT_RIGHT, FromDIP(100));
    AppendColumn(_("Pod"), wxLIST_FORMAT_RIGHT, FromDIP(60));
    AppendColumn(_("What happened"), wxLIST_FORMAT_LEFT, FromDIP(380));
}

void RadioEventTable::Show(const RadioLog& log) {
    const LogTime newest = log.Events.empty() ? LogTime() : log.Events.back().At;
    if (newest == Newest && Count == log.Events.size()) {
        return;
    }
    Newest = newest;
    Count = log.Events.size();
    DeleteAllItems();
    for (size_t i = Count; i-- > 0;) {
        const RadioEvent& event = log.Events[i];
        const long row = InsertItem(GetItemCount(), TimeOf(event.At));
        SetItem(row, 1,
                event.Pod < 0 ? wxString(wxUniChar(0x2013)) : wxString(std::to_string(event.Pod)));
        SetItem(row, 2, WordsOf(event));
    }
}

} // namespace orvane
