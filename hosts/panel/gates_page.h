#pragma once

#include "hosts/panel/chart_view.h"
#include "hosts/panel/gate_form.h"
#include "hosts/panel/page.h"
#include "hosts/session/gate_run.h"

namespace orvane {

/// Runs over gates: what falls is timed at the door and at the gates of the forks; with their
/// positions come speeds and the acceleration.
class GatesPage : public Page {
public:
    GatesPage(wxWindow* parent, DriverAccess& access);

    std::vector<PageTool> Tools() override;
    PageState State() const override;
    bool IsMeasuring() const override {
        return Armed != nullptr;
    }
    bool HasUnsaved() const override {
        return Unsaved;
    }
    bool CanSave() const override {
        return !Runs.empty() && !IsMeasuring();
    }
    void Tick() override;
    void Measured() override;
    void StopMeasuring() override;
    void SaveSamples() override;
    void SavePicture() override;
    std::any GiveUp() override;
    void TakeOver(std::any given) override;
    void Keep(wxConfigBase& config) const override;
    void Restore(const wxConfigBase& config) override;

    GateForm* Fields;
    wxListView* Forks; ///< The shown run, fork by fork.

private:
    ChartView* AddChart(wxWindow* parent, const wxString& name, Chart (GatesPage::*make)() const,
                        int height);
    Chart Passages() const;
    Chart Speeds() const;
    Chart Positions() const;
    const GateFall* ShownFall() const;
    bool CanArm() const;
    void Arm();
    void Stop();
    void TakeRun(const std::vector<double>& raysSec);
    void PositionsChanged();
    void CorrectShown();
    void ShowRun();
    void ShowForks();
    void EnableButtons();

    std::vector<GatePlace> Places;
    std::unique_ptr<GateRun> Armed;
    std::vector<TimedFall> Runs;
    size_t Shown = 0;
    bool Unsaved = false;
    bool Stopped = false;
    wxString Failure;
    wxLongLong Begun;
    std::vector<ChartView*> Charts;
};

Page* MakeGatesPage(wxWindow* parent, DriverAccess& access);

/// Whether the console has gates.
bool HasGates(const DriverExports& driver);

} // namespace orvane
