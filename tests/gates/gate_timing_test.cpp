#include "adapter_exports.h"
#include "gate_exports.h"
#include "gates/gate_numbering.h"
#include "lifecycle_exports.h"
#include "tests/support/scripted_console.h"

#include <gmock/gmock.h>

#include <limits>
#include <numeric>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr int32_t least = std::numeric_limits<int32_t>::min();
constexpr int32_t most = std::numeric_limits<int32_t>::max();

ScriptedAdapter GateAdapter() {
    const ScriptedChannel channel = InputChannel("Gate", 0, 1);
    return Adapter("482060", std::vector<ScriptedChannel>(8, channel), 21);
}

/// A started driver over a console with gate adapters on these connectors, and another adapter on
/// connector 1.
void StartWithGates(const std::vector<uint8_t>& connectors, uint16_t model = 12304) {
    Console.Model = model;
    Console.Memory.resize(32768);
    Console.Connectors[1] = Adapter("482034", {InputChannel("Voltage", -12, 12)}, 12);
    for (const uint8_t connector : connectors) {
        Console.Connectors[connector] = GateAdapter();
    }
    ASSERT_TRUE(StartDll(0, "", "fr", -1));
    Console.TakeCalls();
}

} // namespace

TEST(Gates, LieOnTheRowByTruncatingArithmetic) {
    std::vector<std::pair<int64_t, int>> places;
    for (int32_t gate = -5; gate <= 9; ++gate) {
        const auto [position, canal] = PlaceOfGate(gate);
        places.emplace_back(position, canal);
    }
    using Place = std::pair<int64_t, int>;
    EXPECT_THAT(places,
                ElementsAre(Place(0, 1), Place(0, 0), Place(0, 4), Place(0, 3), Place(0, 4),
                            Place(0, 6), Place(0, 7), Place(1, 3), Place(1, 4), Place(1, 6),
                            Place(1, 7), Place(2, 3), Place(2, 4), Place(2, 6), Place(2, 7)));
    EXPECT_EQ(PlaceOfGate(-6).Position, -1);
    EXPECT_LT(PlaceOfGate(least).Position, 0);
    EXPECT_EQ(PlaceOfGate(most).Position, 536870912);
}

TEST(Gates, ReadOneOfTheirChannels) {
    StartWithGates({4, 2});
    Console.SetValue(2, 3, 1.0);
    Console.SetValue(4, 4, -1.5);
    Console.SetValue(4, 6, 0.999);
    Console.SetValue(4, 7, std::numeric_limits<double>::infinity());
    EXPECT_FALSE(IsPorteClosedPortimetre());
    EXPECT_EQ(GetEtatFourchePortimetre(2), 0);
    EXPECT_EQ(GetEtatFourchePortimetre(3), 1);
    EXPECT_EQ(GetEtatFourchePortimetre(4), 0);
    EXPECT_EQ(GetEtatFourchePortimetre(5), 1);
    EXPECT_THAT(Console.TakeCalls(),
                ElementsAre("OVReadValue(2, 3, 1, 0)", "OVReadValue(4, 3, 1, 0)",
                            "OVReadValue(4, 4, 1, 0)", "OVReadValue(4, 6, 1, 0)",
                            "OVReadValue(4, 7, 1, 0)"));
    for (const int32_t gate : {least, -6, 6, most}) {
        EXPECT_EQ(GetEtatFourchePortimetre(gate), 0) << gate;
    }
    EXPECT_THAT(Console.TakeCalls(), IsEmpty());
    Console.Fail("OVReadValue");
    EXPECT_TRUE(IsPorteClosedPortimetre());
}

TEST(Gates, AreCountedWhenAdaptersChanged) {
    StartWithGates({2, 3});
    EXPECT_EQ(GetNombreDeFourcheMaxPortimetre(), 3);
    Console.Unplug(2);
    VerifCanaux();
    EXPECT_EQ(GetNombreDeFourcheMaxPortimetre(), 3); // The change was noted before.
    Console.Plug(2, GateAdapter());
    Console.Plug(4, GateAdapter());
    EXPECT_EQ(GetNombreDeFourcheMaxPortimetre(), 5);
    EXPECT_TRUE(VerifCanaux());
    for (const uint8_t connector : std::vector<uint8_t>{2, 3, 4}) {
        Console.Unplug(connector);
    }
    EXPECT_EQ(GetNombreDeFourcheMaxPortimetre(), 0);
    StopDll();
    StartWithGates({2}, 12305);
    EXPECT_EQ(GetNombreDeFourcheMaxPortimetre(), 0);
}

TEST(Gates, AreArmedFromTheDoorOn) {
    StartWithGates({3, 2});
    Console.SynchroId = 9;
    EXPECT_TRUE(StartAcquisitionPortimetre(2));
    std::vector<std::string> expected;
    for (const char* gate : {"2, 3", "2, 6", "2, 7", "3, 3", "3, 4"}) {
        expected.push_back(std::string("OVSelectFunction(") + gate + ", 0)");
        expected.push_back(std::string("OVAutoConfigSynchro(") + gate + ", 0, 0, 0)");
        expected.emplace_back("OVAutoEnableSynchro(9)");
    }
    for (const char* call : {"OVAutoConfigLog(5)", "OVAutoConfigAcq(100, 0)", "OVAutoStart()"}) {
        expected.emplace_back(call);
    }
    EXPECT_EQ(Console.TakeCalls(), expected);
}

TEST(Gates, CountAlsoWhereNoConnectorCarriesThem) {
    const auto armed = [](int32_t forks) {
        Console.TakeCalls();
        StartAcquisitionPortimetre(forks);
        return Console.CallsOf("OVSelectFunction").size();
    };
    const auto logged = [] { return Console.CallsOf("OVAutoConfigLog").at(0); };
    StartWithGates({2});
    EXPECT_EQ(armed(0), 1U);
    EXPECT_EQ(logged(), "OVAutoConfigLog(1)");
    EXPECT_EQ(armed(3), 3U);
    EXPECT_EQ(logged(), "OVAutoConfigLog(7)");
    EXPECT_EQ(armed(most), 3U);
    EXPECT_EQ(logged(), "OVAutoConfigLog(4294967295)");
    EXPECT_FALSE(TestEndOfLogPortimetre());
    EXPECT_EQ(armed(least), 1U);
    Console.Unplug(2);
    EXPECT_EQ(armed(2), 0U);
    EXPECT_EQ(logged(), "OVAutoConfigLog(5)");
    // A row longer than any console has.
    StopDll();
    std::vector<uint8_t> row(254);
    std::iota(row.begin(), row.end(), 2);
    StartWithGates(row);
    EXPECT_EQ(armed(300), 601U);
    EXPECT_EQ(Console.CallsOf("OVSelectFunction").back(), "OVSelectFunction(152, 4, 0)");
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
    EXPECT_EQ(GetTimeRayPortimetre(2), 0.0);
    EXPECT_EQ(GetTimeRayPortimetre(most), 0.0);
    EXPECT_THAT(Console.TakeCalls(),
                ElementsAre("OVAutoStop()", "OVAutoGetLogEntry(0)", "OVAutoGetLogEntry(2)",
                            "OVAutoGetLogEntry(0)", "OVAutoGetLogEntry(1)", "OVAutoGetLogEntry(0)",
                            "OVAutoGetLogEntry(3)", "OVAutoGetLogEntry(0)"));
}
