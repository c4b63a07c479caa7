// Faults that a console requests in its OVStartLibrary, made by the stack above it.

#include "console/stack/fault_plan.h"
#include "console/stack/layers.h"
#include "tests/support/fake_time.h"
#include "tests/support/scripted_console.h"

#include <gmock/gmock.h>

#include <cmath>
#include <cstring>
#include <thread>

using namespace orvane;
using namespace orvane::console_stack;

namespace {

/// A started console that requested these faults.
void Start(std::vector<PlannedFault> faults, FaultPlan plan = {}) {
    plan.Now = [] { return FakeNanoseconds; };
    plan.Faults = std::move(faults);
    Console.OnCall = [plan](const std::string& operation) {
        if (operation == "OVStartLibrary") {
            RequestedFaults = plan;
        }
    };
    ASSERT_TRUE(OVStartLibrary("", "fr"));
    Console.OnCall = nullptr;
    Console.TakeCalls();
}

/// What a number of calls of OVAutoStop give: a point for each refusal.
std::string Answers(int calls) {
    std::string text;
    for (int i = 0; i < calls; ++i) {
        text += OVAutoStop() ? 'y' : '.';
    }
    return text;
}

TEST(Faults, RefuseFromACallOnSoManyTimes) {
    Start({{.Operation = PortOperation::OVAutoStop, .FromCall = 3, .Refusals = 2},
           {.Operation = PortOperation::OVCountInterfaces, .Refusals = allCalls},
           {.Operation = PortOperation::OVAutoReset, .Refusals = 1},
           {.Operation = PortOperation::OVGetCalibreDesc, .Refusals = 1, .Unterminated = true},
           {.Operation = PortOperation::ShutdownConsole, .Refusals = allCalls},
           {.Operation = PortOperation::OVRelease, .Refusals = allCalls}});
    EXPECT_EQ(Answers(6), "yy..yy");
    EXPECT_EQ(OVCountInterfaces(2), 0);
    tCalibreDesc desc{};
    EXPECT_FALSE(OVGetCalibreDesc(0, 0, 0, 0, &desc));
    EXPECT_EQ(desc.Nom[0], '\0') << "a refusal writes nothing";
    OVAutoReset();
    OVAutoReset();
    ShutdownConsole();
    OVRelease();
    EXPECT_THAT(Console.TakeCalls(),
                testing::ElementsAre("OVAutoStop()", "OVAutoStop()", "OVAutoStop()", "OVAutoStop()",
                                     "OVAutoReset()", "ShutdownConsole()", "OVRelease()"));
    Start({{.Operation = PortOperation::OVAutoStart, .Refusals = 1}});
    EXPECT_EQ(Answers(3) + (OVAutoStart() ? "y" : "."), "yyy.") << "the faults of the last start";
}

TEST(Faults, RefuseByChanceTheSameEachTime) {
    Console.Recording = false;
    constexpr double probability = 0.01;
    constexpr int calls = 100'000;
    const auto answers = [](uint64_t seed) {
        Start({{.Operation = PortOperation::OVAutoStop,
                .Refusals = allCalls,
                .Probability = probability}},
              {.Seed = seed});
        return Answers(calls);
    };
    const std::string first = answers(1);
    const double sigma = std::sqrt(calls * probability * (1.0 - probability));
    EXPECT_NEAR(static_cast<double>(std::ranges::count(first, '.')), calls * probability,
                5.0 * sigma);
    EXPECT_EQ(answers(1), first);
    EXPECT_NE(answers(2), first);
}

TEST(Faults, TakeTimeAndBeginInTime) {
    UseFakeTime();
    constexpr int64_t ms = 1'000'000;
    Start(
        {{.Operation = PortOperation::OVAutoStop, .LatencyNs = 7 * ms},
         {.Operation = PortOperation::OVAutoStop, .FromNs = 20 * ms, .FromCall = 2, .Refusals = 1}},
        {.BusLatencyNs = 2 * ms, .RefusalNs = 1 * ms});
    const int64_t start = FakeNanoseconds;
    EXPECT_EQ(Answers(2), "yy");
    EXPECT_TRUE(OVAutoClear());
    EXPECT_EQ(FakeNanoseconds - start, 20 * ms);
    EXPECT_EQ(Answers(3), "y.y") << "calls before its time do not count";
    EXPECT_EQ(FakeNanoseconds - start, 48 * ms);
    EXPECT_EQ(FakeReadings, 0) << "a look at a clock can move it";
}

/// Whether a record's text has no terminator and begins as it did.
template <size_t N> bool IsFull(const char (&field)[N], std::string_view begin) {
    return strnlen(field, N) == N && std::string_view(field, N).starts_with(begin);
}

TEST(Faults, SpoilWhatTheConsoleTells) {
    Console.Connectors[1] = Adapter("482034", {InputChannel("U", -1, 1)});
    Console.Connectors[1].Channels[0].Text = "Etiquette = 3";
    std::vector<PlannedFault> faults{
        {.Operation = PortOperation::OVGetMemorySize, .MemorySize = 32767}};
    for (const PortOperation operation :
         {PortOperation::OVReadChannelText, PortOperation::OVGetInterfaceDesc,
          PortOperation::OVGetAdapterDesc, PortOperation::OVGetChannelDesc,
          PortOperation::OVGetFunctionDesc, PortOperation::OVGetCalibreDesc}) {
        faults.push_back({.Operation = operation, .Unterminated = true});
    }
    Start(faults);
    uint32_t size = 0;
    EXPECT_TRUE(OVGetMemorySize(0, 2, &size));
    EXPECT_EQ(size, 32767U);
    char text[20] = {};
    EXPECT_TRUE(OVReadChannelText(1, 0, text, 19));
    EXPECT_EQ(std::string_view(text), "Etiquette = 3      ");
    tInterfaceDesc interface {};
    EXPECT_TRUE(OVGetInterfaceDesc(&interface));
    EXPECT_TRUE(IsFull(interface.Nom, " ") && IsFull(interface.Image.TypeImage, " "));
    tAdapterDesc adapter{};
    EXPECT_TRUE(OVGetAdapterDesc(1, &adapter));
    EXPECT_TRUE(IsFull(adapter.Reference, "482034 ") && adapter.NbVoies == 1);
    tChannelDesc channel{};
    EXPECT_TRUE(OVGetChannelDesc(1, 0, &channel));
    EXPECT_TRUE(IsFull(channel.Nom, "U ") && channel.NbFonctions == 1);
    tFunctionDesc function{};
    EXPECT_TRUE(OVGetFunctionDesc(1, 0, 0, &function));
    EXPECT_TRUE(IsFull(function.Unite, "V ") && function.NbCalibres == 1);
    tCalibreDesc calibre{};
    EXPECT_TRUE(OVGetCalibreDesc(1, 0, 0, 0, &calibre));
    EXPECT_TRUE(IsFull(calibre.Nom, "Range ") && calibre.Max == 1.0F);
}

TEST(Faults, LeaveOtherOperationsAlone) {
    const PortTable console{};
    EXPECT_EQ(&Faults(console), &console);
    RequestedFaults.Faults = {{.Operation = PortOperation::OVAutoStop}};
    const PortTable& layer = Faults(console);
    EXPECT_NE(layer.OVAutoStop, nullptr);
    EXPECT_EQ(layer.OVReadValue, console.OVReadValue) << "no call more";
}

TEST(Faults, CountTheCallsOfAllThreads) {
    Console.Recording = false;
    constexpr uint64_t refusals = 1000;
    Start({{.Operation = PortOperation::OVReadValue, .FromCall = 500, .Refusals = refusals}});
    std::atomic<uint64_t> refused{0};
    const auto read = [&] {
        double value = 0.0;
        for (uint64_t i = 0; i < 2 * refusals; ++i) {
            refused += OVReadValue(0, 0, 1, 0, &value) ? 0U : 1U;
        }
    };
    Console.AcceptBeyond = true;
    std::thread other(read);
    read();
    other.join();
    EXPECT_EQ(refused, refusals);
}

} // namespace
