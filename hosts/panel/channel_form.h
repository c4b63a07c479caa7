#pragma once

#include "hosts/panel/channel_table.h"
#include "hosts/panel/driver_access.h"
#include "hosts/panel/form.h"

#include <wx/button.h>
#include <wx/choice.h>
#include <wx/statbmp.h>

namespace orvane {

/// The left side of the channel's page: the channels, and how one of them measures.
class ChannelForm : public Form {
public:
    explicit ChannelForm(wxWindow* parent);

    /// Shows a channel and what was chosen for it.
    void ShowChannel(DriverAccess& access, const ChannelInfo& channel);
    /// Whether settings can be changed, and the last change of the scale taken back.
    void Allow(bool settings, bool channels, bool undo);
    /// Takes what is still being written.
    void TakeFields();
    /// Tells beside the field why a number was not taken.
    void ShowError(const ChannelSetup& setup, const wxString& text);

    ChannelTable* Table;
    wxStaticBitmap* Picture;
    wxStaticText* Name;
    wxStaticText* Place;
    wxChoice* Function;
    wxChoice* Calibre;
    NumberField* Ampli;
    NumberField* Offset;
    wxTextCtrl* Quantity;
    wxTextCtrl* Unit;
    wxButton* Undo;
    wxButton* Delivered;
    /// Something was chosen, which the setup has alone.
    std::function<void(const ChannelSetup&)> Chosen = [](const ChannelSetup&) {};

private:
    void BuildHead();
    void BuildSelections();
    void BuildScale();
    void TakeSymbols();
    void ShowPicture(DriverAccess& access, int channel);

    FieldMessage* SelectionMessage;
    std::vector<std::string> Functions;
    std::vector<std::string> Calibres;
};

} // namespace orvane
