#pragma once

#include "hosts/panel/adjustment_box.h"
#include "hosts/panel/calibration_box.h"
#include "hosts/panel/channel_form.h"
#include "hosts/panel/chart_view.h"
#include "hosts/panel/page.h"
#include "hosts/session/recent_readings.h"

namespace orvane {

/// How a channel measures: function, calibre, scale, symbols, adjustment and calibration, beside
/// what it reads now.
class ChannelPage : public Page {
public:
    ChannelPage(wxWindow* parent, DriverAccess& access);

    std::vector<PageTool> Tools() override;
    PageState State() const override;
    bool CanSave() const override {
        return !Readings.Values.empty();
    }
    void SaveSamples() override {
        SavePicture();
    }
    void SavePicture() override;
    void ChannelsChanged() override;
    void ChannelSetUp(int channel) override;
    void Tick() override;
    void Measured() override;
    void Entered() override;
    bool MayLeave() override;
    void StopMeasuring() override;
    std::any GiveUp() override;
    void TakeOver(std::any given) override;

    ChannelForm* Fields;
    ChartView* Curve;
    wxStaticText* Now;
    wxStaticText* Spread;
    AdjustmentBox* Adjustment;
    CalibrationBox* Calibration;

private:
    /// A scale that was replaced.
    struct FormerScale {
        ChannelKey Key;
        ChannelSetup Setup;
    };
    /// What outlives the page.
    struct Kept {
        ChannelKey Selected;
        std::vector<FormerScale> Former;
    };

    wxSizer* BuildRight(wxWindow* parent);
    void BindControls();
    const ChannelInfo* Selected() const;
    const ChannelInfo& Shown() const;
    Chart MakeChart() const;
    void Select(size_t channel);
    void SelectNext(int step);
    void ShowSelected();
    void Choose(const ChannelSetup& setup);
    void SetScale(const ChannelSetup& setup);
    bool CanUndo() const;
    void Undo();
    void AllowControls();
    void ShowReading(double value);

    size_t Channel = 0;
    ChannelKey Key; ///< Of the selected channel.
    RecentReadings Readings;
    std::vector<FormerScale> Former; ///< The last one is the next to come back.
    unsigned Ticks = 0;
    unsigned Looks = 0;
    wxString Failure;
};

Page* MakeChannelPage(wxWindow* parent, DriverAccess& access);

} // namespace orvane
