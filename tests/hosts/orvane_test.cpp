// The host program as its user meets it: what it prints, writes and answers.

#include "tests/hosts/orvane_fixture.h"

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace testing;

namespace {

TEST_F(Orvane, ShowsTheConsoleItsChannelsAndTheirValues) {
    EXPECT_EQ(Run("info >%/both 2>&1 ;:").Code, 0);
    const std::string info = Content(Files / "both");
    EXPECT_THAT(info, ContainsRegex("Orvane310(.|\n)*4.294967295 s\n(.|\n)* 6.535 s\n"));
    // What the driver says five times while it starts and is asked stands below, once.
    EXPECT_THAT(Lines(info).back(), StartsWith("console: Erreur pendant la lecture"));
    EXPECT_EQ(info.find("Erreur"), info.rfind("Erreur"));
    const auto channels = Lines(Run("channels --lang en").Out);
    ASSERT_THAT(channels, SizeIs(3));
    EXPECT_THAT(channels[2], HasSubstr("[1A]  2A"));
    // Columns begin at the same character: three bytes later behind an accent and an ellipsis.
    EXPECT_EQ(channels[0].find("Calibres") + 3, channels[1].find("[+-12V]"));
    EXPECT_THAT(Lines(Run("read --watch --interval 10ms", interruptIn1s).Out),
                AllOf(SizeIs(Gt(5U)), Each(StartsWith("Voltmètre "))));
    const Result changed =
        Run("read --watch --interval 1ms --library " FAULTY_DRIVER, interruptIn1s);
    EXPECT_THAT(changed.Complaints, ElementsAre(HasSubstr("adapters")));
    EXPECT_THAT(Lines(changed.Out), SizeIs(Gt(20U)));
}

TEST_F(Orvane, WritesOneRowForEachPointAndPictures) {
    const Result run = Run("acquire --points 200 --channels 1,0 --csv %/run.csv --plot %/run.png");
    EXPECT_THAT(run.Complaints, IsEmpty());
    ASSERT_THAT(Rows("run.csv"), SizeIs(201));
    EXPECT_EQ(Rows("run.csv")[0], "time (s),Ampèremetre (A),Voltmètre (V)");
    EXPECT_THAT(Content(Files / "run.png"), AllOf(StartsWith("\x89PNG"), SizeIs(Gt(20'000U))));
    EXPECT_EQ(Run("acquire --points 10 --plot %/run.SVG").Code, 0);
    EXPECT_THAT(Content(Files / "run.SVG"), HasSubstr("</svg>"));
}

TEST_F(Orvane, KeepsWhatWasReadWhenARunEndsEarly) {
    const Result interrupted = Run("acquire --points 100000 --csv %/run.csv --plot %/run.png",
                                   "timeout --preserve-status -s INT 2");
    EXPECT_EQ(interrupted.Code, 130);
    EXPECT_THAT(interrupted.Complaints, SizeIs(1));
    EXPECT_THAT(Rows("run.csv"), SizeIs(AllOf(Gt(100U), Lt(2100U))));
    EXPECT_THAT(FileNames(), ElementsAre("run.csv", "run.png"));
    Fails(1, "acquire --period 20ms --csv %/run.csv --library", {FAULTY_DRIVER}, "",
          HasSubstr("adapters"));
    EXPECT_THAT(Rows("run.csv"), SizeIs(AllOf(Gt(2U), Lt(25U))));
    // The ammeter never shows 0: that would be an answer of a console that has changed.
    EXPECT_THAT(Rows("run.csv"), Each(Not(EndsWith(",0"))));
}

TEST_F(Orvane, RecordsRunsOneAfterTheOtherWithTheSettingsOfChannels) {
    EXPECT_EQ(Run("acquire --runs 2 --points 100 --live --csv %/out.csv --plot %/out.svg "
                  "--set 0:calibre=+-24V --set 0:ampli=2,unit=V,x")
                  .Code,
              0);
    EXPECT_THAT(FileNames(), ElementsAre("out-1.csv", "out-1.svg", "out-2.csv", "out-2.svg"));
    EXPECT_EQ(Rows("out-2.csv")[0], "time (s),\"Voltmètre (V,x)\",Ampèremetre (A)");
    // A run that goes on with the clock of the one before is full at once and shows one value.
    std::set<double> values;
    for (const std::string& row : Rows("out-2.csv")) {
        values.insert(std::atof(row.substr(row.find(',') + 1).c_str()));
    }
    EXPECT_GT(values.size(), 3U);
    EXPECT_GT(*values.rbegin() - *values.begin(), 24.0) << "twice the range of the other calibre";

    EXPECT_THAT(Lines(Run("acquire --runs 2 --points 2 --csv -").Out),
                ElementsAre("run,time (s),Voltmètre (V),Ampèremetre (A)", StartsWith("1,0,"),
                            StartsWith("1,0.001,"), StartsWith("2,0,"), StartsWith("2,0.001,")));
    EXPECT_THAT(Lines(Run("read --set Voltmètre:unit=mV,offset=1").Out)[0], EndsWith("  mV"));
}

TEST_F(Orvane, ReplacesNothingButRegularFiles) {
    fs::current_path(Files);
    mkfifo("p", 0600);
    const std::string command = ORVANE_PROGRAM " acquire --points 2 --csv ";
    ASSERT_EQ(std::system(("echo kept >log.txt; " + command + "/dev/stdout >>log.txt; " + command +
                           "/dev/fd/3 3>>log.txt; cat p >>log.txt & " + command + "p; wait")
                              .c_str()),
              0);
    EXPECT_THAT(Lines(Content("log.txt")),
                AllOf(SizeIs(10), Contains("kept"), Contains(StartsWith("time (s),")).Times(3)));
    EXPECT_TRUE(fs::is_fifo("p"));
}

TEST_F(Orvane, SweepsWhatKilledRunsLeft) {
    std::ofstream(Files / ".orvane-killed") << "time";
    std::ofstream(Files / ".orvane-notes.txt") << "of somebody else";
    const int living = open((Files / ".orvane-living").c_str(), O_CREAT | O_RDWR, 0600);
    ASSERT_EQ(flock(living, LOCK_EX), 0);
    EXPECT_EQ(Run("acquire --points 2 --csv %/run.csv").Code, 0);
    EXPECT_THAT(FileNames(), ElementsAre(".orvane-living", ".orvane-notes.txt", "run.csv"));
    close(living);
}

TEST_F(Orvane, SaysInOneSentenceWhatIsWrongAndLeavesNothing) {
    const std::string files = "acquire --csv %/run.csv --plot %/run.png";
    Fails(2, "",
          {"", "chanels", "channels --images --json", "gates --run 0",
           "read --watch --interval 1e300s", "spiro --seconds 0", "set 2 --ampli 1",
           "acquire --csv ''", "acquire --plot ''", "acquire --csv %/run.png --plot %/run.png",
           "acquire --plot %/run.gif"});
    Fails(2, files + " --period",
          {"1h", "99us", "0", "-1ms", "ms", "inf", "''", "nonsense --library %/no.so"});
    Fails(2, files + " --points", {"0", "1e3", "2147483647", "2147483648", "''"});
    Fails(2, files + " --channels", {"-1", "0,0", "0,", "x", "''"});
    Fails(2, files + " --trigger", {"0:1", "0:12.5:rising", "0:1:up", "0:nan:rising", "''"});
    Fails(2, files + " --set",
          {"0", "0:ampli", "0:ampli=0", "0:ampli=1e308", "0:offset=nan", "2:ampli=1",
           "0:function=1", "0:gain=1", "0:calibre=+-48V", "Volt:ampli=1"});
    Fails(2, files, {"--pre", "--colour", "--runs 0", "--library ''", "--lang de"});
    Fails(2, "",
          {"acquire --channels 5", "acquire --trigger 5:0:rising", "set 5 --ampli 2",
           "calibrate 5 --start"},
          "", StrEq("orvane: There is no channel 5; this console has 0 and 1."));
    setenv("ORVANE_FAULT", "start", 1);
    Dl_info noDriver{};
    ASSERT_NE(dladdr(reinterpret_cast<void*>(&dlclose), &noDriver), 0);
    Fails(1, "acquire --plot %/run.png", {"--csv %/no/run.csv", "--csv %", "--csv /dev/full"});
    Fails(1, files + " --library", {"%/no.so", "%", noDriver.dli_fname, FAULTY_DRIVER}, "", _);
    setenv("ORVANE_FAULT", "calibre", 1);
    Fails(1, files, {"--set 0:calibre=1 --library " FAULTY_DRIVER}, "",
          StrEq("orvane: The console does not select calibre 1."));
    for (const std::string file : {"--csv %/run.csv", "--plot %/run.png", "--plot %/run.svg"}) {
        EXPECT_THAT(Run("acquire --points 500 " + file, "ulimit -f 8;").Complaints,
                    ElementsAre(HasSubstr("cannot be written")));
    }
    EXPECT_THAT(FileNames(), IsEmpty());
}

const std::string instruments = " --library " INSTRUMENTS;

TEST_F(Orvane, TellsWhatTheConsoleMadeOfARequest) {
    const Result live =
        Run("acquire --live --period 129us --points 2 --trigger 0:12:falling --pre");
    EXPECT_THAT(live.Out, StartsWith("Period 129 µs, live samples"));
    EXPECT_THAT(live.Complaints, SizeIs(1)); // no pre-trigger points on this console
    // This console gives 0 all the time, and points before the trigger that it never waits for.
    const std::string run = "acquire --points 3 --channels 0 --csv %/run.csv" + instruments;
    for (const char* missed : {" --trigger 0:0.5:rising", " --trigger 0:0.5:falling --pre"}) {
        EXPECT_THAT(Run(run + missed).Complaints, ElementsAre(HasSubstr("did not wait")));
        EXPECT_THAT(Rows("run.csv")[1], StartsWith("0,")) << missed;
    }
    EXPECT_THAT(Rows("run.csv"), SizeIs(54));
    // The level is one of the host's scale.
    EXPECT_THAT(Run(run + " --trigger 0:2:falling --set 0:ampli=2,offset=1").Complaints, IsEmpty());
    EXPECT_THAT(Calls(), HasSubstr("OVAutoConfigSynchro(2, 0, 1, 0, 0.5)"));
}

TEST_F(Orvane, PlaysSignalsWhereThereIsAnOutput) {
    EXPECT_EQ(
        Run("signal --shape sine --amplitude 2 --offset -0.5 --frequency 50" + instruments).Out,
        "Output 0 plays a sine -1.5 … 0.5, 50 Hz, once for 20 ms, then it goes back to 0.\n");
    EXPECT_THAT(Calls(), HasSubstr("OVDacConfig(0, 0, 100000, 200, 1)\nOVDacLoad"));
    EXPECT_THAT(Run("signal --value -2.5" + instruments, interruptIn1s).Out,
                HasSubstr(" until Ctrl-C"));
    const std::string zero = "OVDacStop(0, 0)\nOVDacClear(0, 0)\nOVDacWrite(0, 0, 0)\n";
    EXPECT_THAT(Calls(), HasSubstr(zero + "OVDacWrite(0, 0, -2.5)\n" + zero));
    EXPECT_EQ(Run("signal --stop" + instruments).Code, 0);
    Fails(1, "signal", {"--stop"});
    Fails(2, "signal",
          {"", "--stop --value 1", "--value 10.5", "--value nan", "--stop --output 1",
           "--stop --loop", "--shape sine", "--shape saw --frequency 1",
           "--shape sine --frequency 0", "--stop --seconds 1", "--value 1 --seconds 0",
           "--shape sine --frequency 1 --amplitude 21"},
          instruments);
    const std::string sine = "signal --shape sine --frequency";
    Fails(2, sine, {"20000", "500000"}, instruments, HasSubstr("too slow"));
    Fails(2, sine, {"500001"}, instruments, HasSubstr("outside the range"));
    EXPECT_THAT(Calls(), Not(HasSubstr("OVDac")));
}

TEST_F(Orvane, SetsAChannelAndShowsTheEffect) {
    // The quantity, which isn't given, stays.
    EXPECT_THAT(Run("set Voltmètre --calibre +-24V --ampli 2 --offset 1 --unit µbar").Out,
                ContainsRegex("\\+-12V .*\\+-24V\n.* u\n.* µbar\n.* -12 … 12 .* -47 … 49\n"));
    EXPECT_EQ(Run("calibrate 1 --start --value 0:1.5 --abort" + instruments).Code, 0);
    EXPECT_THAT(Calls(), HasSubstr("OVCalibrationStart(2, 1)\nOVSetCalibrationValue(2, 1, 0, 1.5)\n"
                                   "OVCalibrationAbort(2, 1)\n"));
    EXPECT_EQ(Run("calibrate 1 --default" + instruments).Code, 0);
    EXPECT_THAT(Calls(), HasSubstr("OVCalibrationDefault(2, 1)\n"));
    Fails(2, "set", {"", "0 --ampli nan", "0 --ampli -2", "0 --calibre 2", "0 --function 1"});
    Fails(2, "calibrate 0", {"", "--value 1", "--value 0:inf"});
}

TEST_F(Orvane, SavesThePicturesThatExist) {
    EXPECT_THAT(Run("channels --images %/none").Out, HasSubstr("No channel has a picture."));
    EXPECT_THAT(Run("channels --images %/new" + instruments).Out, EndsWith("channel1.png\n"));
    EXPECT_THAT(Content(Files / "new/channel1.png"), StartsWith("\x89PNG"));
    Fails(1, "channels --images", {"%/new/channel1.png", "/proc/none"}, instruments);
}

TEST_F(Orvane, DisarmsGatesWhoseAdaptersChange) {
    setenv("ORVANE_CHANGES", "1", 1);
    Fails(1, "gates", {"--run 1"}, instruments, HasSubstr("adapters"));
    EXPECT_THAT(Calls(), HasSubstr("OVAutoStop()"));
}

} // namespace
