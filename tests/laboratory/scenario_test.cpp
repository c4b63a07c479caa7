// What scenario files say, and what is said about those that are wrong.

#include "console/laboratory/scenario/scenario_keys.h"
#include "console/laboratory/scenario/scenario_reader.h"
#include "tests/support/answer_text.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <sstream>

namespace fs = std::filesystem;
using namespace orvane::laboratory;
using namespace testing;

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
    EXPECT_EQ(Text(bench.Seed, bench.Console.Model, bench.Console.Lines[1],
                   bench.Outputs.at(0).Period, bench.Falling.TerminalSpeed.value_or(0),
                   bench.Breathing.Forced.value().Fev1, bench.Network.Pods.at(1).Pings),
              "2024 | 12368 | … | 1e-06 | 12 | 3.9 | 0 | ");
    EXPECT_EQ(bench.Time.Mode, ClockMode::Real);

    ASSERT_EQ(bench.Adapters.size(), 4U);
    const Adapter& voltmeter = bench.Adapters[0];
    const Function& volts = voltmeter.Channels.at(0).Functions.at(0);
    EXPECT_EQ(Text(voltmeter.Name, voltmeter.Reference, volts.Name, volts.Unit, volts.Image.Format,
                   volts.Image.Bytes.size(), volts.Calibres.at(1).Name,
                   volts.Calibres[1].Limits.Max),
              "voltmeter | 482034 | Voltmètre | V | png | 12 | -24 … 24 V | 24 | ");
    EXPECT_EQ(Text(std::get<OutputTerm>(volts.Signal.at(0)).LowPass,
                   std::get<SinTerm>(volts.Signal.at(1)).Frequency, volts.Added.DriftTime,
                   volts.Added.Bits),
              "0.002 | 50 | 60 | 12 | ");
    const Adapter& dynamometer = bench.Adapters[1];
    const Channel& force = dynamometer.Channels.at(0);
    EXPECT_EQ(Text(force.Name, std::get<DampedTerm>(force.Functions.at(0).Signal.at(0)).Time,
                   dynamometer.Adjusted.Limits.Min, dynamometer.Adjusted.Adds),
              "dynamometer | 1.5 | -1 | 1 | ");
    EXPECT_EQ(force.Functions[0].Zero, Align::Run);
    EXPECT_THAT(bench.Adapters[2].Forks, ElementsAre(ElementsAre(0.3, 0.32)));
    EXPECT_EQ(
        Text(bench.Adapters[2].Door.value(), bench.Adapters[3].Channels.at(0).Functions.at(0).Unit),
        "0.05 | L/s | ");

    ASSERT_EQ(bench.Timeline.size(), 3U);
    const Plug& plug = std::get<Plug>(bench.Timeline[1].Event);
    EXPECT_EQ(Text(plug.Adapter, plug.Plugged,
                   std::get<Fault>(bench.Timeline[2].Event).Refuse.value_or(0)),
              "0 | 1 | 3 | ");
}

TEST_F(ScenarioFiles, LeaveTheRestToTheDefaults) {
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
    ASSERT_EQ(channel.Functions.size(), 2U);
    const Function& second = channel.Functions[1];
    EXPECT_EQ(Text(channel.DefaultPeriod, channel.Label.value_or(0), channel.Functions[0].Name,
                   second.Calibres.at(0).Name, std::get<PulseTerm>(second.Signal.at(0)).Width,
                   std::get<ExpTerm>(second.Signal.at(1)).FallDelay),
              "0.5 | -4 | U | c | inf | inf | ");
    EXPECT_EQ(second.Zero, Align::Run);
    EXPECT_EQ(Text(+reading.Value.Adapters[0].Connector, +reading.Value.Adapters[2].Connector,
                   reading.Value.Timeline.front().Time), // By time, not by text.
              "2 | 3 | 9 | ");
}

/// Where the errors of a reading are, such as "2:8 3:9 ".
std::string Places(const ScenarioReading& reading) {
    std::string places;
    for (const std::string& error : reading.Errors) {
        EXPECT_THAT(error, StartsWith("x:"));
        places += error.substr(2, error.find(": ") - 2) + " ";
    }
    return places;
}

TEST_F(ScenarioFiles, AreToldWhatIsWrongAndWhatWouldBeRight) {
    EXPECT_THAT(
        Read("clock = \"fast\"\nbus = { late = 1 }\nseed = 5e53\nbreath.rate = 0\n"
             "radio.channel = 27\nconsole.lines = [\"a\", \"b\", \"c\"]\nconsole.model = -1e+09")
            .Errors,
        ElementsAre(
            "x:1:9: \"clock\" takes a word: \"real\", \"scaled\" or \"virtual\", not \"fast\"",
            "x:2:9: \"bus\" has no key \"late\"; its keys are latency",
            "x:3:8: \"seed\" takes a whole number of 0 or more, not 5e53",
            "x:4:15: \"rate\" takes a number above 0, at most 1000 (1/min), not 0",
            "x:5:17: \"channel\" takes a whole number from 11 to 26, not 27",
            "x:6:17: \"lines\" takes a list of at most 2 texts, not a list of 3",
            "x:7:17: \"model\" takes a number: 12304, 12306, 12336 or 12368, not -1e9"));
    EXPECT_THAT(
        Read("timeline.1 = [{ fault = { operation = \"OVReadValeu\" } },\n"
             "{ fault = { operation = \"OVRelease\", size = 1, unterminated = true } }]")
            .Errors,
        ElementsAre("x:1:39: \"operation\" takes a name of an operation of the port, such as "
                    "\"OVAutoStart\", not \"OVReadValeu\"; did you mean \"OVReadValue\"?",
                    "x:2:25: OVRelease has no faults, as a connection begins or ends with it",
                    "x:2:38: \"size\" is for OVGetMemorySize",
                    "x:2:48: \"unterminated\" is for operations that give texts: "
                    "OVReadChannelText and OVGet...Desc"));
}

TEST_F(ScenarioFiles, AreToldWhereTheyAreWrong) {
    const std::string adapter = "[adapter.a]\nreference = 1\n";
    const std::string channel = adapter + "[[adapter.a.channel]]\n";
    const std::string volts = channel + "calibres = [[0, 1]]\n";
    const std::pair<std::string, std::string> mistakes[] = {
        {"seed = 1\nseed = 2", "2:8 "},
        {"seed = ", "1:8 "},
        {"colour = 1\nbus = { latency = 1e-5 }", "1:1 "},
        {"bus.latency = -1\nseed = 1.5\nbreath.tidal = nan\n"
         "console = { serial = 7, type = \"\\u0000\" }",
         "1:15 2:8 3:16 4:22 4:32 "},
        {"clock = { factor = 2 }\n[[output]]\nname = \"Out\"\nrange = [1, 1.00000001]",
         "1:11 3:8 4:9 "},
        // Adapters and where they sit: no reference, a connector taken, a door without gates.
        {adapter + "connector = 2\n[adapter.b]\nconnector = 2\ndoor = 0", "4:10 4:10 6:1 "},
        {"[adapter.a]\nkind = \"gates\"\ndoor = 0\nforks = [[1, 2], [3, 4]]\nchannel = []\n"
         "[adapter.b]\nkind = \"gates\"\ndoor = 1\nforks = [[-1, 2]]",
         "1:10 5:1 6:10 9:10 "},
        {adapter + "adjustment = { mode = 5, states = [\"a|b\"], range = [0, 1], initial = 2 }",
         "3:26 3:36 3:70 "},
        {adapter + "adjustment = { mode = 4, states = [\"a\", \"b\"], pictures = [\"\"] }",
         "3:47 "},
        {channel + "default_period = 1e-5\nquantity = [\"u\"]", "3:1 4:18 5:12 "},
        {channel + "function = [{}]\nsignal = []\ncalibres = [[0, 1]]", "4:13 5:1 6:1 "},
        {volts + "signal = [{ sin = [1, 2] }, { damped = [1, 1, 0] }, {}, { gain = 2 }, "
                 "{ output = 0 }]",
         "5:19 5:47 5:53 5:57 5:82 "},
        {volts + "signal = [{ pwl = [0, 1, 0, 2] }, { pwl = [1] }, { exp = [0, 1, 3, 1, 2] },\n"
                 "{ pulse = [0, 1, 0, 0, 0, inf, 1], exp = [0, 0, 0, 1] }]",
         "5:26 5:43 5:58 6:1 6:11 "},
        // Instruments and the timeline.
        {"breath.forced = { fvc = 4, fev1 = 4 }\nradio.pods = [{ id = 1 }, {}, { id = 1 }]",
         "1:1 2:27 2:31 "},
        {"breath.forced = { every = 2, fvc = 9, fev1 = 4, pef = 8 }", "1:1 "},
        {adapter + "connector = 1\n[adapter.b]\nreference = 1\nconnector = 1\nplugged = false\n"
                   "[timeline]\nsoon = []\n\"1\" = [{ plug = \"b\" }, { unplug = \"c\" }, "
                   "{ plug = \"a\", unplug = \"a\" }]\n"
                   "\"2\" = [{ fault = { operation = \"x\", latency = 1, refuse = 1 } }]",
         "9:1 10:8 10:35 10:42 11:32 11:37 "},
    };
    for (const auto& [toml, places] : mistakes) {
        EXPECT_EQ(Places(Read(toml)), places) << toml;
    }
}

TEST_F(ScenarioFiles, NameSamplesAndPictures) {
    const auto samples = [&](const char* bytes, const char* keys = "") {
        Write("samples", bytes);
        const auto reading =
            ReadSignal(std::string("{ file = { path = \"samples\"") + keys + " } }");
        const auto& signal = reading.Value.Adapters.at(0).Channels.at(0).Functions.at(0).Signal;
        return reading.Errors.empty() ? std::get<FileTerm>(signal.at(0)).Values
                                      : std::vector<double>{};
    };
    EXPECT_THAT(samples("t (s),u (V)\r\n0,1.5\r\n\r\n1,-2\r\n", ", column = 2"),
                ElementsAre(1.5, -2));
    EXPECT_THAT(samples("t;u\n0,5;1,25\n1;+2", ", column = 2"), ElementsAre(1.25, 2));
    EXPECT_THAT(samples("\xEF\xBB\xBF  7 \t 8\n9 10\n", ", column = 2"), ElementsAre(8, 10));
    for (const char* wrong : {"", "words\n", "1\nx\n", "1\nnan\n", "1\n1e999\n"}) {
        EXPECT_THAT(samples(wrong), IsEmpty()) << wrong;
    }
    EXPECT_THAT(ReadSignal("{ file = { path = \"samples\", column = 3 } }").Errors,
                ElementsAre(EndsWith(
                    "5:20: \"samples\" gives no samples: there is no number in column 3")));

    Write("big.png", "\x89PNG\r\n\x1A\n" + std::string(1U << 20U, ' '));
    Write("text.png", "no picture");
    const std::string picture = "calibres = [[0, 1]]\npicture = ";
    EXPECT_THAT(ReadChannel(picture + "\"big.png\"").Errors,
                ElementsAre(EndsWith("1048576 bytes")));
    EXPECT_THAT(ReadChannel(picture + "\"text.png\"").Errors,
                ElementsAre(EndsWith("it has to be a png, bmp or gif file")));
    EXPECT_THAT(ReadChannel(picture + "\"..\"").Errors, ElementsAre(EndsWith("it is not a file")));
    Write("file.toml", "adapter.a = { reference = 1, picture = \"text.png\" }"); // Beside the file.
    EXPECT_THAT(LoadScenario(Folder / "file.toml").Errors,
                ElementsAre(EndsWith("it has to be a png, bmp or gif file")));
}

TEST_F(ScenarioFiles, MayBeAnyBytes) {
    EXPECT_THAT(Read("").Errors, IsEmpty());
    EXPECT_EQ(Read("\xEF\xBB\xBFseed = 1\r\n# é\r\n[bus]\r\nlatency = 1\r\n").Value.BusLatency,
              1.0);
    std::string deep;
    for (int i = 0; i < 100'000; ++i) {
        deep += "a.";
    }
    const std::vector<std::pair<std::string, std::string>> strange{
        {std::string("seed = 1\0", 9), "x:1:9: this is not TOML: "},
        {"a = \"\xFF\"", "x:1:5: this is not TOML: "},
        {"console.serial = \"é\"\né = 1", "x:2:1: this is not TOML: "},
        {"a = '''é'''''\nb = \"\\\"é\" # é\nc = \"\"\"é\n\"\"\"\"\né = 1",
         "x:5:1: this is not TOML: "},
        {"a = n\n", "x:1:6: this is not TOML: expected 'nan', saw 'n?'"},
        {"a = [1, }", "x:1:9: this is not TOML: "},
        {"a = " + std::string(100'000, '['), "x:1:21: lists and tables lie too deep"},
        {deep + "a = 1", "x:1:200: a key has at most 100 parts"},
        {std::string("[").append(deep).append("a]"), "x:1:201: a key has at most 100 parts"},
    };
    for (const auto& [toml, error] : strange) {
        EXPECT_THAT(Read(toml).Errors, ElementsAre(StartsWith(error)));
    }
    std::string lines;
    for (int i = 0; i < 10'000; ++i) {
        lines.append("\"\\u001b[31m").append(std::to_string(i)).append("\" = 0\n");
    }
    const auto errors = Read(lines).Errors;
    ASSERT_EQ(errors.size(), 10'000U);
    EXPECT_THAT(errors.back(), StartsWith("x:10000:1: \"scenario\" has no key \"?[31m9999\""));
}

TEST_F(ScenarioFiles, MayHaveAMillionEvents) {
#ifdef NDEBUG
    constexpr size_t events = 1'000'000;
#else // Code that isn't optimized takes a minute for a million.
    constexpr size_t events = 50'000;
#endif
    std::string toml = "[adapter.a]\nreference = 1\n[timeline]\n";
    for (size_t i = events / 2; i > 0; --i) {
        toml.append("\"").append(std::to_string(i)) +=
            "\" = [{ unplug = \"a\" }, { plug = \"a\" }]\n";
    }
    const ScenarioReading reading = Read(toml);
    EXPECT_THAT(reading.Errors, IsEmpty());
    ASSERT_EQ(reading.Value.Timeline.size(), events);
    EXPECT_EQ(reading.Value.Timeline.front().Time, 1.0);
    EXPECT_TRUE(std::get<Plug>(reading.Value.Timeline.back().Event).Plugged);
}

TEST(ShippedScenarios, AreGood) {
    std::vector<std::string_view> names;
    for (const ShippedScenario& shipped : ShippedScenarios()) {
        names.push_back(shipped.Name);
        EXPECT_THAT(LoadScenario(std::string(shipped.Name)).Errors, IsEmpty());
        EXPECT_THAT(std::string(shipped.Toml), StartsWith("# "));
    }
    EXPECT_THAT(names, ElementsAre("radio", "rough", "school"));
    EXPECT_THAT(
        LoadScenario("none").Errors,
        ElementsAre("none:1:1: this scenario cannot be read: No such file or directory; give "
                    "a file that can, or one of radio, rough, school"));
}

/// The page has a table below the heading of each kind, with a row for each key.
TEST_F(ScenarioFiles, AreDescribedInFull) {
    std::istringstream page(Content(PAGE));
    std::vector<std::string> told;
    std::string block;
    std::string table;
    bool inBlock = false;
    for (std::string line; std::getline(page, line);) {
        if (line == "```toml" || (inBlock && line == "```")) {
            EXPECT_THAT(Read(block).Errors, IsEmpty()) << block;
            inBlock = !inBlock;
            block.clear();
        } else if (inBlock) {
            block += line + "\n";
        } else if (line.starts_with("#") && line.ends_with("`")) {
            table = line.substr(line.find('`') + 1);
            table.pop_back();
        } else if (line.starts_with("| `")) {
            line.resize(line.rfind(" |")); // And the cell that explains it.
            told.push_back(table + " " + line.substr(0, line.rfind(" |")));
        }
    }
    std::vector<std::string> known;
    for (const KeyDescription& key : ScenarioKeys()) {
        known.push_back(key.Table + " | `" + key.Key + "` | " + key.Takes + " | " + key.Default);
    }
    EXPECT_THAT(told, testing::UnorderedElementsAreArray(known));
}

} // namespace
