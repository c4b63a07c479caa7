#pragma once

#include "hosts/panel/acquisition_form.h"
#include "hosts/panel/channel_settings.h"
#include "hosts/panel/channel_table.h"
#include "hosts/panel/curves.h"
#include "hosts/panel/driver_messages.h"
#include "hosts/session/driver_session.h"

#include <wx/frame.h>
#include <wx/infobar.h>
#include <wx/stopwatch.h>
#include <wx/timer.h>

namespace orvane {

/// The window: the channels with their values and settings, a strip chart, and an acquisition. It
/// calls the driver on its own thread, in steps that are shorter than a frame of the display; the
/// long calls of a run are made in the background.
class PanelFrame : public wxFrame {
public:
    /// `messages` are those of the driver so far.
    PanelFrame(std::unique_ptr<DriverMessages> messages, std::unique_ptr<DriverSession> session,
               DriverOptions options);
    ~PanelFrame() override;

    const DriverExports& Driver() const {
        return Session->Driver.Exports;
    }
    /// The current run or the last one, if any.
    const std::optional<ShownRun>& LastRun() const {
        return Run;
    }
    /// The texts in the bar of the driver's messages.
    const std::vector<wxString>& Messages() const {
        return FromDriver->Texts;
    }

    wxInfoBar* DriverBar;
    ChannelTable* Table;
    ChannelSettings* Settings;
    AcquisitionForm* Form;
    PlotView* StripChartView;
    PlotView* RunView;
    wxStaticText* Readout;

private:
    void BuildMenus();
    void BuildContent();
    void BuildDriverBar();
    void ShowMessages();
    void ConnectFields();
    PlotSource StripChartSource();
    PlotSource RunSource();

    void OnTick();
    void Measure();
    void FollowRun();
    void ReportRun();
    void Enumerate();
    void Describe(int channel);
    void ShowSettings(int channel);
    void StartRun();
    void StopRun();
    bool CanSave() const;
    void ChangeLanguage(const std::string& code);
    void ShowReadout(const std::vector<ChannelInfo>& channels,
                     const std::optional<CursorPoint>& point);

    std::unique_ptr<DriverMessages> FromDriver; ///< Outlives the session.
    std::unique_ptr<DriverSession> Session;
    DriverOptions Options;
    std::vector<ChannelInfo> Channels;
    std::vector<ChannelScale> Scales; ///< One for each channel.
    StripChart Chart;
    std::optional<ShownRun> Run; ///< The last one.
    bool RunActive = false;
    wxTimer Timer;
    wxStopWatch Clock;
    unsigned Ticks = 0;
};

/// Opens the driver and shows its window. Throws HostError if the driver does not open.
void ShowPanel(const DriverOptions& options);

} // namespace orvane
