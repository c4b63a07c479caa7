#pragma once

#include "hosts/session/channel_info.h"

#include <wx/choice.h>
#include <wx/panel.h>
#include <wx/textctrl.h>

#include <functional>

namespace orvane {

/// The host's scale of a channel, which the driver does not report.
struct ChannelScale {
    double Ampli = 1.0;
    double Offset = 0.0;
};

/// The choice of calibre and scale of one channel. A number takes effect once Enter is pressed or
/// its field is left; an invalid one is reset.
class ChannelSettings : public wxPanel {
public:
    explicit ChannelSettings(wxWindow* parent);

    /// A number that is being edited is applied to the channel shown before.
    void ShowChannel(const ChannelInfo& channel, const ChannelScale& scale);
    /// Shows no channel, and discards a number that is being edited.
    void ShowNone();

    std::function<void(int channel, int calibre)> CalibreChosen;
    std::function<void(int channel, const ChannelScale&)> ScaleChosen;

    wxChoice* Calibre;
    wxTextCtrl* Ampli;
    wxTextCtrl* Offset;

private:
    void ApplyScale();
    void ShowScale();

    int Channel = 0;
    ChannelScale Scale;
};

} // namespace orvane
