#pragma once

#include "hosts/panel/chart_view.h"
#include "hosts/panel/generator_form.h"
#include "hosts/panel/loaded_scenario.h"
#include "hosts/panel/page.h"

namespace orvane {

/// What was sent to an output last: the console does not tell what it plays.
struct SentSignal {
    std::optional<AskedSignal> Signal; ///< Nothing: 0 V.
    double EndsAt = 0.0;               ///< On the driver's clock; of a signal that plays once.
};

/// The analog outputs: what each plays, the signal for one of them and its preview.
class GeneratorPage : public Page {
public:
    GeneratorPage(wxWindow* parent, DriverAccess& access);

    std::vector<PageTool> Tools() override;
    PageState State() const override;
    bool CanSave() const override {
        return Planned.has_value();
    }
    void SaveSamples() override {
        SavePicture();
    }
    void SavePicture() override;
    void ChannelsChanged() override;
    void Measured() override;
    void StopMeasuring() override;
    std::any GiveUp() override;
    void TakeOver(std::any given) override;

    GeneratorForm* Fields;
    ChartView* Preview;
    ChartView* FirstPoints;
    wxListView* Table;

private:
    struct Output {
        OutputLook Look;
        GeneratorFields Fields;
        SentSignal Sent;
    };

    void BuildRight(wxWindow* parent);
    void BindControls();
    void Select(size_t output);
    void Plan();
    void ShowTable();
    void ShowOutputs();
    void Start(bool loop);
    void Send(size_t output, const AskedSignal& asked);
    void StopOutputNow();
    bool CanStart() const;
    bool Plays(const Output& output) const;
    OutputLimits Limits() const;
    wxString UnitLabel() const;

    std::vector<Output> Outputs;
    size_t Selected = 0;
    std::optional<AskedSignal> Asked;
    std::optional<PlannedSignal> Planned;
    double NowSec = 0.0; ///< The driver's clock, at the last look.
    wxString Failure;
};

Page* MakeGeneratorPage(wxWindow* parent, DriverAccess& access);

} // namespace orvane
