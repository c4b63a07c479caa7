#pragma once

#include "hosts/panel/breath_table.h"
#include "hosts/panel/chart_view.h"
#include "hosts/panel/page.h"
#include "hosts/panel/spirometer_form.h"
#include "hosts/session/flow_recording.h"

namespace orvane {

/// Forced breaths through a turbine: the flow is recorded, the manoeuvres are found in it, and the
/// best of those that are kept is told.
class SpirometerPage : public Page {
public:
    SpirometerPage(wxWindow* parent, DriverAccess& access);

    std::vector<PageTool> Tools() override;
    PageState State() const override;
    wxString Readout() const override;
    bool IsMeasuring() const override {
        return Recording != nullptr;
    }
    bool HasUnsaved() const override {
        return Unsaved;
    }
    bool CanSave() const override {
        return !Manoeuvres.empty() && !IsMeasuring();
    }
    void ChannelsChanged() override;
    void Tick() override;
    void Measured() override;
    void StopMeasuring() override;
    void SaveSamples() override;
    void SavePicture() override;
    std::any GiveUp() override;
    void TakeOver(std::any given) override;
    void Keep(wxConfigBase& config) const override;
    void Restore(const wxConfigBase& config) override;

    SpirometerForm* Fields;
    BreathTable* Figures;

private:
    wxWindow* MakeResults(wxWindow* parent);
    Chart Loops() const;
    Chart Volumes() const;
    bool CanStart() const;
    void Start();
    void Stop();
    void TakeReadings();
    void RecordingEnded();
    void ShowManoeuvres();
    void ShowCharts();
    /// What is recorded, as it lies in the charts.
    std::vector<BreathPoint> Trace() const;
    const ChannelInfo* Turbine() const;

    BreathUnits Units;
    std::unique_ptr<FlowRecording> Recording;
    std::vector<FlowReading> Readings; ///< Of the recording.
    std::optional<double> ZeroVolume;  ///< Expired where the volume is 0; nothing: with full lungs.
    size_t FirstOfRecording = 0;
    std::vector<Manoeuvre> Manoeuvres;
    bool Unsaved = false;
    bool Stopped = false;
    wxString Failure;
    unsigned Ticks = 0;
    ChartView* LoopView = nullptr;
    ChartView* VolumeView = nullptr;
    wxStaticText* Verdict = nullptr;
};

Page* MakeSpirometerPage(wxWindow* parent, DriverAccess& access);

/// Whether a console with these channels has a turbine.
bool HasTurbine(const std::vector<ChannelInfo>& channels);

} // namespace orvane
