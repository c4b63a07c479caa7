#include "hosts/panel/generator_form.h"

#include "hosts/panel/panel_text.h"
#include "hosts/session/host_error.h"
#include "hosts/session/number_text.h"
#include "hosts/session/translation.h"

#include <wx/filedlg.h>
#include <wx/filename.h>
#include <wx/intl.h>

#include <cmath>
#include <fstream>

namespace orvane {

namespace {

/// As the driver calls them, in the order of SignalKind.
constexpr std::array<const char*, 3> shapeNames{"square", "sine", "triangle"};

} // namespace

GeneratorForm::GeneratorForm(wxWindow* parent) : Form(parent) {
    Outputs = new wxListView(this, wxID_ANY, wxDefaultPosition, FromDIP(wxSize(340, 100)),
                             wxLC_REPORT | wxLC_SINGLE_SEL);
    Outputs->SetName(_("Outputs"));
    Outputs->AppendColumn(_("Output"), wxLIST_FORMAT_LEFT, FromDIP(170));
    Outputs->AppendColumn(_("Plays"), wxLIST_FORMAT_LEFT, FromDIP(170));
    AddWide(Outputs);
    Heading = AddGroup(_("Signal"));
    BuildShapes();
    BuildNumbers();
    Start = new wxButton(this, wxID_ANY, _("St&art"));
    Stop = new wxButton(this, wxID_ANY, _("S&top at 0 V"));
    AddPair(Start, Stop);
    AddNote(_("Own codes: a text file of numbers from 0 to 4095, one a line, and the time of a "
              "point. Constant: one value, written at once."));
    Shapes[static_cast<size_t>(SignalKind::Sine)]->SetValue(true);
    EnableFields();
}

void GeneratorForm::BuildShapes() {
    const std::array<wxString, 5> labels{_("s&quare"), _("s&ine"), _("t&riangle"), _("own c&odes"),
                                         _("co&nstant")};
    auto* grid = new wxFlexGridSizer(3, FromDIP(4), FromDIP(12));
    for (size_t i = 0; i < labels.size(); ++i) {
        Shapes[i] = new wxRadioButton(this, wxID_ANY, labels[i], wxDefaultPosition, wxDefaultSize,
                                      i == 0 ? wxRB_GROUP : 0);
        Shapes[i]->Bind(wxEVT_RADIOBUTTON, [this](wxCommandEvent&) {
            EnableFields();
            Changed();
        });
        grid->Add(Shapes[i]);
    }
    AddSizer(grid);
}

void GeneratorForm::BuildNumbers() {
    Frequency = new NumberField(this, _("Frequency"), "Hz");
    AddField(_("&Frequency"), Frequency, new wxStaticText(this, wxID_ANY, "Hz"));
    PeakToPeak = new NumberField(this, _("Peak to peak"), "V");
    constexpr double most = 1e6;
    PeakToPeak->SetLimits(0.0, most);
    AddField(_("&Peak to peak"), PeakToPeak, new wxStaticText(this, wxID_ANY, "V"));
    Centre = new NumberField(this, _("Centre"), "V");
    AddField(_("&Centre"), Centre, new wxStaticText(this, wxID_ANY, "V"));
    File = new wxButton(this, wxID_ANY, "");
    File->SetName(_("File of codes"));
    AddRow(_("Cod&es"), File);
    FileMessage = new FieldMessage(this);
    AddWide(FileMessage);
    File->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { ChooseFile(); });
    Step = new NumberField(this, _("Time of a point"), "s");
    AddField(_("Ti&me of a point"), Step);
    Loop = new wxCheckBox(this, wxID_ANY, _("in a &loop"));
    AddWide(Loop);
    for (NumberField* field : {Frequency, PeakToPeak, Centre, Step}) {
        field->Entered = [this](double) { Changed(); };
    }
    Loop->Bind(wxEVT_CHECKBOX, [this](wxCommandEvent&) { Changed(); });
}

SignalKind GeneratorForm::Kind() const {
    for (size_t i = 0; i < Shapes.size(); ++i) {
        if (Shapes[i]->GetValue()) {
            return static_cast<SignalKind>(i);
        }
    }
    return SignalKind::Sine;
}

void GeneratorForm::EnableFields() {
    const SignalKind kind = Kind();
    const bool isCodes = kind == SignalKind::Codes;
    const bool isConstant = kind == SignalKind::Constant;
    Frequency->Enable(!isCodes && !isConstant);
    PeakToPeak->Enable(!isCodes && !isConstant);
    Centre->Enable(!isCodes);
    File->Enable(isCodes);
    Step->Enable(isCodes);
    Loop->Enable(!isConstant);
    for (NumberField* field : {Frequency, PeakToPeak, Centre, Step}) {
        field->Message->Clear();
    }
    FileMessage->Clear();
}

void GeneratorForm::Show(const wxString& output, const GeneratorFields& fields) {
    Heading->SetLabelText(wxString::Format(_("Signal of %s"), output));
    Shapes[static_cast<size_t>(fields.Kind)]->SetValue(true);
    Frequency->ShowText(fields.Frequency);
    PeakToPeak->ShowText(fields.PeakToPeak);
    Centre->ShowText(fields.Centre);
    Step->ShowText(fields.Step);
    Loop->SetValue(fields.Loop);
    CodesFile = fields.CodesFile;
    Codes = fields.Codes;
    File->SetLabelText(CodesFile.empty() ? _("Choose a file") + wxUniChar(0x2026)
                                         : wxFileName(FromUtf8(CodesFile)).GetFullName());
    EnableFields();
}

GeneratorFields GeneratorForm::Fields() const {
    return {.Kind = Kind(),
            .Frequency = Frequency->GetValue(),
            .PeakToPeak = PeakToPeak->GetValue(),
            .Centre = Centre->GetValue(),
            .Step = Step->GetValue(),
            .CodesFile = CodesFile,
            .Codes = Codes,
            .Loop = Loop->GetValue()};
}

void GeneratorForm::SetLimits(const OutputLimits& limits) {
    constexpr double leastHz = 1e-4;
    Frequency->SetLimits(leastHz, std::min(limits.HighestHz, 0.5 / limits.ShortestStepSec));
    constexpr double longestSec = 4.0;
    Step->SetLimits(limits.ShortestStepSec, longestSec);
}

std::optional<AskedSignal> GeneratorForm::Asked() {
    const SignalKind kind = Kind();
    if (kind == SignalKind::Codes) {
        return AskedCodes();
    }
    const auto centre = Centre->Number();
    if (kind == SignalKind::Constant) {
        return centre ? std::optional<AskedSignal>(*centre) : std::nullopt;
    }
    const auto frequency = Frequency->Number();
    const auto peakToPeak = PeakToPeak->Number();
    if (!centre || !frequency || !peakToPeak) {
        return std::nullopt;
    }
    return OutputSignal{.Shape = shapeNames.at(static_cast<size_t>(kind)),
                        .Amplitude = *peakToPeak,
                        .Offset = *centre,
                        .FrequencyHz = *frequency,
                        .Loop = Loop->GetValue()};
}

std::optional<AskedSignal> GeneratorForm::AskedCodes() {
    const auto step = Step->Number();
    if (Codes.empty()) {
        if (!FileMessage->IsShown()) {
            FileMessage->ShowWarning(_("Choose a file of codes."));
        }
        return std::nullopt;
    }
    return step ? std::optional<AskedSignal>(OutputCodes{Codes, *step, Loop->GetValue()})
                : std::nullopt;
}

void GeneratorForm::ShowCut(const OutputLimits& limits, double part) {
    if (part <= 0.0 || Kind() == SignalKind::Codes) {
        return;
    }
    constexpr double percent = 100.0;
    PeakToPeak->Message->ShowWarning(
        FromUtf8(Translated("Cut off outside %s V (%s).", {RangeText(limits.Least, limits.Most),
                                                           FixedText(part * percent, 0) + " %"})));
}

void GeneratorForm::ChooseFile() {
    wxFileDialog dialog(this, _("File of codes"), "", "", _("Text files") + "|*.txt;*.csv|*|*",
                        wxFD_OPEN | wxFD_FILE_MUST_EXIST);
    if (dialog.ShowModal() == wxID_OK) {
        TakeCodes(dialog.GetPath().utf8_string());
    }
}

void GeneratorForm::TakeCodes(const std::string& path) {
    CodesFile = path;
    Codes.clear();
    File->SetLabelText(wxFileName(FromUtf8(path)).GetFullName());
    FileMessage->Clear();
    try {
        std::ifstream file(path);
        Codes = ReadCodes(file);
    } catch (const HostError& error) {
        FileMessage->ShowError(FromUtf8(error.what()));
    }
    Changed();
}

} // namespace orvane
