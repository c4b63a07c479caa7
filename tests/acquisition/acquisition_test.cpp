// Buffered acquisition: set-up, run and read-back through the port.

#include "acquisition/acquisition_state.h"
#include "acquisition_exports.h"
#include "adapter_exports.h"
#include "channel_exports.h"
#include "channels/channel_lists.h"
#include "connection/connection_state.h"
#include "gate_exports.h"
#include "lifecycle_exports.h"
#include "platform/number_conversion.h"
#include "tests/support/fake_time.h"
#include "tests/support/scripted_console.h"

#include <gmock/gmock.h>

#include <bit>
#include <cmath>
#include <limits>

using namespace orvane;

namespace {

using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;
using testing::StartsWith;

/// Three channels on a console of the model with pre-trigger points, enumerated and verified.
class AcquisitionTest : public testing::Test {
protected:
    AcquisitionTest() {
        Console.Memory.assign(32768, 0);
        Console.Connectors[1] = Adapter("1", {InputChannel("A", -12, 12), InputChannel("B", 0, 1)});
        Console.Connectors[2] = Adapter("2", {InputChannel("C", -1000, 1000)});
        Console.Sample = [](uint8_t connector, uint8_t, uint32_t index) {
            return connector * 100.0 + index;
        };
        Begin(12368);
    }
    static void Begin(uint16_t model) {
        Console.Model = model;
        StartDll(0, "", "fr", 0);
        VerifCanaux();
        CombienDeCanauxEnEntree();
        Console.TakeCalls();
    }
    static void StartFree() {
        StartAcqBuff(0, 0, 0.0, 0);
    }
    static bool ReachesConsole(double dtSec, int32_t nbPoint, uint32_t mask, uint8_t pre = 0) {
        Console.TakeCalls();
        InitAcqBuff(dtSec, nbPoint, mask, pre);
        return !Console.TakeCalls().empty();
    }
};

TEST_F(AcquisitionTest, SetupCallsTheConsoleInOrder) {
    EXPECT_EQ(InitAcqBuff(1e-3, 200, 0b101, 1), 1e-3);
    EXPECT_THAT(Console.TakeCalls(), ElementsAre("OVAutoStop()", "OVAutoClear()", "OVAutoReset()",
                                                 "OVAutoAddChannel(1, 0)", "OVAutoAddChannel(2, 0)",
                                                 "OVAutoConfigAcq(1000000, 250)", "OVAutoGetDt()"));
    EXPECT_THAT(AcqChannels, SizeIs(2));
    EXPECT_EQ(Acquisition.AcqBufferPoints, 250U);
    Console.Dt = 4294967295U;
    EXPECT_EQ(InitAcqBuff(1e-3, 200, 0xFFFFFFF8, 0), 4.294967295);
    EXPECT_THAT(AcqChannels, IsEmpty()) << "bits beyond the list are left out";
    EXPECT_TRUE(TestFinAcq());
}

TEST_F(AcquisitionTest, PeriodIsClampedAndRoundedByTheModel) {
    const auto periodOf = [](double dtSec) {
        InitAcqBuff(dtSec, 1, 1, 0);
        return Acquisition.dt;
    };
    EXPECT_EQ(periodOf(4.294967295), 4294967295U);
    EXPECT_EQ(periodOf(4.3), 1000000000U);
    EXPECT_EQ(periodOf(0.0012345678), 1234567U);
    EXPECT_EQ(periodOf(NAN), 4294967295U);
    EXPECT_EQ(periodOf(-1.0), 4294967295U);
    for (const uint16_t model : std::initializer_list<uint16_t>{12304, 12306, 12336}) {
        Begin(model);
        EXPECT_EQ(periodOf(0.0012345678), 1234000U) << model;
        EXPECT_EQ(periodOf(9e-7), 0U);
    }
    Begin(1);
    EXPECT_EQ(periodOf(0.0012345678), 1234567U);
    EXPECT_EQ(ToUint32(-0.9), 0U);
    EXPECT_EQ(ToUint32(4294967295.9), 4294967295U);
    EXPECT_EQ(ToUint32(4294967296.0), 4294967295U);
    EXPECT_EQ(ToUint32(-std::numeric_limits<double>::infinity()), 4294967295U);
}

TEST_F(AcquisitionTest, RepeatedSetupIsAnsweredFromTheCache) {
    EXPECT_TRUE(ReachesConsole(1e-3, 10, 3));
    EXPECT_TRUE(ReachesConsole(1e-3, 10, 3)) << "no start between";
    StartFree();
    EXPECT_FALSE(ReachesConsole(1e-3, 10, 3));
    EXPECT_EQ(InitAcqBuff(1e-3, 10, 3, 0), 1e-3);
    EXPECT_TRUE(ReachesConsole(1e-3, 10, 3, 1)) << "pre-trigger points change the count";
    const auto repeats = [](double dtSec = 1e-3, int32_t points = 10, uint32_t mask = 3) {
        InitAcqBuff(1e-3, 10, 3, 0);
        StartFree();
        return !ReachesConsole(dtSec, points, mask);
    };
    EXPECT_TRUE(repeats());
    EXPECT_FALSE(repeats(1.1e-3));
    EXPECT_FALSE(repeats(std::nextafter(1e-3, 1.0)));
    EXPECT_TRUE(ReachesConsole(1e-3, 10, 3)) << "that forces a full set-up before each run";
    EXPECT_FALSE(repeats(1e-3, 11));
    EXPECT_FALSE(repeats(1e-3, 10, 1));
    InitAcqBuff(NAN, 10, 3, 0);
    StartFree();
    EXPECT_TRUE(ReachesConsole(NAN, 10, 3));
}

TEST_F(AcquisitionTest, ChangesMakeTheNextSetupAFullOne) {
    const auto prepare = [] {
        InitAcqBuff(1e-3, 10, 3, 0);
        StartFree();
        StartFree();
    };
    prepare();
    Console.Plug(2);
    EXPECT_FALSE(ReachesConsole(1e-3, 10, 3)) << "a change that is not noted yet";
    VerifCanaux();
    EXPECT_TRUE(ReachesConsole(1e-3, 10, 3));
    prepare();
    StartAcqBuff(1, 0, 0.0, 0);
    EXPECT_TRUE(ReachesConsole(1e-3, 10, 3)) << "the trigger was switched on";
    StartAcqBuff(1, 0, 0.0, 0);
    EXPECT_FALSE(ReachesConsole(1e-3, 10, 3)) << "only the latest start counts";
    prepare();
    StopDll();
    StopAcqBuff();
    EXPECT_EQ(RecuperationPoint(0, 0), 0.0);
    EXPECT_THAT(Console.CallsOf("OVAutoGetPoint("), IsEmpty());
    EXPECT_TRUE(ReachesConsole(1e-3, 10, 3)) << "the buffers are gone";
}

TEST_F(AcquisitionTest, RefusedSetupSaysSoAndIsNeverRepeated) {
    Console.Fail("OVAutoConfigAcq", 2);
    testing::internal::CaptureStderr();
    EXPECT_EQ(InitAcqBuff(2e-3, 7, 1, 1), 0.0);
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "Erreur OVAutoConfigAcq dt=2000000   NbPoint=7  NbPointPreSynchroUsed=50\n");
    EXPECT_TRUE(TestFinAcq());
    StartFree();
    EXPECT_TRUE(ReachesConsole(2e-3, 7, 1, 1));
    EXPECT_EQ(InitAcqBuff(2e-3, 7, 1, 1), 2e-3);
}

TEST_F(AcquisitionTest, TriggerIsProgrammedWhenSomethingChanged) {
    TvlVoieOrvane& voie = *InputChannels[2];
    voie.Ampli = 2.0;
    voie.Offset = 1.0;
    voie.ModeSpecial = 1;
    Console.SynchroId = 9;
    InitAcqBuff(1e-3, 10, 3, 1);
    Console.TakeCalls();
    StartAcqBuff(1, 3, 5.0, 2);
    EXPECT_THAT(Console.TakeCalls(),
                ElementsAre("OVAutoConfigSynchro(2, 0, 2, 0, 2)", "OVAutoEnableSynchro(9)",
                            "OVAutoSetPreSynchro(9, 50)", "OVAutoStart()"));
    StartAcqBuff(1, 3, 5.0, 2);
    EXPECT_THAT(Console.TakeCalls(), ElementsAre("OVAutoStart()")) << "the trigger still stands";
    voie.ModeSpecial = 0;
    StartAcqBuff(1, 0, 0.1, 2);
    EXPECT_THAT(Console.TakeCalls(),
                Contains("OVAutoConfigSynchro(2, 0, 1, 0, 0.10000000149011612)"));
    StartAcqBuff(0, 0, 7.0, 2);
    EXPECT_THAT(Console.TakeCalls(), ElementsAre("OVAutoStart()"));
    InitAcqBuff(1e-3, 10, 3, 1);
    for (const int32_t beyond : {3, -1, 2147483647}) {
        Console.TakeCalls();
        StartAcqBuff(1, 0, 1.0, beyond);
        EXPECT_THAT(Console.TakeCalls(), ElementsAre("OVAutoStart()")) << beyond;
    }
    InitAcqBuff(1e-3, 10, 3, 1);
    Console.TakeCalls();
    StartAcqBuff(1, 0, 1.0, 1);
    StartAcqBuff(1, 0, 1.0, 1);
    EXPECT_THAT(Console.CallsOf("OVAutoConfigSynchro"), SizeIs(1));
    InitAcqBuff(1e-3, 10, 1, 1);
    StartAcqBuff(1, 0, 1.0, 1);
    EXPECT_THAT(Console.CallsOf("OVAutoConfigSynchro"), SizeIs(2)) << "a full set-up forgot it";
}

std::vector<unsigned long> Waits;

TEST_F(AcquisitionTest, StartIsTriedTenTimes) {
    UsePause([](unsigned long milliseconds) { Waits.push_back(milliseconds); });
    Console.Fail("OVAutoStart");
    testing::internal::CaptureStderr();
    StartFree();
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    EXPECT_THAT(Waits, ElementsAre(200, 250, 300, 350, 400, 450, 500, 550, 600));
    EXPECT_THAT(Console.CallsOf("OVAutoStart"), SizeIs(10));
    EXPECT_TRUE(Acquisition.AcqRunning);
    Waits.clear();
    Console.Fail("OVAutoStart", 2);
    StartFree();
    EXPECT_THAT(Waits, ElementsAre(200, 250));
}

TEST_F(AcquisitionTest, CountsWithoutThePreTriggerPoints) {
    const auto countAt = [](std::optional<uint32_t> points) {
        Console.PointCount = points;
        return TestNombreDePointAcqui();
    };
    InitAcqBuff(1e-3, 100, 7, 0);
    EXPECT_EQ(countAt(40), 120);
    EXPECT_FALSE(TestFinAcq());
    EXPECT_EQ(countAt(100), 300);
    EXPECT_TRUE(TestFinAcq());
    EXPECT_THAT(Console.CallsOf("OVAutoGetPointCount"), Each("OVAutoGetPointCount(2, 0, 0)"));
    InitAcqBuff(1e-3, 100, 7, 1);
    EXPECT_EQ(countAt(30), 0);
    EXPECT_EQ(countAt(90), 120);
    EXPECT_EQ(countAt(4294967295U), 2147483647);
    EXPECT_TRUE(TestFinAcq());
    StopAcqBuff();
    countAt(90);
    Console.Plug(1);
    EXPECT_EQ(TestNombreDePointAcqui(), 300) << "a change of adapters ends the run";
    EXPECT_TRUE(TestFinAcq());
    EXPECT_EQ(RecuperationPoint(2, 0), 0.0) << "and hides its samples";
    Console.Fail("OVAutoGetPointCount");
    VerifCanaux();
    EXPECT_EQ(RecuperationPoint(2, 0), 250.0) << "until it is noted";
    EXPECT_EQ(TestNombreDePointAcqui(), 0);
}

TEST_F(AcquisitionTest, SamplesAreReadLiveAndThenFromTheBuffers) {
    InputChannels[2]->Ampli = 2.0;
    InitAcqBuff(1e-3, 10, 0b110, 1);
    InputChannels[2]->Ampli = 5.0;
    StartFree();
    Console.PointCount = 60;
    EXPECT_EQ(RecuperationPoint(1, 3), 2.0 * 253.0) << "live, with the scale of the set-up";
    EXPECT_THAT(Console.CallsOf("OVAutoGetPoint("), ElementsAre("OVAutoGetPoint(2, 0, 53, 0)"));
    EXPECT_EQ(RecuperationPoint(2, 0), 0.0);
    EXPECT_EQ(RecuperationPoint(-1, 0), 0.0);
    Console.TakeCalls();
    StopAcqBuff();
    EXPECT_THAT(Console.CallsOf("OVAutoGetPoint("), IsEmpty());
    EXPECT_THAT(Console.CallsOf("OVAutoGetPoints"),
                ElementsAre("OVAutoGetPoints(1, 1, 0, 60)", "OVAutoGetPoints(2, 0, 0, 60)"));
    EXPECT_EQ(Console.TakeCalls().back(), "OVAutoClear()");
    EXPECT_EQ(RecuperationPoint(0, 9), 1.0) << "limited to the calibre";
    EXPECT_EQ(RecuperationPoint(1, 9), 2.0 * 259.0);
    EXPECT_EQ(RecuperationPoint(1, static_cast<uint32_t>(-50)), 2.0 * 200.0);
    for (const uint32_t outside : {10U, static_cast<uint32_t>(-51), 2147483648U}) {
        EXPECT_EQ(RecuperationPoint(1, outside), 0.0) << outside;
    }
    for (const int32_t outside : {2, -1, 2147483647}) {
        EXPECT_EQ(RecuperationPoint(outside, 0), 0.0) << outside;
    }
    Acquisition.AcqBufferPoints = 59; // Not the memory's end is what counts.
    EXPECT_EQ(RecuperationPoint(1, 9), 0.0);
    EXPECT_THAT(Console.TakeCalls(), IsEmpty());
    EXPECT_EQ(RecuperationVolume(), 0.0);
    EXPECT_TRUE(AccesPointModeBuff());
}

/// Ordinary values, and every 5th one that is none.
double OddSample(uint8_t /*connector*/, uint8_t /*channel*/, uint32_t index) {
    constexpr double odd[] = {NAN, -0.0, INFINITY, -INFINITY, 5e-324};
    return index % 5 == 0 ? odd[index / 5 % std::size(odd)] : index / 3.0 - 9000.0;
}

void ExpectFetched(uint32_t count, double ampli, double offset, double min, double max) {
    TvlVoieOrvane& voie = *InputChannels[2];
    voie.Ampli = ampli;
    voie.Offset = offset;
    voie.MinCalibre = min;
    voie.MaxCalibre = max;
    InitAcqBuff(1e-3, static_cast<int32_t>(count), 4, 0);
    StopAcqBuff();
    const double* const fetched = Acquisition.AcqBuffers[0].get();
    for (uint32_t index = 0; index < count; ++index) {
        const double single = voie.ConvertirBrut(OddSample(2, 0, index), true);
        ASSERT_EQ(std::bit_cast<uint64_t>(fetched[index]), std::bit_cast<uint64_t>(single))
            << index << " of " << count << " with scale " << ampli << ", limits " << min << " to "
            << max;
    }
}

TEST_F(AcquisitionTest, BlocksGiveWhatSingleReadsGive) {
    Console.Sample = OddSample;
    Console.Recording = false;
    static uint32_t refused = 0; // Counts down to the block that is.
    Console.OnCall = [](const std::string& operation) {
        if (operation == "OVAutoGetPoints" && refused > 0 && --refused == 0) {
            Console.Fail("OVAutoGetPoints", 1);
        }
    };
    for (const uint32_t count : {0U, 1U, 65535U, 65536U, 65537U, 131073U}) {
        for (const std::optional<uint32_t> got : std::initializer_list<std::optional<uint32_t>>{
                 {}, 0, 1000, 4294967295U}) { // All, none, some, more than there is room for.
            Console.PointsGot = got;
            ExpectFetched(count, -2.5, 0.1, -1000.0, 1e4);
        }
        refused = 2;
        ExpectFetched(count, 1.0, 0.0, NAN, 3.0);
    }
    ExpectFetched(1000, 1e306, -INFINITY, -INFINITY, INFINITY);
    ExpectFetched(1000, 0.0, -0.0, -12.0, NAN);
    ExpectFetched(1000, 2.0, 1.0, -1e4, 1e4);
    Console.Connectors.clear();
    Console.AcceptBeyond = true; // It tells of samples and writes none.
    StopAcqBuff();
    EXPECT_EQ(RecuperationPoint(0, 998), 1.0) << "the console value 0.0";
}

TEST_F(AcquisitionTest, RunStoppedShortReadsAsZeros) {
    InitAcqBuff(1e-3, 10, 4, 0);
    StartFree();
    StopAcqBuff();
    EXPECT_EQ(RecuperationPoint(0, 5), 205.0);
    EXPECT_FALSE(ReachesConsole(1e-3, 10, 4)) << "the same buffers again";
    StartFree();
    Console.PointCount = 9;
    StopAcqBuff();
    EXPECT_EQ(RecuperationPoint(0, 5), 0.0);
    Console.PointCount = 10;
    Console.Fail("OVAutoGetPoints", 1);
    Console.Fail("OVAutoGetPoint", 1);
    StopAcqBuff();
    EXPECT_EQ(RecuperationPoint(0, 0), 0.0) << "a refused read counts as 0.0";
    EXPECT_EQ(RecuperationPoint(0, 1), 201.0);
}

TEST_F(AcquisitionTest, FurtherStopsLeaveTheFetchedSamples) {
    InitAcqBuff(1e-3, 10, 4, 0);
    StartFree();
    StopAcqBuff();
    Console.PointCount = 0;
    StopAcqBuff();
    EXPECT_EQ(RecuperationPoint(0, 5), 205.0) << "the console has forgotten its count";
    Console.PointCount.reset();
    Console.Fail("OVAutoGetPointCount", 1);
    StopAcqBuff();
    EXPECT_EQ(RecuperationPoint(0, 5), 205.0) << "and refuses it";
    StartAcquisitionPortimetre(1);
    StopAcqBuff();
    EXPECT_EQ(RecuperationPoint(0, 5), 205.0) << "and has run over gates";
}

TEST_F(AcquisitionTest, AbsurdCountsHoldNothingAndBreakNothing) {
#ifdef __SANITIZE_THREAD__
    constexpr int32_t most = 1'000'000; // Its bookkeeping costs more than the pages themselves.
#else
    constexpr int32_t most = 2147483647;
#endif
    try {
        InitAcqBuff(1e-3, most, 7, 1);
        EXPECT_EQ(Acquisition.AcqBufferPoints, uint32_t{most} + 50U);
        Console.PointCount = most;
        EXPECT_FALSE(TestFinAcq());
    } catch (const std::bad_alloc&) {
        EXPECT_EQ(RecuperationPoint(2, 0), 0.0);
    }
    Console.PointCount = 5;
    StopAcqBuff();
    EXPECT_EQ(RecuperationPoint(0, most - 1), 0.0);
}

} // namespace
