// What scenario files say, and what is said about those that are wrong.

#include "console/laboratory/scenario/scenario_reader.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <limits>
#include <sstream>

namespace fs = std::filesystem;
using namespace orvane::laboratory;
using testing::ElementsAre;
using testing::EndsWith;
using testing::IsEmpty;
using testing::StartsWith;

namespace {

/// A folder of scenarios with the files that they name.
class ScenarioFiles : public testing::Test {
protected:
    ScenarioFiles() {
        fs::create_directory(Folder);
    }

    void Write(const char* name, const std::string& bytes) const {
        std::ofstream(Folder / name, std::ios::binary) << bytes;
    }

    [[nodiscard]] ScenarioReading Read(const std::string& toml) const {
        return ReadScenario(toml, "x", Folder);
    }

    /// The reading of a channel that measures volts, with more keys.
    [[nodiscard]] ScenarioReading ReadChannel(const std::string& keys) const {
        return Read("[adapter.a]\nreference = 1\n[[adapter.a.channel]]\n" + keys);
    }

    /// The reading of a channel with this signal.
    [[nodiscard]] ScenarioReading ReadSignal(const std::string& terms) const {
        return ReadChannel("calibres = [[0, 1]]\nsignal = [" + terms + "]");
    }

    fs::path Folder = fs::path(std::getenv("HOME")) / "scenarios";
};

std::string Content(const fs::path& file) {
    std::ostringstream text;
    text << std::ifstream(file, std::ios::binary).rdbuf();
    return text.str();
}

TEST_F(ScenarioFiles, SayAWholeBench) {
    Write("voltmeter.png", "\x89PNG\r\n\x1A\nrest");
    const ScenarioReading reading = Read(Content(BENCH));
    ASSERT_THAT(reading.Errors, IsEmpty());
    const Scenario& bench = reading.Value;
    EXPECT_EQ(bench.Seed, 2024U);
    EXPECT_EQ(bench.Console.Model, 12368);
    EXPECT_EQ(bench.Console.Lines[1], "…");
    EXPECT_EQ(bench.Time.Mode, ClockMode::Real);
    EXPECT_EQ(bench.Outputs.at(0).Period, 1e-6);

    ASSERT_EQ(bench.Adapters.size(), 4U);
    const Adapter& voltmeter = bench.Adapters[0];
    EXPECT_EQ(voltmeter.Name, "voltmeter");
    EXPECT_EQ(voltmeter.Reference, 482034U);
    const Function& volts = voltmeter.Channels.at(0).Functions.at(0);
    EXPECT_EQ(volts.Name, "Voltmètre");
    EXPECT_EQ(volts.Unit, "V");
    EXPECT_EQ(volts.Image.Format, "png");
    EXPECT_EQ(volts.Image.Bytes.size(), 12U);
    EXPECT_EQ(volts.Calibres.at(1).Name, "-24 … 24 V");
    EXPECT_EQ(volts.Calibres[1].Limits.Max, 24.0);
    EXPECT_EQ(std::get<OutputTerm>(volts.Signal.at(0)).LowPass, 2e-3);
    EXPECT_EQ(std::get<SinTerm>(volts.Signal.at(1)).Frequency, 50.0);
    EXPECT_EQ(volts.Added.DriftTime, 60.0);
    EXPECT_EQ(volts.Added.Bits, 12U);

    const Adapter& dynamometer = bench.Adapters[1];
    EXPECT_EQ(dynamometer.Channels.at(0).Name, "dynamometer");
    EXPECT_EQ(dynamometer.Channels[0].Functions.at(0).Zero, Align::Run);
    EXPECT_EQ(std::get<DampedTerm>(dynamometer.Channels[0].Functions[0].Signal.at(0)).Time, 1.5);
    EXPECT_EQ(dynamometer.Adjusted.Limits.Min, -1.0);
    EXPECT_TRUE(dynamometer.Adjusted.Adds);
    EXPECT_THAT(bench.Adapters[2].Forks, ElementsAre(ElementsAre(0.3, 0.32)));
    EXPECT_EQ(bench.Adapters[2].Door, 0.05);
    EXPECT_EQ(bench.Adapters[3].Channels.at(0).Functions.at(0).Unit, "L/s");

    EXPECT_EQ(bench.Falling.TerminalSpeed, 12.0);
    EXPECT_EQ(bench.Breathing.Forced.value().Fev1, 3.9);
    EXPECT_FALSE(bench.Network.Pods.at(1).Pings);
    ASSERT_EQ(bench.Timeline.size(), 3U);
    EXPECT_EQ(std::get<Plug>(bench.Timeline[1].Event).Adapter, 0U);
    EXPECT_TRUE(std::get<Plug>(bench.Timeline[1].Event).Plugged);
    EXPECT_EQ(std::get<Fault>(bench.Timeline[2].Event).Refuse, 3U);
}

TEST_F(ScenarioFiles, LeaveTheRestToTheDefaults) {
    const Scenario some =
        ReadChannel("name = \"U\"\nshortest_period = 0.5\nlabel = -4\n"
                    "align = \"run\"\nfunction = [{ calibres = [[0, 1]] },"
                    "{ name = \"f\", calibres = [{ name = \"c\", range = [0, 2] }]"
                    ", signal = [{ pulse = [0, 1] }, { exp = [0, 1, 0, 2] }]}]\n"
                    "[adapter.b]\nreference = 2\n[adapter.c]\nkind = \"gates\"\n"
                    "[adapter.c.]\n")
            .Value;
    EXPECT_TRUE(some.Adapters.empty()); // The last line is no TOML.
    const ScenarioReading reading = ReadChannel(
        "name = \"U\"\nshortest_period = 0.5\nlabel = -4\nalign = \"run\"\n"
        "function = [{ calibres = [[0, 1]] }, { name = \"f\", calibres = [{ name = \"c\", "
        "range = [0, 2] }], signal = [{ pulse = [0, 1] }, { exp = [0, 1, 0, 2] }]}]\n"
        "[adapter.b]\nconnector = 1\nreference = 2\nplugged = false\n[adapter.c]\nkind = "
        "\"gates\"\n"
        "[timeline]\n\"10\" = [{ unplug = \"a\" }, { plug = \"b\" }]\n\"9\" = [{ plug = \"a\" "
        "}]\n");
    ASSERT_THAT(reading.Errors, IsEmpty());
    const Channel& channel = reading.Value.Adapters.at(0).Channels.at(0);
    EXPECT_EQ(channel.DefaultPeriod, 0.5);
    EXPECT_EQ(channel.Label, -4);
    ASSERT_EQ(channel.Functions.size(), 2U);
    EXPECT_EQ(channel.Functions[0].Name, "U");
    EXPECT_EQ(channel.Functions[1].Zero, Align::Run);
    EXPECT_EQ(channel.Functions[1].Calibres.at(0).Name, "c");
    EXPECT_EQ(std::get<PulseTerm>(channel.Functions[1].Signal.at(0)).Width,
              std::numeric_limits<double>::infinity());
    EXPECT_EQ(std::get<ExpTerm>(channel.Functions[1].Signal.at(1)).FallDelay,
              std::numeric_limits<double>::infinity());
    EXPECT_EQ(reading.Value.Adapters[0].Connector, 2);
    EXPECT_EQ(reading.Value.Adapters[2].Connector, 3);
    EXPECT_EQ(reading.Value.Timeline.front().Time, 9.0); // By time, not by text.
}

} // namespace
