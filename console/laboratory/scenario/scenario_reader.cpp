#include "console/laboratory/scenario/scenario_reader.h"

#include "console/laboratory/scenario/named_files.h"
#include "console/laboratory/scenario/scenario_tables.h"

namespace orvane::laboratory {

namespace {

void ReadVersion(Reading& reading, const Value& value, const KeyText& key, Scenario& /*none*/) {
    if (const auto* version = std::get_if<int64_t>(&value.Content);
        version == nullptr || *version != 1) {
        ReportMismatch(reading, value, key);
    }
}

/// In the order of reading: what is named stands before what names it.
constexpr std::array topRows{
    Key<Scenario>{{"scenario", "version of the format: 1", "1"}, ReadVersion},
    Plain<&Scenario::Seed>("seed", {.Min = 0}),
    Key<Scenario>{{"console", "table", "none"}, ReadConsole, nullptr, DescribeConsole},
    Key<Scenario>{
        {"clock", R"(table, or its mode alone)", R"("real")"}, ReadClock, nullptr, DescribeClock},
    Key<Scenario>{{"bus", "table", "none"}, ReadBus, nullptr, DescribeBus},
    Key<Scenario>{{"output", "list of tables", "[]"}, ReadOutputs, nullptr, DescribeOutputs},
    Key<Scenario>{{"adapter", "table of tables", "none"}, ReadAdapters, nullptr, DescribeAdapters},
    Key<Scenario>{{"body", "table", "none"}, ReadBodies, nullptr, DescribeBodies},
    Key<Scenario>{{"breath", "table", "none"}, ReadBreath, nullptr, DescribeBreath},
    Key<Scenario>{{"radio", "table", "none"}, ReadRadio, nullptr, DescribeRadio},
    Key<Scenario>{{"timeline", "table", "none"}, ReadTimeline, nullptr, DescribeTimeline},
};
constexpr KeyTable<Scenario> topKeys{"scenario", topRows};

/// The problems in the order of the file, as compilers tell them.
std::vector<std::string> Errors(std::vector<Problem> problems, const std::string& file) {
    std::ranges::stable_sort(problems, {}, &Problem::At);
    std::vector<std::string> errors;
    errors.reserve(problems.size());
    for (const Problem& problem : problems) {
        errors.push_back(file + ":" + std::to_string(problem.At.Line) + ":" +
                         std::to_string(problem.At.Column) + ": " + problem.Text);
    }
    return errors;
}

} // namespace

ScenarioReading ReadScenario(std::string_view toml, const std::string& file,
                             const std::filesystem::path& folder) {
    const auto parsed = ParseToml(toml);
    if (const auto* error = std::get_if<SyntaxError>(&parsed); error != nullptr) {
        return {{}, Errors({{error->At, error->Text}}, file)};
    }
    Reading reading;
    reading.Folder = folder;
    ReadTable(reading, std::get<Value>(parsed), topKeys, reading.Result);
    return {std::move(reading.Result), Errors(std::move(reading.Problems), file)};
}

ScenarioReading LoadScenario(const std::string& nameOrPath) {
    constexpr size_t most = 1U << 28U;
    std::string names;
    for (const ShippedScenario& shipped : ShippedScenarios()) {
        if (shipped.Name == nameOrPath) {
            return ReadScenario(shipped.Toml, nameOrPath, {});
        }
        names += (names.empty() ? "" : ", ") + std::string(shipped.Name);
    }
    std::string reason;
    const auto toml = ReadWholeFile(nameOrPath, most, reason);
    if (!toml) {
        const std::string text = "this scenario cannot be read: " + reason +
                                 "; give a file that can, or one of " + names;
        return {{}, Errors({{{}, text}}, nameOrPath)};
    }
    return ReadScenario(*toml, nameOrPath, std::filesystem::path(nameOrPath).parent_path());
}

std::vector<KeyDescription> ScenarioKeys() {
    Descriptions all;
    Describe(all, topKeys);
    return all;
}

} // namespace orvane::laboratory
