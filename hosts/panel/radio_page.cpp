#include "hosts/panel/radio_page.h"

#include "hosts/panel/panel_text.h"
#include "hosts/panel/tool_icons.h"
#include "hosts/session/host_error.h"

#include <wx/confbase.h>
#include <wx/intl.h>
#include <wx/settings.h>
#include <wx/splitter.h>

#include <algorithm>

namespace orvane {

namespace {

constexpr int formWidth = 364;
constexpr unsigned ticksPerLook = 5;

/// What outlives the page.
struct Kept {
    RadioLog Log;
    bool On = false;
    NetworkMode Mode = NetworkMode::Closed;
    RadioForm::Setting Set;
};

LogTime Now() {
    return std::chrono::system_clock::now();
}

tRadioMode ToDriver(NetworkMode mode) {
    switch (mode) {
    case NetworkMode::Open:
        return RadioModeOuvert;
    case NetworkMode::Pilot:
        return RadioModePilote;
    case NetworkMode::Closed:
        break;
    }
    return RadioModeFerme;
}

} // namespace

RadioPage::RadioPage(wxWindow* parent, DriverAccess& access) : Page(parent, access, _("Radio")) {
    auto* split = new wxSplitterWindow(this, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                                       wxSP_LIVE_UPDATE | wxSP_NOBORDER);
    Fields = new RadioForm(split);
    auto* right = new wxPanel(split);
    Pods = new PodTable(right);
    Empty = new wxStaticText(right, wxID_ANY, _("No pod yet: set the mode to open."));
    Empty->SetForegroundColour(wxSystemSettings::GetColour(wxSYS_COLOUR_GRAYTEXT));
    auto* title = new wxStaticText(right, wxID_ANY, _("Events"));
    title->SetFont(title->GetFont().Bold());
    Events = new RadioEventTable(right);
    auto* tables = new wxBoxSizer(wxVERTICAL);
    const wxSizerFlags wide = wxSizerFlags(4).Expand().Border(wxALL, FromDIP(8));
    tables->Add(Pods, wide);
    tables->Add(Empty, wxSizerFlags().CentreHorizontal());
    tables->Add(title, wxSizerFlags().Expand().Border(wxLEFT | wxTOP, FromDIP(8)));
    tables->Add(Events, wxSizerFlags(wide).Proportion(3));
    right->SetSizer(tables);
    split->SplitVertically(Fields, right, FromDIP(formWidth));
    split->SetMinimumPaneSize(FromDIP(280));
    auto* whole = new wxBoxSizer(wxVERTICAL);
    whole->Add(split, wxSizerFlags(1).Expand());
    SetSizer(whole);
    {
        const DriverTurn turn(Access);
        const int stored = turn->GetCanalReelO150();
        Fields->ShowStored(stored);
        Set = {stored, Fields->Entered()->Level};
        Fields->SetEntered(Set);
    }
    const auto on = [this](wxButton* button, auto action) {
        button->Bind(wxEVT_BUTTON, [action](wxCommandEvent&) { action(); });
    };
    on(Fields->Apply,
       [this] { Configure(Mode == NetworkMode::Closed ? NetworkMode::Open : Mode); });
    on(Fields->AsStored, [this] { ConfigureAsStored(); });
    on(Fields->Off, [this] { SwitchOff(); });
    on(Fields->Accept, [this] { AcceptSelected(); });
    on(Fields->Ping, [this] { Ping(); });
    on(Fields->AcceptAll, [this] { Accept(NotAccepted()); });
    for (size_t i = 0; i < Fields->Modes.size(); ++i) {
        Fields->Modes.at(i)->Bind(wxEVT_RADIOBUTTON, [this, i](wxCommandEvent&) {
            ChooseMode(static_cast<NetworkMode>(i));
        });
    }
    Pods->Bind(wxEVT_LIST_ITEM_SELECTED, [this](wxListEvent&) { EnableButtons(); });
    Pods->Bind(wxEVT_LIST_ITEM_ACTIVATED, [this](wxListEvent&) { AcceptSelected(); });
    ShowPods();
}

std::vector<PageTool> RadioPage::Tools() {
    const auto can = [this] { return MayCall() && IsSelectedConnected(); };
    return {{.Label = _("Accept"),
             .Icon = tool_icon::Accept,
             .Keys = "F5",
             .Do = [this] { AcceptSelected(); },
             .CanDo = can},
            {.Label = _("Ping"),
             .Icon = tool_icon::Ping,
             .Keys = "F6",
             .Do = [this] { Ping(); },
             .CanDo = can}};
}

PageState RadioPage::State() const {
    if (!Failure.empty()) {
        return {.Now = PageState::Kind::Failed, .Words = {}, .Detail = Failure};
    }
    const bool open = On && Mode != NetworkMode::Closed;
    const auto pods = std::ranges::count(Log.Pods, true, &PodRecord::Connected);
    const auto accepted = std::ranges::count(Log.Pods, true, &PodRecord::Accepted);
    const wxString counts = pods == 1 ? _("%ld pod, %ld accepted") : _("%ld pods, %ld accepted");
    return {.Now = open ? PageState::Kind::On : PageState::Kind::Ready,
            .Words = open ? _("Network open") : _("Network closed"),
            .Detail =
                wxString::Format(counts, static_cast<long>(pods), static_cast<long>(accepted))};
}

/// The driver may take long: the window goes on meanwhile.
void RadioPage::Beside(const Call& call, const std::function<void()>& done) {
    if (!MayCall()) {
        return;
    }
    const auto failure = std::make_shared<std::string>();
    Failure.clear();
    Access.CallInBackground(
        [call, failure](const DriverExports& driver) {
            try {
                call(driver);
            } catch (const HostError& error) {
                *failure = error.what();
            }
        },
        [this, failure, done] {
            Failure = FromUtf8(*failure);
            if (failure->empty()) {
                done();
            }
            Fields->ShowNetwork(On, Mode);
            ShowPods();
            StateChanged();
        });
    EnableButtons();
}

void RadioPage::Configure(NetworkMode mode) {
    const auto setting = Fields->Entered();
    if (!setting) {
        Fields->ShowNetwork(On, Mode);
        return;
    }
    Beside(
        [setting = *setting, mode](const DriverExports& driver) {
            ConfigureRadio(driver, setting.Channel, setting.Level);
            driver.RadioSetModeO150(ToDriver(mode));
        },
        [this, setting = *setting, mode] { NoteNetwork(true, mode, setting); });
}

void RadioPage::ConfigureAsStored() {
    Beside(BecomePilot, [this] {
        Set.Channel = DriverTurn(Access)->GetCanalReelO150();
        NoteNetwork(true, NetworkMode::Pilot, Set);
        Fields->Channel->SetNumber(Set.Channel, 0);
    });
}

void RadioPage::SwitchOff() {
    Beside(
        [](const DriverExports& driver) {
            EndRadioConfiguration(driver);
            driver.RadioSetModeO150(RadioModeFerme);
        },
        [this] { NoteNetwork(false, NetworkMode::Closed, Set); });
}

/// A network that is off has no mode: to open it is to switch it on.
void RadioPage::ChooseMode(NetworkMode mode) {
    if (!On && mode != NetworkMode::Closed) {
        Configure(mode);
        return;
    }
    Beside([mode](const DriverExports& driver) { driver.RadioSetModeO150(ToDriver(mode)); },
           [this, mode] { NoteNetwork(On, mode, Set); });
}

void RadioPage::NoteNetwork(bool on, NetworkMode mode, RadioForm::Setting setting) {
    const bool wasOpen = On && Mode != NetworkMode::Closed;
    const bool isOpen = on && mode != NetworkMode::Closed;
    const bool isOther = setting.Channel != Set.Channel || setting.Level != Set.Level;
    On = on;
    Mode = mode;
    Set = setting;
    if (isOpen && (!wasOpen || isOther)) {
        NoteEvent(Log, {.At = Now(),
                        .What = RadioEvent::Kind::Opened,
                        .Channel = setting.Channel,
                        .Level = setting.Level});
    } else if (wasOpen && !isOpen) {
        NoteEvent(Log, {.At = Now(), .What = RadioEvent::Kind::Closed});
    }
}

void RadioPage::Accept(const std::vector<int>& pods) {
    if (pods.empty()) {
        return;
    }
    const auto refused = std::make_shared<std::vector<int>>();
    Beside(
        [pods, refused](const DriverExports& driver) {
            for (const int pod : pods) {
                try {
                    AcceptPod(driver, pod);
                } catch (const HostError&) {
                    refused->push_back(pod);
                }
            }
        },
        [this, refused] {
            for (const int pod : *refused) {
                NoteEvent(Log, {.At = Now(), .What = RadioEvent::Kind::NotAccepted, .Pod = pod});
            }
        });
}

void RadioPage::AcceptSelected() {
    if (IsSelectedConnected()) {
        Accept({Pods->SelectedPod()});
    }
}

void RadioPage::Ping() {
    if (!IsSelectedConnected()) {
        return;
    }
    const int pod = Pods->SelectedPod();
    const auto answered = std::make_shared<bool>();
    Beside(
        [pod, answered](const DriverExports& driver) {
            *answered = driver.RadioPingDeviceO150(static_cast<unsigned char>(pod));
        },
        [this, pod, answered] { NotePing(Log, pod, *answered, Now()); });
}

bool RadioPage::MayCall() const {
    return !Access.IsBusy() && !Access.IsMeasuring();
}

bool RadioPage::IsSelectedConnected() const {
    const PodRecord* pod = FindPod(Log, Pods->SelectedPod());
    return pod != nullptr && pod->Connected;
}

std::vector<int> RadioPage::NotAccepted() const {
    std::vector<int> ids;
    for (const PodRecord& pod : Log.Pods) {
        if (pod.Connected && !pod.Accepted) {
            ids.push_back(pod.Id);
        }
    }
    return ids;
}

void RadioPage::EnableButtons() {
    const bool can = MayCall();
    const bool selected = can && IsSelectedConnected();
    for (wxButton* button : {Fields->Apply, Fields->AsStored}) {
        button->Enable(can);
    }
    for (wxRadioButton* mode : Fields->Modes) {
        mode->Enable(can);
    }
    Fields->Off->Enable(can && On);
    Fields->Accept->Enable(selected && !FindPod(Log, Pods->SelectedPod())->Accepted);
    Fields->Ping->Enable(selected);
    Fields->AcceptAll->Enable(can && !NotAccepted().empty());
}

void RadioPage::ShowPods() {
    if (!Access.IsBusy()) {
        const DriverTurn turn(Access);
        NotePods(Log, ConnectedPods(turn.Driver), Now());
    }
    if (!On || Mode == NetworkMode::Closed) {
        ForgetLeft(Log);
    }
    Pods->Show(Log, Now());
    Events->Show(Log);
    const int selected = Pods->SelectedPod();
    Fields->ShowSelected(selected);
    if (Empty->IsShown() != Log.Pods.empty()) {
        Empty->Show(Log.Pods.empty());
        Empty->GetParent()->Layout();
    }
    EnableButtons();
}

void RadioPage::Tick() {
    if (Ticks++ % ticksPerLook == 0) {
        ShowPods();
    }
}

std::any RadioPage::GiveUp() {
    return Kept{std::move(Log), On, Mode, Fields->Entered().value_or(Set)};
}

/// The network ended with the driver: it is set up again as it was.
void RadioPage::TakeOver(std::any given) {
    auto kept = std::any_cast<Kept>(std::move(given));
    Log = std::move(kept.Log);
    Fields->SetEntered(kept.Set);
    if (kept.On) {
        Configure(kept.Mode);
    }
    ShowPods();
}

void RadioPage::Keep(wxConfigBase& config) const {
    config.Write("Channel", Fields->Channel->GetValue());
    config.Write("Level", Fields->Level->GetValue());
}

void RadioPage::Restore(const wxConfigBase& config) {
    for (const auto& [field, key] :
         {std::pair{Fields->Channel, "Channel"}, {Fields->Level, "Level"}}) {
        field->ChangeValue(config.Read(key, field->GetValue()));
    }
}

Page* MakeRadioPage(wxWindow* parent, DriverAccess& access) {
    return new RadioPage(parent, access); // NOLINT: its parent owns it
}

} // namespace orvane
