// The gates of a console as one row, and the calls of a run.

#include "adapter_exports.h"
#include "gate_exports.h"
#include "tests/support/started_driver.h"

#include <climits>
#include <cmath>

namespace {

ScriptedAdapter GateAdapter() {
    return Adapter("482060", std::vector<ScriptedChannel>(8, InputChannel("Gate", 0, 1)), 21);
}

/// A started driver over a console with gate adapters on these connectors, and another on 1.
void StartWithGates(const std::vector<uint8_t>& connectors, uint16_t model = 12304) {
    Console.Connectors = {{1, Adapter("482034", {InputChannel("Voltage", -12, 12)}, 12)}};
    for (const uint8_t connector : connectors) {
        Console.Connectors[connector] = GateAdapter();
    }
    StartDriver(model);
}

TEST(Gates, ReadOneOfTheirChannels) {
    StartWithGates({4, 2});
    for (const uint8_t connector : {uint8_t{2}, uint8_t{4}}) {
        constexpr double values[] = {1.0, 0.0, 1.0, 1.0, -1.5, 1.0, 0.999, HUGE_VAL};
        for (uint8_t canal = 0; canal < 8; ++canal) {
            Console.SetValue(connector, canal, values[canal]);
        }
    }
    EXPECT_FALSE(IsPorteClosedPortimetre());
    std::string states;
    for (const int32_t gate : {INT_MIN, -6, -5, -4, -3, -1, 0, 1, 2, 3, 4, 5, 6, INT_MAX}) {
        states += Text(GetEtatFourchePortimetre(gate));
        states += Calls("OVReadValue(4");
    }
    EXPECT_EQ(states, "0 | 0 | 0 | 1 | 1 | 1 | 0 | 1 | "
                      "1 | OVReadValue(4, 3, 1, 0) 1 | OVReadValue(4, 4, 1, 0) "
                      "0 | OVReadValue(4, 6, 1, 0) 1 | OVReadValue(4, 7, 1, 0) 0 | 0 | ");
    Console.Fail("OVReadValue");
    EXPECT_TRUE(IsPorteClosedPortimetre());
}

TEST(Gates, AreCountedByWhoNotesAChange) {
    StartWithGates({2, 3});
    EXPECT_EQ(GetNombreDeFourcheMaxPortimetre(), 3);
    Console.Unplug(2);
    EXPECT_FALSE(VerifCanaux());
    EXPECT_EQ(GetNombreDeFourcheMaxPortimetre(), 3) << "somebody else has noted it";
    Console.Plug(4, GateAdapter());
    Console.Plug(2, GateAdapter());
    EXPECT_EQ(GetNombreDeFourcheMaxPortimetre(), 5);
    EXPECT_TRUE(VerifCanaux());
    StartWithGates({});
    EXPECT_EQ(GetNombreDeFourcheMaxPortimetre(), 0);
    StartWithGates({2}, 12305);
    EXPECT_EQ(GetNombreDeFourcheMaxPortimetre(), 0) << "no model with gates";
}

TEST(Gates, AreArmedFromTheDoorOnAndCountAlsoWhereTheyAreNot) {
    StartWithGates({3, 2});
    Console.SynchroId = 9;
    EXPECT_TRUE(StartAcquisitionPortimetre(2));
    std::string armed;
    for (const std::string gate : {"(2, 3", "(2, 6", "(2, 7", "(3, 3", "(3, 4"}) {
        armed += "OVSelectFunction" + gate + ", 0) OVAutoConfigSynchro" + gate +
                 ", 0, 0, 0) OVAutoEnableSynchro(9) ";
    }
    EXPECT_EQ(Calls(), armed + "OVAutoConfigLog(5) OVAutoConfigAcq(100, 0) OVAutoStart() ");
    Console.Connectors[255] = GateAdapter();
    StartDriver();
    const auto arm = [](int32_t forks) {
        Console.TakeCalls();
        StartAcquisitionPortimetre(forks);
        const std::vector<std::string> selected = Console.CallsOf("OVSelectFunction");
        return selected.back() + Text(selected.size()) + Calls("OVAutoConfigLog");
    };
    EXPECT_EQ(arm(0), "OVSelectFunction(2, 3, 0)1 | OVAutoConfigLog(1) ");
    EXPECT_EQ(arm(5), "OVSelectFunction(255, 7, 0)11 | OVAutoConfigLog(11) ");
    EXPECT_EQ(arm(6), "OVSelectFunction(255, 7, 0)11 | OVAutoConfigLog(13) ");
    EXPECT_EQ(arm(INT_MAX), "OVSelectFunction(255, 7, 0)11 | OVAutoConfigLog(4294967295) ");
    EXPECT_EQ(arm(INT_MIN), "OVSelectFunction(2, 3, 0)1 | OVAutoConfigLog(1) ");
}

TEST(Gates, RunEndsWithItsReadOut) {
    EXPECT_TRUE(TestEndOfLogPortimetre());
    StartWithGates({2});
    Console.FailFrom(1);
    EXPECT_FALSE(StartAcquisitionPortimetre(1));
    Console.FailNothing();
    Console.TakeCalls();
    GetNombreDeFourcheMaxPortimetre();
    EXPECT_EQ(Calls(), "OVAutoStop() ") << "armed for all that";
    Console.Log = {{10, 500'000'000}, {0x80000010, 0xC0000000}};
    EXPECT_FALSE(TestEndOfLogPortimetre());
    for (const uint32_t crossing : {12U, 13U}) { // The last one, and one too many.
        Console.Log.push_back({crossing, 250'000'000});
        EXPECT_TRUE(TestEndOfLogPortimetre());
    }
    Console.TakeCalls();
    EXPECT_DOUBLE_EQ(GetTimeRayPortimetre(1), 1.75);
    EXPECT_DOUBLE_EQ(GetTimeRayPortimetre(0), 0x80000010 + 3.221225472 - 10.5);
    EXPECT_EQ(GetTimeRayPortimetre(INT_MAX), 0.0);
    EXPECT_EQ(Calls(), "OVAutoStop() OVAutoGetLogEntry(0) OVAutoGetLogEntry(2) "
                       "OVAutoGetLogEntry(0) OVAutoGetLogEntry(1) OVAutoGetLogEntry(0) ");
}

} // namespace
