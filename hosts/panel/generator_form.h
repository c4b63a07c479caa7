#pragma once

#include "hosts/panel/form.h"
#include "hosts/session/output_preview.h"

#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/listctrl.h>
#include <wx/radiobut.h>

#include <array>
#include <variant>

namespace orvane {

enum class SignalKind { Square, Sine, Triangle, Codes, Constant };

/// What the user writes for an output, as texts.
struct GeneratorFields {
    SignalKind Kind = SignalKind::Sine;
    wxString Frequency = "50";
    wxString PeakToPeak = "5";
    wxString Centre = "0";
    wxString Step = "1 us";
    std::string CodesFile = {};
    std::vector<int32_t> Codes = {};
    bool Loop = true;
};

/// What an output is asked for: a value, a signal or codes.
using AskedSignal = std::variant<double, OutputSignal, OutputCodes>;

/// The left side of the generator's page: the outputs, and the signal of one of them.
class GeneratorForm : public Form {
public:
    explicit GeneratorForm(wxWindow* parent);

    /// Replaces the fields.
    void Show(const wxString& output, const GeneratorFields& fields);
    GeneratorFields Fields() const;
    SignalKind Kind() const;
    void SetLimits(const OutputLimits& limits);
    /// What the fields ask for; nothing if one is wrong, which says so.
    std::optional<AskedSignal> Asked();
    /// Tells beside the field how much of a signal is cut off.
    void ShowCut(const OutputLimits& limits, double part);
    /// Reads the file of codes.
    void TakeCodes(const std::string& path);

    wxListView* Outputs;
    std::array<wxRadioButton*, 5> Shapes{}; ///< In the order of SignalKind.
    NumberField* Frequency;
    NumberField* PeakToPeak;
    NumberField* Centre;
    NumberField* Step;
    wxButton* File;
    FieldMessage* FileMessage;
    wxCheckBox* Loop;
    wxButton* Start;
    wxButton* Stop;
    std::function<void()> Changed = [] {};

private:
    void BuildShapes();
    void BuildNumbers();
    void EnableFields();
    void ChooseFile();
    std::optional<AskedSignal> AskedCodes();

    wxStaticText* Heading;
    std::string CodesFile;
    std::vector<int32_t> Codes;
};

} // namespace orvane
