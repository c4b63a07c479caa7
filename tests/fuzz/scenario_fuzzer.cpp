// A scenario file, and behind its first NUL a file of samples: what is read without an error is
// what the laboratory may rely on.

#include "console/laboratory/scenario/named_files.h"
#include "console/laboratory/scenario/scenario_reader.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <set>

using namespace orvane::laboratory;

namespace {

void Expect(bool held) {
    if (!held) {
        std::abort();
    }
}

void CheckChannel(const Channel& channel) {
    Expect(!channel.Functions.empty() && channel.Functions.size() <= 255);
    Expect(channel.DefaultPeriod >= channel.ShortestPeriod && channel.ShortestPeriod > 0.0);
    for (const Function& function : channel.Functions) {
        Expect(!function.Calibres.empty() && function.Added.DriftTime > 0.0);
        for (const Calibre& calibre : function.Calibres) {
            Expect(static_cast<float>(calibre.Limits.Min) < static_cast<float>(calibre.Limits.Max));
            Expect(calibre.Name.size() <= 255);
        }
        for (const Term& term : function.Signal) {
            const auto* line = std::get_if<PwlTerm>(&term);
            Expect(line == nullptr || (line->Times.size() == line->Values.size() &&
                                       std::ranges::is_sorted(line->Times)));
        }
    }
}

void CheckScenario(const Scenario& scenario) {
    std::set<uint8_t> taken;
    for (const Adapter& adapter : scenario.Adapters) {
        Expect(adapter.Connector >= 1 && adapter.Connector <= 4);
        Expect(!adapter.Plugged || taken.insert(adapter.Connector).second);
        Expect(adapter.Adjusted.Initial >= adapter.Adjusted.Limits.Min &&
               adapter.Adjusted.Initial <= adapter.Adjusted.Limits.Max);
        std::ranges::for_each(adapter.Channels, CheckChannel);
    }
    Expect(std::ranges::is_sorted(scenario.Timeline, {}, &TimelineEntry::Time));
    for (const TimelineEntry& entry : scenario.Timeline) {
        const auto* plug = std::get_if<Plug>(&entry.Event);
        Expect(plug == nullptr || plug->Adapter < scenario.Adapters.size());
    }
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int* /*argc*/, char*** /*argv*/) {
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    const std::string_view toml = input.substr(0, input.find('\0'));
    const ScenarioReading reading = ReadScenario(toml, "x", "/nonexistent");
    for (const std::string& error : reading.Errors) {
        Expect(error.starts_with("x:") && error.find('\n') == std::string::npos);
    }
    if (reading.Errors.empty()) {
        CheckScenario(reading.Value);
    }
    if (toml.size() < size) {
        const SampleColumn column =
            ParseSamples(input.substr(toml.size() + 1), static_cast<uint32_t>(1 + toml.size() % 3));
        Expect(column.Samples.empty() != column.Wrong.empty());
        Expect(std::ranges::all_of(column.Samples, [](double x) { return std::isfinite(x); }));
    }
    return 0;
}
