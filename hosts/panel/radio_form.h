#pragma once

#include "hosts/panel/form.h"

#include <wx/button.h>
#include <wx/radiobut.h>

#include <array>

namespace orvane {

/// What a network can be told, in the order of the buttons.
enum class NetworkMode { Open, Pilot, Closed };

/// The controls of a radio network: its channel and level, its mode, the selected pod.
class RadioForm : public Form {
public:
    explicit RadioForm(wxWindow* parent);

    struct Setting {
        int Channel = 0;
        int Level = 0;
    };
    /// Nothing if a number is wrong: its field says so and has the focus.
    std::optional<Setting> Entered();
    void SetEntered(Setting setting);
    void ShowNetwork(bool on, NetworkMode mode);
    void ShowStored(int channel);
    void ShowSelected(int pod); ///< Below 0: none.

    wxStaticText* Pilot;
    NumberField* Channel;
    NumberField* Level;
    wxStaticText* Stored;
    wxButton* Apply;
    wxButton* AsStored;
    wxButton* Off;
    std::array<wxRadioButton*, 3> Modes; ///< By NetworkMode.
    wxStaticText* Selected;
    wxButton* Accept;
    wxButton* Ping;
    wxButton* AcceptAll;

private:
    void BuildNetwork();
    void BuildMode();
    void BuildPod();
    void AddButtons(std::initializer_list<wxButton*> buttons);
    wxStaticText* LimitsText(int least, int greatest);
};

} // namespace orvane
