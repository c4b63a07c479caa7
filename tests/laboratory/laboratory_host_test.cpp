#include "tests/hosts/orvane_fixture.h"

#include <nlohmann/json.hpp>

#include <cmath>
#include <map>

namespace {

using nlohmann::json;
using namespace testing;

class LaboratoryHost : public Orvane {
protected:
    LaboratoryHost() {
        setenv("ORVANE_CLOCK", "virtual", 1);
    }
};

TEST_F(LaboratoryHost, PlaysASignalDuringARun) {
    const std::string square = "acquire --channels 0 --points 400 --play 0:square:10:4 --json";
    const Result run = Run(square + " --scenario school --csv %/run.csv");
    EXPECT_EQ(Run("--scenario school " + square).Out, run.Out) << "the same each time";
    const json told = json::parse(run.Out);
    EXPECT_EQ(told["points"], 400);
    EXPECT_EQ(told["preTriggerPoints"], 0);
    EXPECT_EQ(told["end"], "full");
    EXPECT_EQ(told["periodSec"], 1e-3);
    const json& channel = told["channels"].at(0);
    EXPECT_EQ(channel["unit"], "V");
    EXPECT_NEAR(channel["min"], -2.0, 0.1);
    EXPECT_NEAR(channel["mean"], 0.0, 0.1);
    EXPECT_NEAR(channel["max"], 2.0, 0.1);
    EXPECT_EQ(Rows("run.csv").size(), 401U);
    Fails(2, "acquire --scenario school --channels 0",
          {"--play 0:square:10", "--play 0:saw:1:1", "--play 9:sine:1:1", "--play 0:sine:1:50",
           "--json --csv -"});
}

TEST_F(LaboratoryHost, AdjustsAChannel) {
    EXPECT_THAT(Run("adjust 2 --value 1 --scenario school").Out, HasSubstr("Value       1\n"));
    Fails(1, "adjust 0", {"", "--value 1"}, " --scenario school",
          HasSubstr("Channel 0 has no adjustment."));
    Fails(1, "read", {"--scenario %/none.toml"});
}

TEST_F(LaboratoryHost, TimesRunsWhereThereAreGates) {
    EXPECT_EQ(Run("gates --scenario school").Out, "Forks  1\nDoor   closed\n\n"
                                                  "Gate  Fork  State\n"
                                                  "   0     0      0\n"
                                                  "   1     0      0\n");
    const Result run = Run("gates --scenario school --run 1 --plot %/fall.png");
    EXPECT_EQ(run.Out.substr(0, run.Out.find("Plot")),
              "Armed: the door and 2 gates.\n"
              " Ray  Position (m)   Time (s)  Mid-time (s)  Speed (m/s)\n"
              "door             0          0\n"
              "   0          0.25  0.1463459     0.0731730       1.7083\n"
              "   1          0.27  0.1544565     0.1504012       2.4659\n\n"
              "g  9.81 m/s², 0.99 m/s at the door\n");
    EXPECT_THAT(Content(Files / "fall.png"), AllOf(StartsWith("\x89PNG"), SizeIs(Gt(20'000U))));
    EXPECT_THAT(Run("gates --scenario school --run 1 --positions 0.125,0.135").Out,
                HasSubstr("\ng  4.91 m/s²"))
        << "what is said counts";
    const json told = json::parse(Run("gates --scenario school --run 1 --json").Out);
    EXPECT_EQ(told["forks"], 1);
    EXPECT_EQ(told["doorClosed"], false) << "the card has opened it";
    ASSERT_EQ(told["raysSec"].size(), 2U);
    EXPECT_NEAR(told["raysSec"][1], std::sqrt(0.64 / 9.81) - std::sqrt(0.1 / 9.81), 1.01e-7);
    EXPECT_EQ(json::parse(Run("gates --scenario school --json").Out)["gates"], (json{0, 0}));
}

TEST_F(LaboratoryHost, SaysWhyThereAreNoTimes) {
    const std::string school = " --scenario school";
    Fails(1, "gates", {""});
    Fails(1, "gates --run 1", {"--timeout 100ms"}, school, HasSubstr("not ended within 100 ms"));
    Fails(2, "gates",
          {"--run 2", "--run 1 --positions 0.25", "--run 1 --positions 0.27,0.25",
           "--run 1 --positions 0.25,x", "--run 1 --plot %/fall.gif", "--plot %/fall.png"},
          school);
    std::ofstream(Files / "still.toml") << "[adapter.a]\nkind = \"gates\"\nforks = [[1, 2]]\n"
                                           "[adapter.b]\nkind = \"gates\"\n"
                                           "[body.card]\nafter_arming = 1e9\n";
    const std::string still = "gates --scenario %/still.toml --run ";
    Fails(2, still + "3", {"--plot %/fall.png"}, "", HasSubstr("where the gates are"));
    setenv("ORVANE_CLOCK", "real", 1);
    EXPECT_EQ(Run(still + "1 --plot %/fall.png", interruptIn1s).Code, 130);
    EXPECT_THAT(FileNames(), ElementsAre("still.toml"));
}

TEST_F(LaboratoryHost, MeetsAdaptersThatChange) {
    std::ofstream(Files / "changes.toml") << R"(scenario = 1
[adapter.a]
reference = 482034
[[adapter.a.channel]]
calibres = [[0, 10]]
signal = [{ pwl = [0, 4] }]
[adapter.b]
connector = 2
reference = 482034
[[adapter.b.channel]]
calibres = [[0, 10]]
signal = [{ pwl = [0, 6] }]
[timeline]
"0.5" = [{ unplug = "b" }])";
    const std::string host = "--scenario %/changes.toml ";
    const Result run = Run(host + "acquire --points 800 --json --csv %/run.csv");
    EXPECT_EQ(run.Code, 1);
    EXPECT_THAT(run.Complaints, ElementsAre(HasSubstr("changed after 4")));
    const json told = json::parse(run.Out);
    EXPECT_EQ(told["end"], "adaptersChanged");
    EXPECT_EQ(told["channels"][0]["mean"], 4.0);
    setenv("ORVANE_CLOCK", "real", 1);
    const Result watched = Run(host + "read --json --watch --interval 200ms", interruptIn1s);
    std::string channels; // How many each line has.
    for (const std::string& line : Lines(watched.Out)) {
        channels += std::to_string(json::parse(line)["channels"].size());
    }
    EXPECT_THAT(channels, MatchesRegex("2+1+")) << watched.Out;
}

TEST_F(LaboratoryHost, ShowsTheRadioNetworkOfAConsoleThatHasOne) {
    EXPECT_THAT(Run("radio").Complaints, ElementsAre(HasSubstr("no radio network")));
    const std::string radio = "--scenario radio radio";
    EXPECT_EQ(Run(radio).Out, "Radio channel   15\nPods connected  0\n");
    const std::string pilot = radio + " --pilot --wait 450ms --ping 12 --accept 3";
    EXPECT_EQ(Run(pilot).Out, "Device 12 answers.\nRadio channel   15\nPods connected  3\n"
                              "Pod  Accepted\n  3  yes\n  7  no\n 12  no\n");
    EXPECT_EQ(json::parse(Run(pilot + " --json").Out), json::parse(R"({
        "channel": 15, "level": null, "mode": "pilot", "pods": [
            {"id": 3, "accepted": true}, {"id": 7, "accepted": false},
            {"id": 12, "accepted": false}]})"));
    EXPECT_EQ(json::parse(Run(radio + " --none --json").Out)["mode"], "closed");
    setenv("ORVANE_CLOCK", "real", 1);
    EXPECT_THAT(Run(radio + " --pilot --wait 300ms").Out, HasSubstr("\n  3  no\n"));
    Fails(1, radio, {"--ping 3", "--accept 3", "--pilot --wait 600ms --ping 7"});
    Fails(2, radio, {"--pilot --none", "--ping 256", "--accept 50", "--wait 0"});
}

TEST_F(LaboratoryHost, PassesTheSelftestOverEachScenario) {
    const std::map<std::string, const char*> instruments{
        {"school", "1 adjustment, 1 fork, 2 outputs, 1 turbine\n"},
        {"radio", "3 adjustments, 1 output, 1 radio network\n"},
        {"rough", ""}}; // Its adapters change meanwhile.
    for (const std::string run :
         {"virtual school", "virtual radio", "virtual rough", "scaled:60 school", "scaled:60 radio",
          "scaled:60 rough", "real rough"}) {
        const std::string scenario = run.substr(run.find(' ') + 1);
        setenv("ORVANE_CLOCK", run.substr(0, run.find(' ')).c_str(), 1);
        const Result result = Run("selftest --outputs --scenario " + scenario);
        EXPECT_EQ(result.Code, 0) << run << '\n' << result.Out;
        EXPECT_THAT(result.Out,
                    HasSubstr(std::string("\nInstruments exercised: ") + instruments.at(scenario)));
    }
}

TEST_F(LaboratoryHost, FollowsTheFlowWhereThereIsATurbine) {
    EXPECT_THAT(Run("spiro").Complaints, ElementsAre(HasSubstr("no spirometer turbine")));
    std::ofstream(Files / "in.toml")
        << "breath.tidal = 0\n[adapter.t]\nkind = \"turbine\"\nchannel = [{ quantity = "
           "[\"Q\", \"l/s\"], calibres = [[-20, 20]], signal = [{ pwl = [0, -2] }] }]\n";
    const Result in = Run("spiro --scenario %/in.toml --seconds 2");
    const auto lines = Lines(in.Out);
    ASSERT_THAT(lines, SizeIs(Gt(60U)));
    EXPECT_EQ(lines.back(), "No forced breath.");
    EXPECT_THAT(lines[60],
                AllOf(StartsWith("Flow -2 l/s\tpositive 0 l\tnegative "), EndsWith(" l")));
    EXPECT_NEAR(std::stod(lines[60].substr(lines[60].find("negative ") + 9)), 3.0, 0.1);
    setenv("ORVANE_CLOCK", "real", 1);
    const Result interrupted = Run("spiro --scenario %/in.toml", interruptIn1s);
    EXPECT_EQ(interrupted.Code, 0);
    EXPECT_THAT(Lines(interrupted.Out), SizeIs(AllOf(Gt(3U), Lt(50U))));
}

TEST_F(LaboratoryHost, FindsTheForcedBreathOfTheScenario) {
    const Result run = Run("spiro --scenario school --seconds 25 --json --plot %/flow.svg");
    std::vector<json> steps;
    for (const std::string& line : Lines(run.Out)) {
        steps.push_back(json::parse(line));
    }
    ASSERT_THAT(steps, SizeIs(Gt(900U)));
    EXPECT_NEAR(steps.back()["fvc"], 4.80, 0.005 * 4.80);
    EXPECT_NEAR(steps.back()["fev1"], 3.90, 0.03 * 3.90);
    EXPECT_NEAR(steps.back()["pef"], 8.60, 0.05 * 8.60);
    for (size_t i = 1; i + 1 < steps.size(); ++i) {
        const auto rise = [&](const char* key) -> double {
            return steps[i][key].get<double>() - steps[i - 1][key].get<double>();
        };
        const double flow = steps[i]["flow"];
        ASSERT_NEAR(rise("timeSec"), 0.025, 0.001) << "no step is lost";
        ASSERT_NEAR(rise("volumeOut"), std::max(flow, 0.0) * rise("timeSec"), 1e-9);
        ASSERT_NEAR(rise("volumeIn"), std::max(-flow, 0.0) * rise("timeSec"), 1e-9);
    }
    EXPECT_THAT(Content(Files / "flow.svg"), HasSubstr("</svg>"));
}

} // namespace
