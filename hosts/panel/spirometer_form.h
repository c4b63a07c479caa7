#pragma once

#include "hosts/panel/form.h"
#include "hosts/plot/breath_charts.h"
#include "hosts/session/channel_info.h"

#include <wx/button.h>
#include <wx/listctrl.h>
#include <wx/spinctrl.h>

namespace orvane {

/// The controls of the spirometer: the turbine, the recording, how a manoeuvre is made, and the
/// manoeuvres, where a checked one is kept.
class SpirometerForm : public Form {
public:
    explicit SpirometerForm(wxWindow* parent);

    void ShowTurbine(const ChannelInfo* turbine);
    /// \param flow out of the lungs; nothing: not known
    void ShowFlow(std::optional<double> flow, const std::string& unit);
    void ShowManoeuvres(const std::vector<Manoeuvre>& list);
    void EnableFor(bool recording, bool canStart);

    wxButton* Start;
    wxButton* Stop;
    wxSpinCtrl* Length; ///< s
    wxButton* Zero;
    wxStaticText* Flow;
    wxListView* Manoeuvres;
    std::function<void(size_t number, bool kept)> Keeps = [](size_t, bool) {};

private:
    void BuildTurbine();
    void BuildMeasure();
    void BuildManoeuvres();

    wxStaticText* Connector;
    wxStaticText* Breathes;
    bool Filling = false; ///< The list: its checks are not the user's.
};

} // namespace orvane
