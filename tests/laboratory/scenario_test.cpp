// What scenario files say, and what is said about those that are wrong.

#include "console/laboratory/scenario/scenario_keys.h"
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

TEST_F(ScenarioFiles, AreToldWhatIsWrongWhere) {
    struct Mistake {
        std::string Toml;
        std::vector<std::string> Errors; ///< Where, and what would be right.
    };
    const std::string adapter = "[adapter.a]\nreference = 1\n";
    const std::string channel = adapter + "[[adapter.a.channel]]\n";
    const std::string gates = "kind = \"gates\"\n";
    const std::vector<Mistake> mistakes{
        {"seed = 1\nseed = 2",
         {"2:8: this key or table stands above already; each may stand once"}},
        {"seed = ", {"1:8: this is not TOML: encountered end-of-file"}},
        {"colour = 1\nbus = { late = 1 }",
         {"1:1: \"scenario\" has no key \"colour\"; its keys are scenario, seed, console, clock, "
          "bus, "
          "output, adapter, body, breath, radio, timeline",
          "2:9: \"bus\" has no key \"late\"; its keys are latency"}},
        // Numbers and their ranges; a number of the wrong kind; what isn't finite.
        {"bus.latency = -1\nseed = 1.5\n[breath]\nrate = 0\ntidal = nan\n[radio]\nchannel = 27",
         {"1:15: \"latency\" takes a number from 0 to 1 (s), not -1",
          "2:8: \"seed\" takes a whole number of 0 or more, not 1.5",
          "4:8: \"rate\" takes a number above 0, at most 1000 (1/min), not 0",
          "5:9: \"tidal\" takes a number from 0 to 100 (L), not nan",
          "7:11: \"channel\" takes a whole number from 11 to 26, not 27"}},
        {"[console]\nserial = 7\nlines = [\"a\", \"b\", \"c\"]\ntype = \"\\u0000\"\nmodel = 1",
         {"2:10: \"serial\" takes a text, not 7",
          "3:9: \"lines\" takes a list of at most 2 texts, not a list of 3",
          "4:8: \"type\" has 1 bytes or a NUL among them; a text has at most 255 bytes and no NUL",
          "5:9: \"model\" takes a number: 12304, 12306, 12336 or 12368, not 1"}},
        {"clock = \"fast\"",
         {"1:9: \"clock\" takes a word: \"real\", \"scaled\" or \"virtual\", not \"fast\""}},
        {"seed = 5e53\nbus.latency = 1e-5\nconsole.model = -1e+09",
         {"1:8: \"seed\" takes a whole number of 0 or more, not 5e53",
          "3:17: \"model\" takes a number: 12304, 12306, 12336 or 12368, not -1e9"}},
        {"clock = { factor = 2 }", {"1:11: \"factor\" belongs to a clock with mode = \"scaled\""}},
        {"[[output]]\nname = \"Out\"\nrange = [1, 1.00000001]",
         {"2:8: \"name\" takes a text that begins with \"Sortie a\" or \"Analog o\", not \"Out\"",
          "3:9: \"range\" takes a range [min, max], not a list of 2"}},
        // Adapters and where they sit.
        {adapter + "connector = 2\n[adapter.b]\nconnector = 2\ndoor = 0",
         {"4:10: \"adapter\" needs \"reference\", a number such as 482201",
          "4:10: connector 2 is taken by \"a\"; take another or say plugged = false",
          "6:1: \"door\" belongs to kind = \"gates\""}},
        {"[adapter.a]\n" + gates +
             "door = 0\nforks = [[1, 2], [3, 4]]\nchannel = []\n[adapter.b]\n" + gates +
             "door = 1\nforks = [[-1, 2]]",
         {"1:10: \"a\" has the door and so one fork at most",
          "5:1: \"channel\" isn't said of gates; they have their own channels",
          "6:10: the door stands at the gates of the lowest connector only",
          "9:10: \"forks\" takes a list of pairs [first, second], rising and 0 or more (m), not a "
          "list of 2"}},
        {adapter + "adjustment = { mode = 5, states = [\"a|b\"], range = [0, 1], initial = 2 }",
         {"3:26: \"states\" belongs to mode 2 to 4", "3:36: the text of a state has no \"|\"",
          "3:70: 2 lies outside the range of the adjustment"}},
        {adapter + "adjustment = { mode = 4, states = [\"a\", \"b\"], pictures = [\"\"] }",
         {"3:47: 1 pictures for 2 states; each state has one"}},
        // Channels and functions.
        {channel + "default_period = 1e-5\nquantity = [\"u\"]",
         {"3:1: \"channel\" needs \"calibres\", a list of ranges [min, max] or of tables",
          "4:18: the default period is shorter than the shortest one, 1e-4 s",
          "5:12: \"quantity\" takes a list [symbol, unit] or [symbol, unit, name], not a list of "
          "1"}},
        {channel + "function = [{}]\nsignal = []\ncalibres = [[0, 1]]",
         {"4:13: \"function\" needs \"calibres\", a list of ranges [min, max] or of tables",
          "5:1: \"signal\" belongs into the tables of \"function\", not beside them",
          "6:1: \"calibres\" belongs into the tables of \"function\", not beside them"}},
        // Terms.
        {channel + "calibres = [[0, 1]]\nsignal = [{ sin = [1, 2] }, { damped = [1, 1, 0] }, {}, "
                   "{ gain = 2 }, { output = 0 }]",
         {"5:19: \"sin\" takes a list of 3 to 5 numbers, not a list of 2",
          "5:47: \"time\" takes a number from 1e-9 to 1e9 (s), not 0",
          "5:53: each table of \"signal\" is one term: exactly one of sin, pulse, exp, pwl, "
          "damped, "
          "file and output",
          "5:57: \"gain\", \"delay\" and \"low_pass\" belong to a term with \"output\"",
          "5:82: there is no output 0; [[output]] adds one"}},
        {channel +
             "calibres = [[0, 1]]\nsignal = [{ pwl = [0, 1, 0, 2] }, { pwl = [1] }, "
             "{ exp = [0, 1, 3, 1, 2] },\n{ pulse = [0, 1, 0, 0, 0, inf, 1], exp = [0, 0, 0, 1] }]",
         {"5:26: the times of \"pwl\" rise; 0 s comes after 0 s",
          "5:43: \"pwl\" takes a list [time, value, time, value, ...], not a list of 1",
          "5:58: \"exp\" falls before it rises; fall_delay comes after rise_delay",
          "6:1: each table of \"signal\" is one term: exactly one of sin, pulse, exp, pwl, damped, "
          "file and output",
          "6:11: the period of \"pulse\" is shorter than rise, width and fall together; make it 0 "
          "for one pulse, or longer"}},
        // Instruments and the timeline.
        {"breath.forced = { fvc = 4, fev1 = 4 }\nradio.pods = [{ id = 1 }, {}, { id = 1 }]",
         {"1:1: no forced breath has fev1 = 4; it lies above 0.04 s of pef, 0.344, and below fvc "
          "and "
          "1 s of pef, 4",
          "2:27: \"pods\" needs \"id\", a whole number from 0 to 49",
          "2:31: there is a pod 1 before; each has an id of its own"}},
        {adapter +
             "connector = 1\n[adapter.b]\nreference = 1\nconnector = 1\nplugged = "
             "false\n[timeline]\nsoon = []\n"
             "\"1\" = [{ plug = \"b\" }, { unplug = \"c\" }, { plug = \"a\", unplug = \"a\" }]\n"
             "\"2\" = [{ fault = { operation = \"x\", latency = 1, refuse = 1 } }]",
         {"9:1: a key of \"timeline\" is a time from 0 to 1e9 (s) in quotes, not \"soon\"",
          "10:8: connector 1 is taken by \"a\" at that time; unplug it first",
          "10:35: \"unplug\" takes a name of an [adapter.NAME] above, not \"c\"",
          "10:42: each table of \"timeline\" is one event: unplug, plug or fault",
          "11:32: \"operation\" takes a name of an operation of the port, such as \"OVAutoStart\", "
          "not \"x\"",
          "11:37: a call with \"latency\" isn't refused; make a second fault of \"refuse\" or "
          "\"probability\""}},
    };
    for (const Mistake& mistake : mistakes) {
        std::vector<std::string> errors = Read(mistake.Toml).Errors;
        for (std::string& error : errors) {
            EXPECT_THAT(error, StartsWith("x:"));
            error.erase(0, 2);
        }
        EXPECT_THAT(errors, testing::ElementsAreArray(mistake.Errors)) << mistake.Toml;
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
    std::string toml = "[adapter.a]\nreference = 1\n[timeline]\n";
    for (int i = 500'000; i > 0; --i) {
        toml.append("\"").append(std::to_string(i)) +=
            "\" = [{ unplug = \"a\" }, { plug = \"a\" }]\n";
    }
    const ScenarioReading reading = Read(toml);
    EXPECT_THAT(reading.Errors, IsEmpty());
    ASSERT_EQ(reading.Value.Timeline.size(), 1'000'000U);
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
