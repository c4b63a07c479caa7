// The gates of a console as one row, and the calls of a run.

#include "adapter_exports.h"
#include "gate_exports.h"
#include "gates/gate_numbering.h"
#include "lifecycle_exports.h"
#include "tests/support/scripted_console.h"

#include <gmock/gmock.h>

#include <limits>
#include <numeric>

using namespace orvane;

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr int32_t least = std::numeric_limits<int32_t>::min();
constexpr int32_t most = std::numeric_limits<int32_t>::max();

ScriptedAdapter GateAdapter() {
    return Adapter("482060", std::vector<ScriptedChannel>(8, InputChannel("Gate", 0, 1)), 21);
}

/// A started driver over a console with gate adapters on these connectors, and another on 1.
void StartWithGates(const std::vector<uint8_t>& connectors, uint16_t model = 12304) {
    Console.Model = model;
    Console.Memory.resize(32768);
    Console.Connectors[1] = Adapter("482034", {InputChannel("Voltage", -12, 12)}, 12);
    for (const uint8_t connector : connectors) {
        Console.Connectors[connector] = GateAdapter();
    }
    StartDll(0, "", "fr", -1);
    Console.TakeCalls();
}

TEST(Gates, LieOnTheRowByTruncatingArithmetic) {
    std::string row;
    for (int32_t gate = -6; gate <= 9; ++gate) {
        const auto [position, canal] = PlaceOfGate(gate);
        row += std::to_string(position) + ":" + std::to_string(canal) + " ";
    }
    EXPECT_EQ(row, "-1:3 0:1 0:0 0:4 0:3 0:4 0:6 0:7 1:3 1:4 1:6 1:7 2:3 2:4 2:6 2:7 ");
    EXPECT_EQ(PlaceOfGate(least).Position, -536870911);
    EXPECT_EQ(PlaceOfGate(most).Position, 536870912);
}

TEST(Gates, ReadOneOfTheirChannels) {
    StartWithGates({4, 2});
    Console.SetValue(2, 3, 1.0);
    Console.SetValue(4, 4, -1.5);
    Console.SetValue(4, 6, 0.999);
    Console.SetValue(4, 7, std::numeric_limits<double>::infinity());
    EXPECT_FALSE(IsPorteClosedPortimetre());
    EXPECT_EQ(GetEtatFourchePortimetre(3), 1);
    EXPECT_EQ(GetEtatFourchePortimetre(4), 0);
    EXPECT_EQ(GetEtatFourchePortimetre(5), 1);
    EXPECT_THAT(Console.TakeCalls(),
                ElementsAre("OVReadValue(2, 3, 1, 0)", "OVReadValue(4, 4, 1, 0)",
                            "OVReadValue(4, 6, 1, 0)", "OVReadValue(4, 7, 1, 0)"));
    for (const int32_t gate : {least, -6, 6, most}) {
        EXPECT_EQ(GetEtatFourchePortimetre(gate), 0) << gate;
    }
    EXPECT_THAT(Console.TakeCalls(), IsEmpty());
    Console.Fail("OVReadValue");
    EXPECT_TRUE(IsPorteClosedPortimetre());
}

TEST(Gates, AreCountedByWhoNotesAChange) {
    StartWithGates({2, 3});
    EXPECT_EQ(GetNombreDeFourcheMaxPortimetre(), 3);
    Console.Unplug(2);
    VerifCanaux();
    EXPECT_EQ(GetNombreDeFourcheMaxPortimetre(), 3);
    Console.Plug(4, GateAdapter());
    Console.Plug(2, GateAdapter());
    EXPECT_EQ(GetNombreDeFourcheMaxPortimetre(), 5);
    EXPECT_TRUE(VerifCanaux());
    Console.Connectors.clear();
    StartWithGates({});
    EXPECT_EQ(GetNombreDeFourcheMaxPortimetre(), 0);
    StartWithGates({2}, 12305);
    EXPECT_EQ(GetNombreDeFourcheMaxPortimetre(), 0);
}

TEST(Gates, AreArmedFromTheDoorOn) {
    StartWithGates({3, 2});
    Console.SynchroId = 9;
    EXPECT_TRUE(StartAcquisitionPortimetre(2));
    std::vector<std::string> expected;
    for (const std::string gate : {"2, 3", "2, 6", "2, 7", "3, 3", "3, 4"}) {
        expected.insert(expected.end(),
                        {"OVSelectFunction(" + gate + ", 0)",
                         "OVAutoConfigSynchro(" + gate + ", 0, 0, 0)", "OVAutoEnableSynchro(9)"});
    }
    expected.insert(expected.end(),
                    {"OVAutoConfigLog(5)", "OVAutoConfigAcq(100, 0)", "OVAutoStart()"});
    EXPECT_EQ(Console.TakeCalls(), expected);
}

TEST(Gates, CountAlsoWhereNoConnectorCarriesThem) {
    const auto arm = [](int32_t forks) {
        Console.TakeCalls();
        StartAcquisitionPortimetre(forks);
        return std::to_string(Console.CallsOf("OVSelectFunction").size()) + " armed, " +
               Console.CallsOf("OVAutoConfigLog").at(0);
    };
    StartWithGates({2});
    EXPECT_EQ(arm(0), "1 armed, OVAutoConfigLog(1)");
    EXPECT_EQ(arm(3), "3 armed, OVAutoConfigLog(7)");
    EXPECT_EQ(arm(most), "3 armed, OVAutoConfigLog(4294967295)");
    EXPECT_EQ(arm(least), "1 armed, OVAutoConfigLog(1)");
    Console.Unplug(2);
    EXPECT_EQ(arm(2), "0 armed, OVAutoConfigLog(5)");
    std::vector<uint8_t> everywhere(254);
    std::iota(everywhere.begin(), everywhere.end(), 2);
    StartWithGates(everywhere);
    EXPECT_EQ(arm(500), "1001 armed, OVAutoConfigLog(1001)");
    EXPECT_EQ(Console.CallsOf("OVSelectFunction").back(), "OVSelectFunction(252, 4, 0)");
}

TEST(Gates, RunEndsWithItsReadOut) {
    EXPECT_TRUE(TestEndOfLogPortimetre());
    StartWithGates({2});
    Console.FailFrom(1);
    EXPECT_FALSE(StartAcquisitionPortimetre(1));
    EXPECT_EQ(Console.TakeCalls().back(), "OVAutoStart()");
    Console.FailNothing();
    GetNombreDeFourcheMaxPortimetre();
    EXPECT_THAT(Console.TakeCalls(), ElementsAre("OVAutoStop()")); // Armed for all that.

    Console.Log = {{10, 500'000'000}, {0x80000010, 0xC0000000}};
    EXPECT_FALSE(TestEndOfLogPortimetre());
    Console.Log.push_back({12, 250'000'000});
    EXPECT_TRUE(TestEndOfLogPortimetre());
    Console.TakeCalls();
    EXPECT_DOUBLE_EQ(GetTimeRayPortimetre(1), 1.75);
    EXPECT_DOUBLE_EQ(GetTimeRayPortimetre(0), 0x80000010 + 3.221225472 - 10.5);
    EXPECT_EQ(GetTimeRayPortimetre(most), 0.0);
    EXPECT_THAT(Console.TakeCalls(), ElementsAre("OVAutoStop()", "OVAutoGetLogEntry(0)",
                                                 "OVAutoGetLogEntry(2)", "OVAutoGetLogEntry(0)",
                                                 "OVAutoGetLogEntry(1)", "OVAutoGetLogEntry(0)"));
}

} // namespace
