#pragma once

#include "hosts/session/channel_info.h"

#include <wx/choice.h>
#include <wx/panel.h>
#include <wx/textctrl.h>

#include <functional>

namespace orvane {

/// What the host set on a channel: the driver does not tell it.
struct ChannelScale {
    double Ampli = 1.0;
    double Offset = 0.0;
};

/// The choice of calibre and scale of one channel. A number counts once Enter is pressed or its
/// field left; what is none is put back.
class ChannelSettings : public wxPanel {
public:
    explicit ChannelSettings(wxWindow* parent);

    /// A number that was being written counts for the channel that was shown before.
    void ShowChannel(const ChannelInfo& channel, const ChannelScale& scale);
    /// Shows that there is no channel, and drops a number that was being written.
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
