#pragma once

#include "hosts/panel/acquisition_form.h"
#include "hosts/panel/channel_table.h"
#include "hosts/panel/chart_view.h"
#include "hosts/panel/curves.h"
#include "hosts/panel/page.h"
#include "hosts/panel/signal_views.h"

#include <wx/splitter.h>

#include <chrono>

namespace orvane {

/// Buffered acquisitions, as a scope has them: a table of channels with their values, the settings
/// of a run, its curves and what they measure. Without a run yet, the values of the last ten
/// seconds.
class AcquisitionPage : public Page {
public:
    AcquisitionPage(wxWindow* parent, DriverAccess& access);

    std::vector<PageTool> Tools() override;
    PageState State() const override;
    wxString Readout() const override {
        return Pointed;
    }
    bool IsMeasuring() const override {
        return Current != nullptr;
    }
    bool IsBusy() const override {
        return Current != nullptr && Current->Followed && orvane::IsBusy(*Current->Followed);
    }
    bool HasUnsaved() const override {
        return Unsaved;
    }
    bool CanSave() const override;
    void ChannelsChanged() override;
    void ChannelSetUp(int channel) override;
    void Entered() override;
    void Tick() override;
    void Measured() override;
    void StopMeasuring() override;
    void SaveSamples() override;
    void SavePicture() override;
    bool OpenSamples(const wxString& path) override;
    std::any GiveUp() override;
    void TakeOver(std::any given) override;
    void Keep(wxConfigBase& config) const override;
    void Restore(const wxConfigBase& config) override;

    /// The run that is shown, if any.
    const ShownRun* LastRun() const {
        return Run.get();
    }

    ChannelTable* Table;
    AcquisitionForm* Fields;
    ChartView* Curves;
    LowerView* Lower;

private:
    using Clock = std::chrono::steady_clock;

    void LayOutPanes();
    void BindTable();
    std::vector<PageTool> ViewTools();
    void ToggleLower(LowerView::Kind kind);
    void ShowLimits();

    ChartSource Source();
    Chart MakeChart(const ChartZoom& zoom, size_t steps);
    Chart ChartOfRun(const ChartZoom& zoom, size_t steps);
    AxisRange UnzoomedTime() const;
    std::vector<ChannelInfo> ShownChannels() const;
    std::vector<CursorValue> ValuesAt(double& x) const;
    void ShowPointed(std::optional<double> x);
    std::optional<LevelTag> TriggerTag() const;
    void ShowLower();

    void Start(bool repeats);
    void StartRun(const AcquisitionRequest& request);
    void ShowRun(const std::shared_ptr<ShownRun>& run);
    void StopRun();
    void FollowRun();
    void RunEnded();

    wxSplitterWindow* Columns;
    wxSplitterWindow* Results;
    std::optional<bool> Folded;        ///< Whether the panes lie as in a small window.
    std::shared_ptr<ShownRun> Run;     ///< The one that is shown; null: none yet.
    std::shared_ptr<ShownRun> Current; ///< The one that goes on; a short one is shown at its end.
    FormerRuns Former;
    StripChart Strip;
    size_t Runs = 0;
    bool Repeats = false;
    bool Overlaid = false;
    bool Unsaved = false;
    wxString Failure;
    wxString Pointed;
    AxisRange ShownTime;
    bool LowerStale = true;
    size_t DrawnPoints = 0;
    Clock::time_point Drawn;
    Clock::time_point LowerShown;
    Clock::time_point Begun;
};

Page* MakeAcquisitionPage(wxWindow* parent, DriverAccess& access);

} // namespace orvane
