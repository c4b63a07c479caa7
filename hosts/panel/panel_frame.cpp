#include "hosts/panel/panel_frame.h"

#include "hosts/panel/catalogue.h"
#include "hosts/panel/panel_text.h"
#include "hosts/panel/saving.h"
#include "hosts/session/channel_setup.h"
#include "hosts/session/host_error.h"
#include "hosts/session/number_text.h"
#include "hosts/session/translation.h"

#include <wx/app.h>
#include <wx/intl.h>
#include <wx/menu.h>
#include <wx/sizer.h>
#include <wx/statbox.h>

#include <chrono>

namespace orvane {

namespace {

constexpr int tickMs = 20;
constexpr unsigned ticksPerCycle = 5; // each cycle measures once and draws the run once
constexpr unsigned measureTick = 0;
constexpr unsigned curveTick = 2;
constexpr auto stepBudget = std::chrono::milliseconds(5);
constexpr size_t stepSamples = 256; // between two clock reads

enum Command { SaveCsvCommand = wxID_HIGHEST + 1, SavePictureCommand, French, English };

std::vector<ChannelInfo> Select(const std::vector<ChannelInfo>& channels,
                                const std::vector<int>& indexes) {
    std::vector<ChannelInfo> selected;
    selected.reserve(indexes.size());
    for (const int index : indexes) {
        selected.push_back(channels[static_cast<size_t>(index)]);
    }
    return selected;
}

} // namespace

PanelFrame::PanelFrame(std::unique_ptr<DriverMessages> messages,
                       std::unique_ptr<DriverSession> session, DriverOptions options)
    : wxFrame(nullptr, wxID_ANY, "Orvane"), FromDriver(std::move(messages)),
      Session(std::move(session)), Options(std::move(options)) {
    SetTitle(FromUtf8(TextOf(Driver().GetInterfaceName())));
    BuildMenus();
    BuildContent();
    ConnectFields();
    Enumerate();
    Table->SetFocus();
    Timer.Bind(wxEVT_TIMER, [this](wxTimerEvent&) { OnTick(); });
    Timer.Start(tickMs);
}

PanelFrame::~PanelFrame() {
    Timer.Stop();
    FromDriver->Added = nullptr;
    DestroyChildren(); // While the driver exists: a field that loses the focus may call it.
}

void PanelFrame::BuildMenus() {
    auto* file = new wxMenu;
    file->Append(SaveCsvCommand, _("Save &samples...\tCtrl+S"));
    file->Append(SavePictureCommand, _("Save &picture...\tCtrl+P"));
    file->AppendSeparator();
    file->Append(wxID_EXIT, _("&Quit\tCtrl+Q"));
    auto* language = new wxMenu;
    language->AppendRadioItem(English, "&English");
    language->AppendRadioItem(French, wxString::FromUTF8("&Français"));
    language->Check(Options.Language == "fr" ? French : English, true);
    auto* bar = new wxMenuBar;
    bar->Append(file, _("&File"));
    bar->Append(language, _("&Language"));
    SetMenuBar(bar);
    const auto on = [this](int command, auto action) {
        Bind(
            wxEVT_MENU, [action](wxCommandEvent&) { action(); }, command);
    };
    on(SaveCsvCommand, [this] {
        if (CanSave()) {
            SaveSamplesAs(this, *Run);
        }
    });
    on(SavePictureCommand, [this] {
        if (CanSave()) {
            SavePictureAs(this, *Run, RunView->Zoom());
        }
    });
    on(wxID_EXIT, [this] { Close(); });
    on(French, [this] { ChangeLanguage("fr"); });
    on(English, [this] { ChangeLanguage("en"); });
    Bind(
        wxEVT_UPDATE_UI, [this](wxUpdateUIEvent& event) { event.Enable(CanSave()); },
        SaveCsvCommand, SavePictureCommand);
}

void PanelFrame::BuildContent() {
    auto* page = new wxPanel(this);
    const int gap = FromDIP(10);
    const auto box = [&](const wxString& title, wxWindow* content, int proportion,
                         wxSizer* column) {
        auto* sizer = new wxStaticBoxSizer(wxVERTICAL, page, title);
        content->Reparent(sizer->GetStaticBox());
        sizer->Add(content, wxSizerFlags(1).Expand().Border(wxALL, FromDIP(6)));
        column->Add(sizer, wxSizerFlags(proportion).Expand().Border(wxBOTTOM, gap));
    };
    Table = new ChannelTable(page);
    Settings = new ChannelSettings(page);
    Form = new AcquisitionForm(page);
    auto* left = new wxBoxSizer(wxVERTICAL);
    left->Add(Table, wxSizerFlags(1).Expand().Border(wxBOTTOM, gap));
    box(_("Selected channel"), Settings, 0, left);
    box(_("Acquisition"), Form, 0, left);

    StripChartView = new PlotView(page, StripChartSource(), FromDIP(wxSize(420, 160)));
    RunView = new PlotView(page, RunSource(), FromDIP(wxSize(420, 220)));
    Readout = new wxStaticText(page, wxID_ANY, "", wxDefaultPosition, wxDefaultSize,
                               wxST_NO_AUTORESIZE | wxST_ELLIPSIZE_END);
    auto* right = new wxBoxSizer(wxVERTICAL);
    right->Add(StripChartView->Frame(), wxSizerFlags(2).Expand().Border(wxBOTTOM, gap));
    right->Add(RunView->Frame(), wxSizerFlags(3).Expand().Border(wxBOTTOM, FromDIP(6)));
    right->Add(Readout, wxSizerFlags().Expand().Border(wxBOTTOM, FromDIP(6)));

    auto* columns = new wxBoxSizer(wxHORIZONTAL);
    columns->Add(left, wxSizerFlags().Expand().Border(wxLEFT | wxTOP, gap));
    columns->Add(right, wxSizerFlags(1).Expand().Border(wxLEFT | wxTOP | wxRIGHT, gap));
    page->SetSizer(columns);
    BuildDriverBar();
    auto* whole = new wxBoxSizer(wxVERTICAL);
    whole->Add(DriverBar, wxSizerFlags().Expand());
    whole->Add(page, wxSizerFlags(1).Expand());
    SetSizer(whole);
    ShowMessages(); // What the driver said at its start.
    Fit();
    SetMinSize(GetSize());
    SetSize(FromDIP(wxSize(1120, 760)));
}

void PanelFrame::BuildDriverBar() {
    DriverBar = new wxInfoBar(this);
    DriverBar->AddButton(wxID_CLOSE, _("Close")); // The one of the bar may not be translated.
    DriverBar->Bind(
        wxEVT_BUTTON,
        [this](wxCommandEvent& event) {
            FromDriver->Texts.clear();
            event.Skip(); // The bar closes itself.
        },
        wxID_CLOSE);
    FromDriver->Added = [this] { ShowMessages(); };
}

void PanelFrame::ShowMessages() {
    wxString all;
    for (const wxString& text : FromDriver->Texts) {
        all += (all.empty() ? "" : "\n") + text;
    }
    if (!all.empty()) {
        DriverBar->ShowMessage(all, wxICON_WARNING);
    }
}

void PanelFrame::ConnectFields() {
    Table->Bind(wxEVT_LIST_ITEM_SELECTED,
                [this](wxListEvent& event) { ShowSettings(static_cast<int>(event.GetIndex())); });
    for (const auto& type : {wxEVT_LIST_ITEM_CHECKED, wxEVT_LIST_ITEM_UNCHECKED}) {
        Table->Bind(type, [this](wxListEvent&) { StripChartView->Invalidate(); });
    }
    Settings->CalibreChosen = [this](int channel, int calibre) {
        Driver().MetCalibrePour(channel, calibre);
        ShowSettings(channel);
    };
    Settings->ScaleChosen = [this](int channel, const ChannelScale& scale) {
        ChannelSetup setup;
        setup.Ampli = scale.Ampli;
        setup.Offset = scale.Offset;
        SetUpChannel(Driver(), channel, setup);
        Scales[static_cast<size_t>(channel)] = scale;
        Describe(channel);
        StripChartView->Invalidate();
    };
    Form->StartPressed = [this] { StartRun(); };
    Form->StopPressed = [this] { StopRun(); };
}

PlotSource PanelFrame::StripChartSource() {
    return {
        .Picture = [this](auto, auto) { return PictureOf(Chart, Channels, Table->Checked()); },
        .Whole =
            [] {
                return AxisRange{-StripChart::LengthSec, 0.0};
            },
        .At = [this](double time) { return PointAt(Chart, Table->Checked(), time); },
        .CursorMoved =
            [this](const auto& point) { ShowReadout(Select(Channels, Table->Checked()), point); },
        .EmptyText = _("No channel is checked.")};
}

PlotSource PanelFrame::RunSource() {
    return {.Picture =
                [this](auto zoom, size_t steps) {
                    return Run ? PictureOf(*Run, zoom, steps) : orvane::Chart{};
                },
            .Whole = [this] { return Run ? WholeTime(*Run) : AxisRange{}; },
            .At = [this](double time) { return Run ? PointAt(*Run, time) : std::nullopt; },
            .CursorMoved =
                [this](const auto& point) {
                    ShowReadout(Run ? Run->Channels : std::vector<ChannelInfo>{}, point);
                },
            .CanZoom = true,
            .EmptyText = _("No acquisition yet.")};
}

void PanelFrame::OnTick() {
    const unsigned tick = Ticks++ % ticksPerCycle;
    if (RunActive) {
        FollowRun();
    } else if (tick == measureTick && !Driver().VerifCanaux()) {
        Enumerate();
    }
    const bool busy = Run && IsBusy(Run->Followed);
    // The two pictures are drawn in different ticks, because each takes part of a frame.
    if (tick == measureTick && !busy) {
        Measure();
    } else if (tick == curveTick && RunActive) {
        RunView->Invalidate();
        ReportRun();
    }
}

void PanelFrame::Measure() {
    std::vector<double> values;
    for (const ChannelInfo& channel : Channels) {
        values.push_back(Driver().QuelValeurPour(channel.Index));
    }
    constexpr double msPerSecond = 1e3;
    Append(Chart, static_cast<double>(Clock.Time()) / msPerSecond, values);
    Table->ShowValues(values);
    StripChartView->Invalidate();
}

void PanelFrame::FollowRun() {
    const auto end = std::chrono::steady_clock::now() + stepBudget;
    while (Step(*Run, stepSamples) > 0 && std::chrono::steady_clock::now() < end) {
    }
    if (Run->Followed.Now == FollowedRun::Phase::Ended) {
        RunActive = false;
        Form->SetRunActive(false);
        Settings->Enable(!Channels.empty());
        RunView->Invalidate();
        ReportRun();
        if (Run->Followed.Recording.End == RunEnd::AdaptersChanged) {
            Enumerate();
        }
    }
}

void PanelFrame::ReportRun() {
    const AcquisitionRecording& recording = Run->Followed.Recording;
    const size_t points = recording.Live.front().size();
    Form->ShowProgress(points, Run->Followed.Points);
    const char* sentence = wxTRANSLATE("%s of %s points");
    if (!RunActive) {
        sentence = recording.End == RunEnd::Full ? wxTRANSLATE("Complete: %s of %s points")
                   : recording.End == RunEnd::Interrupted
                       ? wxTRANSLATE("Stopped: %s of %s points")
                       : wxTRANSLATE("The adapters of the console changed: %s of %s points");
    }
    Form->ShowStatus(FromUtf8(
        Translated(sentence, {std::to_string(points), std::to_string(Run->Followed.Points)})));
}

void PanelFrame::Enumerate() {
    Settings->ShowNone();
    Channels = EnumerateChannels(Driver());
    Scales.assign(Channels.size(), {});
    Chart = {};
    Table->Fill(Channels);
    Form->ShowChannels(Channels);
    StripChartView->Invalidate();
}

void PanelFrame::Describe(int channel) {
    ChannelInfo& info = Channels[static_cast<size_t>(channel)];
    info = DescribeChannel(Driver(), channel);
    Table->UpdateRow(info);
}

void PanelFrame::ShowSettings(int channel) {
    if (!RunActive) { // No setting changes during a run, and the driver may be busy.
        Describe(channel);
    }
    Settings->ShowChannel(Channels[static_cast<size_t>(channel)],
                          Scales[static_cast<size_t>(channel)]);
    Settings->Enable(!RunActive);
    StripChartView->Invalidate();
}

void PanelFrame::StartRun() {
    // Before all else: it applies a number that is being edited to this run, and the driver must
    // not be called once the run is busy.
    Settings->Disable();
    try {
        AcquisitionRequest request = Form->Request();
        request.Channels = Table->Checked();
        if (request.Channels.empty()) {
            throw WrongArgument(Translated("Check a channel first."));
        }
        request = CompleteRequest(request, Driver(), Channels);
        Run.reset(); // Releases its samples before new ones are allocated.
        Run.emplace(Driver(), request, Select(Channels, request.Channels));
    } catch (const HostError& error) {
        Settings->Enable(!Channels.empty());
        Form->ShowStatus(FromUtf8(error.what()));
        RunView->Invalidate();
        return;
    }
    RunActive = true;
    Form->SetRunActive(true);
    RunView->ResetZoom();
    ReportRun();
}

bool PanelFrame::CanSave() const {
    return Run && !RunActive && !Run->Followed.Recording.Live.front().empty();
}

void PanelFrame::StopRun() {
    InterruptRun(Run->Followed);
    FollowRun();
}

void PanelFrame::ChangeLanguage(const std::string& code) {
    if (code == Options.Language) {
        return;
    }
    // The console is opened again, because the driver takes its language at the start.
    Timer.Stop();
    Hide();
    // While the driver exists: a field that loses the focus may call it.
    Table->GetParent()->Destroy();
    Run.reset();
    Session.reset();
    Options.Language = code;
    UseLanguage(code);
    ShowPanel(Options);
    Destroy();
}

void PanelFrame::ShowReadout(const std::vector<ChannelInfo>& channels,
                             const std::optional<CursorPoint>& point) {
    wxString text;
    if (point) {
        text = "t = " + FromUtf8(NumberText(point->TimeSec)) + " s";
        for (size_t i = 0; i < channels.size(); ++i) {
            text += "     " + FromUtf8(channels[i].Name + " " + NumberText(point->Values[i]) + " " +
                                       channels[i].Unit);
        }
    }
    Readout->SetLabelText(text);
}

void ShowPanel(const DriverOptions& options) {
    auto messages = std::make_unique<DriverMessages>();
    std::unique_ptr<DriverSession> session;
    try {
        session = OpenDriver(options);
    } catch (const HostError& error) {
        std::string sentence = error.what();
        for (const wxString& text : messages->Texts) { // There is no window to show them.
            sentence += " (" + text.utf8_string() + ")";
        }
        throw HostError(sentence, error.Kind);
    }
    auto* frame = new PanelFrame(std::move(messages), std::move(session), options); // NOLINT
    wxTheApp->SetTopWindow(frame);
    frame->Show();
}

} // namespace orvane
