#include "hosts/panel/signal_text.h"

#include "hosts/panel/panel_text.h"
#include "hosts/session/durations.h"
#include "hosts/session/number_text.h"

#include <wx/intl.h>
#include <wx/translation.h>

#include <algorithm>

namespace orvane {

namespace {

constexpr int frequencyDigits = 6;
constexpr double constantStepSec = 0.5; // two of them are the preview

/// A true minus, and as many decimals as a code of 12 bits tells apart.
wxString VoltsNumber(double value, int decimals) {
    const wxString text = FromUtf8(FixedText(std::abs(value), decimals));
    return (value < 0.0 ? wxString(wxUniChar(0x2212)) : wxString()) + text;
}

wxString Volts(double value) {
    constexpr int decimals = 3;
    return VoltsNumber(value, decimals) + " V";
}

wxString Hertz(double value) {
    return FromUtf8(NumberText(value, frequencyDigits)) + " Hz";
}

wxString LowestAndHighest(const std::vector<double>& values) {
    const auto [least, most] = std::ranges::minmax(values);
    constexpr double large = 10.0;
    const int decimals = std::max(-least, most) < large ? 3 : 2;
    return VoltsNumber(least, decimals) + ", " + VoltsNumber(most, decimals) + " V";
}

wxString Dash() {
    return wxUniChar(0x2013);
}

wxString ShapeText(const std::string& shape) {
    return shape == "square" ? _("square") : shape == "sine" ? _("sine") : _("triangle");
}

} // namespace

PlannedSignal PlanOf(const AskedSignal& asked, const OutputLimits& limits) {
    if (const auto* signal = std::get_if<OutputSignal>(&asked)) {
        return PlanSignal(*signal, limits);
    }
    if (const auto* codes = std::get_if<OutputCodes>(&asked)) {
        return PlanCodes(*codes, limits);
    }
    const double value = std::get<double>(asked);
    PlanSignal({.Shape = "square", .Amplitude = 0.0, .Offset = value, .FrequencyHz = 1.0}, limits);
    return {.Asked = {value}, .Played = {value}, .StepSec = constantStepSec, .CutPart = 0.0};
}

bool Repeats(const AskedSignal& asked) {
    if (const auto* signal = std::get_if<OutputSignal>(&asked)) {
        return signal->Loop;
    }
    const auto* codes = std::get_if<OutputCodes>(&asked);
    return codes == nullptr || codes->Loop;
}

wxString SentText(const std::optional<AskedSignal>& sent, bool plays) {
    const wxString sign = wxString(wxUniChar(plays ? 0x25b6 : 0x25cb)) + " ";
    if (!sent) {
        return sign + Volts(0.0);
    }
    if (const auto* value = std::get_if<double>(&*sent)) {
        return sign + Volts(*value);
    }
    wxString text = _("own codes");
    if (const auto* signal = std::get_if<OutputSignal>(&*sent)) {
        text = ShapeText(signal->Shape) + ", " + Hertz(signal->FrequencyHz);
    }
    return sign + text +
           (Repeats(*sent) ? wxString()
            : plays        ? ", " + _("once")
                           : ", " + _("over"));
}

std::vector<SignalRow> RowsOf(const AskedSignal& asked, const PlannedSignal& planned) {
    const wxString none = Dash();
    const SignalRow values{_("Lowest, highest"), LowestAndHighest(planned.Asked),
                           LowestAndHighest(planned.Played)};
    if (std::holds_alternative<double>(asked)) {
        return {values};
    }
    const auto* signal = std::get_if<OutputSignal>(&asked);
    const auto* codes = std::get_if<OutputCodes>(&asked);
    const wxString loop = Repeats(asked) ? _("yes") : _("no");
    return {{_("Frequency"), signal != nullptr ? Hertz(signal->FrequencyHz) : none,
             Hertz(1.0 / planned.PeriodSec())},
            {_("Points in a period"), none, wxString::Format("%zu", planned.Played.size())},
            {_("Time of a point"), codes != nullptr ? FromUtf8(DurationText(codes->StepSec)) : none,
             FromUtf8(DurationText(planned.StepSec))},
            values,
            {_("Loop"), loop, loop}};
}

} // namespace orvane
