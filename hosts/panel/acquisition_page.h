#pragma once

#include "hosts/panel/acquisition_form.h"
#include "hosts/panel/channel_table.h"
#include "hosts/panel/chart_view.h"
#include "hosts/panel/curves.h"
#include "hosts/panel/page.h"

namespace orvane {

/// Buffered acquisitions, as a scope has them: a table of channels with their values, the settings
/// of a run and its curves. Without a run yet, the values of the last ten seconds.
class AcquisitionPage : public Page {
public:
    AcquisitionPage(wxWindow* parent, DriverAccess& access);

    std::vector<PageTool> Tools() override;
    PageState State() const override;
    wxString Readout() const override {
        return Pointed;
    }
    bool IsMeasuring() const override {
        return RunActive;
    }
    bool IsBusy() const override {
        return Run != nullptr && orvane::IsBusy(Run->Followed);
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
    std::any GiveUp() override;
    void TakeOver(std::any given) override;

    /// The current run or the last one, if any.
    const ShownRun* LastRun() const {
        return Run.get();
    }

    ChannelTable* Table;
    AcquisitionForm* Fields;
    ChartView* Curves;

private:
    ChartSource Source();
    Chart MakeChart(const ChartZoom& zoom, size_t steps);
    std::vector<CursorValue> ValuesAt(double& x) const;
    void ShowPointed(std::optional<double> x);
    std::optional<LevelTag> TriggerTag() const;
    void Start(bool repeats);
    void StopRun();
    void FollowRun();
    void RunEnded();

    std::shared_ptr<ShownRun> Run; ///< The last one; null: none yet.
    StripChart Strip;
    bool RunActive = false;
    bool Repeats = false;
    bool Unsaved = false;
    wxString Failure;
    wxString Pointed;
    unsigned Ticks = 0;
    wxLongLong Begun;
};

Page* MakeAcquisitionPage(wxWindow* parent, DriverAccess& access);

} // namespace orvane
