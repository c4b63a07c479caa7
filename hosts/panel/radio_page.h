#pragma once

#include "hosts/panel/page.h"
#include "hosts/panel/radio_form.h"
#include "hosts/panel/radio_tables.h"

namespace orvane {

/// The radio network: its pods, what happens to them, and what the network is set to.
class RadioPage : public Page {
public:
    RadioPage(wxWindow* parent, DriverAccess& access);

    std::vector<PageTool> Tools() override;
    PageState State() const override;
    void Tick() override;
    std::any GiveUp() override;
    void TakeOver(std::any given) override;
    void Keep(wxConfigBase& config) const override;
    void Restore(const wxConfigBase& config) override;

    RadioForm* Fields;
    PodTable* Pods;
    RadioEventTable* Events;

private:
    using Call = std::function<void(const DriverExports&)>;

    void Beside(const Call& call, const std::function<void()>& done);
    void Configure(NetworkMode mode);
    void ConfigureAsStored();
    void SwitchOff();
    void ChooseMode(NetworkMode mode);
    void Accept(const std::vector<int>& pods);
    void AcceptSelected();
    void Ping();
    void NoteNetwork(bool on, NetworkMode mode, RadioForm::Setting setting);
    bool MayCall() const;
    bool IsSelectedConnected() const;
    std::vector<int> NotAccepted() const;
    void EnableButtons();
    void ShowPods();

    RadioLog Log;
    bool On = false; ///< The network has a configuration.
    NetworkMode Mode = NetworkMode::Closed;
    RadioForm::Setting Set;
    wxString Failure;
    wxStaticText* Empty;
    unsigned Ticks = 0;
};

Page* MakeRadioPage(wxWindow* parent, DriverAccess& access);

} // namespace orvane
