// What the host program offers around its measurements: costs, self-test, JSON, terminals, shells.

#include "tests/hosts/orvane_fixture.h"

#include <dlfcn.h>
#include <nlohmann/json.hpp>

#include <algorithm>

using namespace testing;
using nlohmann::json;

namespace {

class OrvaneTools : public Orvane {
protected:
    /// What the program writes to a terminal of this width, on standard output or on both.
    [[nodiscard]] std::string OnTerminal(int columns, const std::string& arguments,
                                         const std::string& errors = "/dev/null") const {
        const std::string file = Home / "terminal";
        const std::string command = "script -qec 'stty cols " + std::to_string(columns) +
                                    "; { " ORVANE_PROGRAM " " + arguments + "; } 2>" + errors +
                                    "' " + file + " >/dev/null";
        EXPECT_EQ(std::system(command.c_str()), 0);
        return Content(file);
    }
};

auto Characters(const std::string& line) {
    return std::ranges::count_if(line, [](char c) { return (c & 0xC0) != 0x80 && c != '\r'; });
}

TEST_F(OrvaneTools, SelftestFindsThatEveryConsoleHolds) {
    for (const std::string library :
         {"", " --library " FAULTY_DRIVER, " --scenario school", " --library " INSTRUMENTS}) {
        const Result run = Run("selftest" + library);
        EXPECT_EQ(run.Code, 0) << library;
        EXPECT_THAT(Lines(run.Out), AllOf(SizeIs(Gt(30U)), Each(Not(StartsWith("FAILED")))));
    }
    EXPECT_THAT(Calls(), AllOf(HasSubstr("OVAutoStart"), Not(HasSubstr("OVDac"))));
    const std::string outputs = "selftest --outputs --library " INSTRUMENTS;
    EXPECT_THAT(Run(outputs).Out,
                AllOf(HasSubstr("0: the console does not trigger\n"), HasSubstr("\n31 passed")));
    setenv("ORVANE_TRIGGERS", "1", 1);
    EXPECT_THAT(Run(outputs).Out,
                AllOf(HasSubstr("messages; they follow"), HasSubstr("\n32 passed")));
    EXPECT_THAT(Calls(), HasSubstr("OVDacStart(0, 0)"));
    EXPECT_THAT(Calls().substr(Calls().rfind("OVDac")), StartsWith("OVDacWrite(0, 0, 0)\n"));
}

TEST_F(OrvaneTools, SelftestNamesTheCheckThatFails) {
    const std::pair<const char*, std::string> promises[] = {
        {"unit", "names, quantities and units are texts of one line: channel 0: unit"},
        {"outside",
         "a channel that does not exist gives neutral results: channel -1: a number is 1"},
        {"beyond",
         "fetched samples lie within the limits and do not change: the sample beyond the last"},
        {"clock", "the counter counts microseconds: "},
        {"calibre",
         "a selected calibre shows in the limits: channel 0: its calibre is 0 and not 1"},
        {"scale", "scale and texts of the host take effect and can be removed: channel 0: its "
                  "scaled limit is -25"},
        {"period", "a set-up gives the applied period, also when it is repeated: 1 ms becomes 1.5"},
        {"gates", "gates are open or crossed: gate -2147483648 is 2"},
        {"start", "the driver starts: StartDll gives false"}};
    for (const auto& [fault, promise] : promises) {
        setenv("ORVANE_FAULT", fault, 1);
        const Result run = Run("selftest --library " FAULTY_DRIVER);
        EXPECT_EQ(run.Code, 1) << fault;
        EXPECT_THAT(Lines(run.Out), Contains(StartsWith("FAILED   " + promise))) << fault;
        EXPECT_THAT(run.Out, HasSubstr(", 1 failed, ")) << fault;
    }
    setenv("ORVANE_FAULT", "count", 1);
    EXPECT_THAT(Run("selftest --library " FAULTY_DRIVER).Out,
                HasSubstr("FAILED   a run fills up and stops counting: the count rises to 201"));
    Dl_info runtime{};
    ASSERT_NE(dladdr(reinterpret_cast<void*>(&dlclose), &runtime), 0);
    EXPECT_THAT(Run(std::string("selftest --library ") + runtime.dli_fname).Out,
                HasSubstr("FAILED   the library has all exports"));
}

TEST_F(OrvaneTools, TellsOtherProgramsInJson) {
    const json info = json::parse(Run("info --json").Out);
    EXPECT_EQ(info["shortestPeriodSec"], 1e-4);
    EXPECT_EQ(info["reportedLongestPeriodSec"], 6.535);
    setenv("ORVANE_FAULT", "infinite", 1);
    const json channels = json::parse(Run("channels --json --library " FAULTY_DRIVER).Out);
    EXPECT_EQ(channels[0]["name"], "Voltmètre");
    EXPECT_TRUE(channels[0]["max"].is_null());
    EXPECT_EQ(channels[1]["calibres"], (json{"1A", "2A"}));
    EXPECT_EQ(json::parse(Run("read --json").Out)["channels"][1]["unit"], "A");
}

TEST_F(OrvaneTools, KeepsToTheTerminal) {
    const std::string wide = Lines(Run("channels").Out)[1];
    for (const int columns : {95, 60, 24}) {
        const std::string shown = OnTerminal(columns, "channels; " ORVANE_PROGRAM " info");
        for (const std::string& line : Lines(shown.substr(shown.find('\n')))) {
            EXPECT_TRUE(Characters(line) <= columns || line.starts_with("Script ")) << line;
        }
        EXPECT_THAT(shown, AllOf(HasSubstr("Ampèremetre"), HasSubstr("+-24V")));
    }
    EXPECT_THAT(OnTerminal(120, "channels"), HasSubstr(wide + "\r\n"));
    const std::string run = "acquire --period 10ms --points 60 --plot " + Home.string() + "/p.svg";
    for (const int columns : {100, 24}) {
        std::string bar = OnTerminal(columns, run, "&1");
        bar.resize(bar.rfind("\x1b[K\r\x1b[K"));
        bar.erase(0, bar.rfind('\r') + 1);
        EXPECT_THAT(bar, ContainsRegex("(^|[^0-9])([5-9][0-9]|100) %")) << "at the end of the run";
        EXPECT_EQ(bar.find("60 points") != std::string::npos, columns == 100) << bar;
        EXPECT_LT(Characters(bar), columns) << bar;
    }
    EXPECT_THAT(OnTerminal(80, "selftest"), HasSubstr("\x1b[32mok"));
    setenv("NO_COLOR", "1", 1);
    EXPECT_THAT(OnTerminal(80, "selftest"), HasSubstr("\nok       the driver starts\r"));
    unsetenv("NO_COLOR");
    setenv("TERM", "dumb", 1);
    EXPECT_THAT(OnTerminal(80, "selftest"), Not(HasSubstr("\x1b")));
}

TEST_F(OrvaneTools, MeasuresWhatTheDriverCosts) {
    const auto rows = Lines(Run("rate").Out);
    ASSERT_THAT(rows, SizeIs(Gt(12U)));
    EXPECT_THAT(rows[3], AllOf(StartsWith("a read of the clock"), EndsWith(" 1.00")));
    EXPECT_THAT(std::vector(rows.begin() + 3, rows.end()),
                Each(ContainsRegex(" [0-9.]*[1-9][0-9.]*$")));
}

TEST_F(OrvaneTools, CompletesCommandLinesInEachShell) {
    std::ofstream(Files / "samples.csv") << '\n';
    fs::create_directory(Files / "samples");
    fs::current_path(Files);
    for (const std::string shell : {"bash", "zsh", "fish"}) {
        const std::string command =
            COMPLETE_IN_SHELL " " + shell +
            " $(dirname " ORVANE_PROGRAM ") " COMPLETIONS
            " 'orvane chan' 'orvane acquire --channels 1,' 'orvane set 0 --lang=e' "
            "'orvane signal --shape sq' 'orvane acquire --csv samples.' "
            "'orvane channels --images sam' >../words";
        EXPECT_EQ(std::system(command.c_str()), 0) << shell;
        EXPECT_EQ(Content(Home / "words"),
                  "channels\n1,0\n--lang=en\nsquare\nsamples.csv\nsamples/\n")
            << shell;
    }
}

TEST_F(OrvaneTools, ChecksScenarios) {
    EXPECT_THAT(Lines(Run("scenario list").Out), SizeIs(4U)); // With the titles.
    std::ofstream(Files / "shown.toml") << Run("scenario show rough").Out;
    std::ofstream(Files / "wrong.toml") << "seed = -1\n";
    Fails(1, "scenario check", {"%/wrong.toml %/shown.toml"}, "",
          StrEq("orvane: 1 of 2 scenarios cannot be used."));
    EXPECT_THAT(Content(Home / "out"),
                ContainsRegex("/shown.toml is a valid scenario: 4 adapters, 1 output, [0-9]+ eve"));
    EXPECT_THAT(Content(Home / "err"), HasSubstr("wrong.toml:1:8: \"seed\" takes"));
    Fails(2, "scenario", {"show", "show lost", "list x"});
}

} // namespace
