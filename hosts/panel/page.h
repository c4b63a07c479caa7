#pragma once

#include "hosts/panel/driver_access.h"

#include <wx/panel.h>

#include <any>
#include <functional>

class wxConfigBase;

namespace orvane {

/// What a page is doing, for the right end of the toolbar and the status bar.
struct PageState {
    enum class Kind { Ready, Waiting, Running, Done, Stopped, Failed, On };

    Kind Now = Kind::Ready;
    wxString Words;     ///< "Running"; empty: the words of the kind.
    wxString Detail;    ///< "412 of 550 points"; may be empty.
    double Part = -1.0; ///< Done, 0 to 1; below 0: not known.
};

/// A button of the toolbar, which is also in the menu "Measure".
struct PageTool {
    wxString Label;
    const char* Icon = nullptr; ///< Of ToolIcon.
    wxString Keys;              ///< "F5"; may be empty.
    std::function<void()> Do;
    std::function<bool()> CanDo = [] { return true; };
    std::function<bool()> IsOn = {}; ///< A button that stays pressed has it.
};

/// One instrument's page. The frame knows pages, not instruments: it ticks them, tells them what
/// changes, and shows what they say. It calls the driver through the access only.
class Page : public wxPanel {
public:
    Page(wxWindow* parent, DriverAccess& access, const wxString& title)
        : wxPanel(parent), Access(access) {
        SetName(title);
    }

    /// \name Asked by the frame
    /// @{

    virtual std::vector<PageTool> Tools() {
        return {};
    }
    virtual PageState State() const {
        return {};
    }
    /// The values under the mouse, for the status bar.
    virtual wxString Readout() const {
        return {};
    }
    /// Whether it uses the driver in a way that allows no other use: a run, a set of gates.
    virtual bool IsMeasuring() const {
        return false;
    }
    /// Whether the driver is called in the background.
    virtual bool IsBusy() const {
        return false;
    }
    virtual bool HasUnsaved() const {
        return false;
    }
    virtual bool CanSave() const {
        return false;
    }
    /// @}

    /// \name Told by the frame
    /// @{

    /// The channels are other ones, or described anew. The access has them.
    virtual void ChannelsChanged() {}
    /// A channel was set up: the access has its new description. What was measured of it before is
    /// of the old one.
    virtual void ChannelSetUp(int /*channel*/) {}
    /// Called every 20 ms, shown or not. The driver may be busy.
    virtual void Tick() {}
    /// The channels were measured: the access has the values.
    virtual void Measured() {}
    /// Whether the user may leave it, or close the window; it may ask.
    virtual bool MayLeave() {
        return true;
    }
    /// It comes into view, or goes.
    virtual void Entered() {}
    virtual void Left() {}
    /// Ends what it measures: the driver is about to be closed.
    virtual void StopMeasuring() {}
    virtual void SaveSamples() {}
    virtual void SavePicture() {}
    /// Shows samples that were saved. False if they aren't of its kind. Throws HostError if the
    /// file cannot be read.
    virtual bool OpenSamples(const wxString& /*path*/) {
        return false;
    }
    /// What the page measured and what stands in its fields, for the same page after the driver was
    /// started anew. Called after StopMeasuring; the page is destroyed then.
    virtual std::any GiveUp() {
        return {};
    }
    virtual void TakeOver(std::any /*given*/) {}
    /// Keeps what the user arranged, and takes it again.
    virtual void Keep(wxConfigBase&) const {}
    virtual void Restore(const wxConfigBase&) {}
    /// @}

    DriverAccess& Access;
    /// Called by a page when its state changes between two ticks.
    std::function<void()> StateChanged = [] {};
    /// Called by a page to have the driver started anew, which ends the page soon after.
    std::function<void()> StartAgain = [] {};
};

} // namespace orvane
