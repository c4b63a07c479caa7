#include "hosts/panel/scenario_list.h"

#include "console/laboratory/scenario/scenario_reader.h"
#include "hosts/panel/panel_text.h"
#include "hosts/session/number_text.h"

#include <wx/intl.h>
#include <wx/utils.h>

#include <algorithm>

namespace orvane {

namespace {

using laboratory::AdapterKind;
using laboratory::ClockMode;
using laboratory::Scenario;

constexpr uint16_t modelWithRadio = 12336;
constexpr uint16_t modelWithGenerator = 12368;

wxString ModelName(uint16_t model) {
    return model == modelWithRadio       ? "Orvane150"
           : model == modelWithGenerator ? "Orvane3600"
                                         : "Orvane310";
}

/// The pages that its console has.
wxString PagesOf(const Scenario& scenario) {
    const auto has = [&](AdapterKind kind) {
        return std::ranges::find(scenario.Adapters, kind, &laboratory::Adapter::Kind) !=
               scenario.Adapters.end();
    };
    wxString pages;
    for (const auto& [offered, title] : {std::pair{has(AdapterKind::Measuring), _("Acquisition")},
                                         {!scenario.Outputs.empty(), _("Generator")},
                                         {has(AdapterKind::Gates), _("Gates")},
                                         {has(AdapterKind::Turbine), _("Spirometer")},
                                         {scenario.Console.Model == modelWithRadio, _("Radio")}}) {
        if (offered) {
            pages += (pages.empty() ? "" : ", ") + title;
        }
    }
    return pages;
}

/// The first line says in a comment what a scenario is about.
wxString WhatOf(std::string_view toml) {
    const std::string_view line = toml.substr(0, toml.find('\n'));
    const size_t begin = line.find_first_not_of("# ");
    const wxString english =
        begin == std::string_view::npos ? wxString() : FromUtf8(std::string(line.substr(begin)));
    return wxGetTranslation(english);
}

} // namespace

std::vector<ScenarioRow> ShippedScenarioRows() {
    std::vector<ScenarioRow> rows;
    for (const auto& [name, toml] : laboratory::ShippedScenarios()) {
        const Scenario scenario = laboratory::LoadScenario(std::string(name)).Value;
        rows.push_back({std::string(name), ModelName(scenario.Console.Model), WhatOf(toml),
                        PagesOf(scenario)});
    }
    return rows;
}

wxString ScenarioErrors(const std::string& nameOrPath) {
    constexpr size_t most = 5;
    const std::vector<std::string> errors = laboratory::LoadScenario(nameOrPath).Errors;
    wxString lines;
    for (size_t i = 0; i < std::min(errors.size(), most); ++i) {
        lines += (i == 0 ? "" : "\n") + FromUtf8(errors[i]);
    }
    return errors.size() > most ? lines + "\n..." : lines;
}

wxString ClockOf(const std::string& scenario) {
    const laboratory::ClockSetting setting = laboratory::LoadScenario(scenario).Value.Time;
    wxString factor = FromUtf8(NumberText(setting.Factor));
    bool isVirtual = setting.Mode == ClockMode::Virtual;
    bool isScaled = setting.Mode == ClockMode::Scaled;
    if (wxString clock; wxGetEnv("ORVANE_CLOCK", &clock)) {
        isVirtual = clock == "virtual";
        isScaled = clock.StartsWith("scaled");
        factor = clock.Contains(":") ? clock.AfterFirst(':') : factor;
    }
    return isVirtual  ? _("virtual time")
           : isScaled ? wxString(wxUniChar(0xd7)) + factor
                      : _("real time");
}

} // namespace orvane
