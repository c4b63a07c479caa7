// The console itself: what it says of itself, its clock, its bus and its outputs.

#include "console/laboratory/scenario/scenario_tables.h"

namespace orvane::laboratory {

namespace {

void ReadModel(Reading& reading, const Value& value, const KeyText& key, ConsoleIdentity& console) {
    const auto* model = std::get_if<int64_t>(&value.Content);
    constexpr std::array<int64_t, 4> models{12304, 12306, 12336, 12368};
    if (model == nullptr || std::ranges::find(models, *model) == models.end()) {
        ReportMismatch(reading, value, key);
    } else {
        console.Model = static_cast<uint16_t>(*model);
    }
}

void ReadLines(Reading& reading, const Value& value, const KeyText& key, ConsoleIdentity& console) {
    const List* list = ListOf(reading, value, key, 0, console.Lines.size());
    for (size_t i = 0; list != nullptr && i < list->size(); ++i) {
        ReadInto(reading, (*list)[i], {key.Name, "text", {}}, console.Lines[i]);
    }
}

constexpr std::array consoleRows{
    Key<ConsoleIdentity>{{"model", "number: 12304, 12306, 12336 or 12368", "12304"}, ReadModel},
    Plain<&ConsoleIdentity::Serial>("serial"),
    Plain<&ConsoleIdentity::Type>("type"),
    Plain<&ConsoleIdentity::Establishment>("establishment"),
    Key<ConsoleIdentity>{{"lines", "list of at most 2 texts", "[]"}, ReadLines},
};
constexpr KeyTable<ConsoleIdentity> consoleKeys{"console", consoleRows};

constexpr std::array clockRows{
    Choice<&ClockSetting::Mode>("mode", R"(word: "real", "scaled" or "virtual")"),
    Plain<&ClockSetting::Factor>("factor", {.Min = leastClockFactor, .Max = greatestClockFactor}),
};
constexpr KeyTable<ClockSetting> clockKeys{"clock", clockRows};

constexpr std::array busRows{
    Plain<&Scenario::BusLatency>("latency", {.Min = 0.0, .Max = 1.0, .Unit = "s"}),
};
constexpr KeyTable<Scenario> busKeys{"bus", busRows};

void ReadOutputName(Reading& reading, const Value& value, const KeyText& key, Output& output) {
    std::string name = "Sortie a";
    ReadInto(reading, value, key, name);
    // By these beginnings the driver knows an analog output.
    if (!name.starts_with("Sortie a") && !name.starts_with("Analog o")) {
        ReportMismatch(reading, value, key);
    } else {
        output.Name = std::move(name);
    }
}

constexpr std::array outputRows{
    Key<Output>{{"name", R"(text that begins with "Sortie a" or "Analog o")",
                 R"("Sortie analogique" and its number)"},
                ReadOutputName},
    Plain<&Output::Limits>("range"),
    Plain<&Output::Period>("period", {.Min = shortestPeriod, .Max = 4.0, .Unit = "s"}),
};
constexpr KeyTable<Output> outputKeys{"output", outputRows};

} // namespace

void ReadConsole(Reading& reading, const Value& value, const KeyText& /*key*/, Scenario& scenario) {
    ReadTable(reading, value, consoleKeys, scenario.Console);
}

void DescribeConsole(Descriptions& all) {
    Describe(all, consoleKeys);
}

void ReadClock(Reading& reading, const Value& value, const KeyText& key, Scenario& scenario) {
    if (std::holds_alternative<std::string>(value.Content)) {
        ReadInto(reading, value, {key.Name, clockRows.front().Text.Takes, {}}, scenario.Time.Mode);
        return;
    }
    ReadTable(reading, value, clockKeys, scenario.Time);
    const auto* table = std::get_if<Table>(&value.Content);
    const Member* factor = table != nullptr ? Find(*table, "factor") : nullptr;
    if (factor != nullptr && scenario.Time.Mode != ClockMode::Scaled) {
        Report(reading, factor->At, R"("factor" belongs to a clock with mode = "scaled")");
    }
}

void DescribeClock(Descriptions& all) {
    Describe(all, clockKeys);
}

void ReadBus(Reading& reading, const Value& value, const KeyText& /*key*/, Scenario& scenario) {
    ReadTable(reading, value, busKeys, scenario);
}

void DescribeBus(Descriptions& all) {
    Describe(all, busKeys);
}

void ReadOutputs(Reading& reading, const Value& value, const KeyText& key, Scenario& scenario) {
    ReadTables(reading, value, key, outputKeys, scenario.Outputs);
    for (size_t i = 0; i < scenario.Outputs.size(); ++i) {
        std::string& name = scenario.Outputs[i].Name;
        name = name.empty() ? "Sortie analogique " + std::to_string(i + 1) : name;
    }
}

void DescribeOutputs(Descriptions& all) {
    Describe(all, outputKeys);
}

} // namespace orvane::laboratory
