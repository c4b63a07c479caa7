// What the window says: the state of its page, its title, the bar of messages.

#include "hosts/panel/channel_table.h"
#include "hosts/panel/panel_frame.h"
#include "hosts/panel/panel_text.h"

#include <wx/intl.h>

#include <algorithm>
#include <array>

namespace orvane {

namespace {

enum StatusField { DetailField, ReadoutField, ConsoleField };

wxString SignOf(PageState::Kind kind) {
    constexpr std::array<wchar_t, 7> signs{L'\u25cb', L'\u25d0', L'\u25b6', L'\u25a0',
                                           L'\u25a1', L'\u25b2', L'\u25cf'};
    return wxString(signs.at(static_cast<size_t>(kind))) + " ";
}

wxString EscapedMarkup(wxString text) {
    text.Replace("&", "&amp;");
    text.Replace("<", "&lt;");
    return wxControl::EscapeMnemonics(text);
}

wxString WordsOf(const PageState& state) {
    if (!state.Words.empty()) {
        return state.Words;
    }
    switch (state.Now) {
    case PageState::Kind::Waiting:
        return _("Waiting for trigger");
    case PageState::Kind::Running:
        return _("Running");
    case PageState::Kind::Done:
        return _("Done");
    case PageState::Kind::Stopped:
        return _("Stopped");
    case PageState::Kind::Failed:
        return _("Failed");
    case PageState::Kind::Ready:
    case PageState::Kind::On:
        break;
    }
    return _("Ready");
}

bool IsSame(const ChannelInfo& one, const ChannelInfo& other) {
    return KeyOf(one) == KeyOf(other);
}

} // namespace

void PanelFrame::ShowState() {
    const Page* page = CurrentPage();
    PageState state;
    if (page != nullptr) {
        state = page->State();
    } else {
        state.Words = Access ? _("Choosing") : _("No console");
    }
    const wxString words = SignOf(state.Now) + WordsOf(state);
    const wxString markup = "<b>" + EscapedMarkup(words) + "</b>" + (Small ? "  " : "\n") +
                            "<small>" + EscapedMarkup(state.Detail) + "</small>";
    if (markup != ShownState) {
        ShownState = markup;
        StateText->SetLabelMarkup(markup);
        StateText->SetToolTip(state.Detail);
    }
    const auto showField = [this](const wxString& text, StatusField field) {
        if (GetStatusBar()->GetStatusText(field) != text) {
            SetStatusText(text, field);
        }
    };
    showField(state.Detail.empty() ? WordsOf(state) : WordsOf(state) + ": " + state.Detail,
              DetailField);
    showField(page != nullptr ? page->Readout() : wxString(), ReadoutField);
    const wxString dot = wxString(" ") + wxUniChar(0xb7) + " ";
    wxString console = Access ? Console : _("no console");
    if (Access && !Clock.empty()) {
        console += dot + FromUtf8(Options.Scenario) + ", " + Clock;
    }
    showField(page != nullptr && page->HasUnsaved() ? _("not saved") + dot + console : console,
              ConsoleField);
    ShowTitle();
}

/// The console and its scenario, and a star while something is not saved.
void PanelFrame::ShowTitle() {
    const wxString dash = wxString(" ") + wxUniChar(0x2013) + " ";
    wxString title = "orvane-panel";
    if (Access) {
        const wxString scenario = FromUtf8(Options.Scenario).AfterLast('/');
        title = Console + (scenario.empty() ? wxString() : " (" + scenario + ")") + dash + title;
    }
    const std::vector<Page*> pages = Pages();
    if (std::ranges::any_of(pages, [](const Page* page) { return page->HasUnsaved(); })) {
        title = "*" + _("Untitled") + dash + title;
    }
    if (GetTitle() != title) {
        SetTitle(title);
    }
}

void PanelFrame::ShowMessages() {
    wxString all = Notice;
    for (const wxString& text : FromDriver.Texts) {
        all += (all.empty() ? "" : "\n") + text;
    }
    if (!all.empty()) {
        MessageBar->ShowMessage(all, wxICON_WARNING);
    } else if (MessageBar->IsShown()) {
        MessageBar->Dismiss();
    }
}

/// Says which channels are not there any more; what was measured with them is.
void PanelFrame::TellLeft(const std::vector<ChannelInfo>& before) {
    wxString left;
    for (const ChannelInfo& channel : before) {
        if (std::ranges::none_of(Access->Channels,
                                 [&](const ChannelInfo& now) { return IsSame(channel, now); })) {
            left +=
                (left.empty() ? "" : ", ") + FromUtf8(channel.Name + " (" + PlaceOf(channel) + ")");
        }
    }
    const std::vector<Page*> pages = Pages();
    const bool hasSamples =
        std::ranges::any_of(pages, [](const Page* page) { return page->CanSave(); });
    Notice = left.empty() ? wxString()
             : hasSamples ? wxString::Format(_("%s left; the samples stay."), left)
                          : wxString::Format(_("%s left."), left);
    ShowMessages();
}

} // namespace orvane
