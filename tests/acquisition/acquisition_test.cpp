// Buffered acquisition: set-up, run and read-back through the port.

#include "acquisition/acquisition_state.h"
#include "acquisition_exports.h"
#include "adapter_exports.h"
#include "gate_exports.h"
#include "platform/number_conversion.h"
#include "settings_exports.h"
#include "tests/support/fake_time.h"
#include "tests/support/started_driver.h"

#include <bit>
#include <cmath>

using namespace orvane;

namespace {

/// Three channels on a console of the model with pre-trigger points, enumerated and verified.
class AcquisitionTest : public testing::Test {
protected:
    AcquisitionTest() {
        Console.Connectors[1] = Adapter("1", {InputChannel("A", -12, 12), InputChannel("B", 0, 1)});
        Console.Connectors[2] = Adapter("2", {InputChannel("C", -1000, 1000)});
        Console.Sample = [](uint8_t connector, uint8_t, uint32_t index) {
            return connector * 100.0 + index;
        };
        Begin(12368);
    }
    static void Begin(uint16_t model) {
        StartDriver(model);
        VerifCanaux();
    }
    static void StartFree() {
        StartAcqBuff(0, 0, 0.0, 0);
    }
    static bool ReachesConsole(double dtSec, int32_t nbPoint, uint32_t mask, uint8_t pre = 0) {
        Console.TakeCalls();
        InitAcqBuff(dtSec, nbPoint, mask, pre);
        return !Calls().empty();
    }
};

TEST_F(AcquisitionTest, SetupCallsTheConsoleInOrder) {
    Console.Dt = 4294967295U;
    EXPECT_EQ(InitAcqBuff(1e-3, 200, 0xFFFFFFF8, 0), 4.294967295);
    EXPECT_EQ(AcqChannels.size(), 0U) << "bits beyond the list are left out";
    EXPECT_TRUE(TestFinAcq());
    Console.Connectors[3] = Adapter("3", std::vector(33, InputChannel("D", 0, 1)));
    Begin(12368);
    InitAcqBuff(1e-3, 200, 0x80000005, 1);
    EXPECT_EQ(Calls(), "OVAutoStop() OVAutoClear() OVAutoReset() OVAutoAddChannel(1, 0) "
                       "OVAutoAddChannel(2, 0) OVAutoAddChannel(3, 28) "
                       "OVAutoConfigAcq(1000000, 250) OVAutoGetDt() ");
    EXPECT_EQ(Text(AcqChannels.size(), Acquisition.AcqBufferPoints), "3 | 250 | ");
}

TEST_F(AcquisitionTest, PeriodIsClampedAndCutByTheModel) {
    const auto period = [](double dtSec) {
        InitAcqBuff(dtSec, 1, 1, 0);
        return Acquisition.dt;
    };
    EXPECT_EQ(Text(period(4.294967295), period(4.2949672955), period(0.0012345678), period(NAN)),
              "4294967295 | 1000000000 | 1234567 | 4294967295 | ");
    for (const uint16_t model : std::initializer_list<uint16_t>{12304, 12306, 12336}) {
        Begin(model);
        EXPECT_EQ(Text(period(0.0012345678), period(9e-7)), "1234000 | 0 | ") << model;
    }
    Begin(1);
    EXPECT_EQ(period(0.0012345678), 1234567U);
    EXPECT_EQ(Text(ToUint32(-0.9), ToUint32(4294967295.9), ToUint32(4294967296.0), ToUint32(-1.0)),
              "0 | 4294967295 | 4294967295 | 4294967295 | ");
}

TEST_F(AcquisitionTest, RepeatedSetupIsAnsweredFromTheCacheUnlessSomethingChanged) {
    EXPECT_TRUE(ReachesConsole(1e-3, 10, 3));
    EXPECT_TRUE(ReachesConsole(1e-3, 10, 3)) << "no start between";
    StartFree();
    StartFree();
    EXPECT_FALSE(ReachesConsole(1e-3, 10, 3));
    EXPECT_EQ(InitAcqBuff(1e-3, 10, 3, 0), 1e-3);
    Console.Plug(2);
    EXPECT_FALSE(ReachesConsole(1e-3, 10, 3)) << "a change that is not noted yet";
    VerifCanaux();
    const auto repeats = [](double dtSec, int32_t points = 10, uint32_t mask = 3, uint8_t pre = 0) {
        EXPECT_TRUE(ReachesConsole(1e-3, 10, 3)) << "whatever there was before";
        StartFree();
        return !ReachesConsole(dtSec, points, mask, pre);
    };
    EXPECT_FALSE(repeats(std::nextafter(1e-3, 1.0)) || repeats(1e-3, 11) || repeats(1e-3, 10, 1) ||
                 repeats(1e-3, 10, 3, 1) || repeats(NAN));
    StartFree();
    EXPECT_TRUE(ReachesConsole(NAN, 10, 3));
    EXPECT_TRUE(ReachesConsole(1e-3, 10, 3));
    StartAcqBuff(1, 0, 0.0, 0);
    EXPECT_TRUE(ReachesConsole(1e-3, 10, 3)) << "the trigger was switched on";
    StartAcqBuff(1, 0, 0.0, 0);
    EXPECT_FALSE(ReachesConsole(1e-3, 10, 3)) << "only the latest start counts";
    StopDll();
    StopAcqBuff();
    EXPECT_EQ(RecuperationPoint(0, 0), 0.0);
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
    const auto start = [](uint8_t used, uint8_t edge, double seuil, int32_t voie) {
        Console.TakeCalls();
        StartAcqBuff(used, edge, seuil, voie);
        return Calls();
    };
    const auto trigger = [](const std::string& arguments) {
        return "OVAutoConfigSynchro(" + arguments + ") OVAutoEnableSynchro(9) " +
               "OVAutoSetPreSynchro(9, 50) OVAutoStart() ";
    };
    MetAmpliPour(2, 2.0);
    MetOffsetPour(2, 1.0);
    MetModeSpecialPour(2, 1);
    Console.SynchroId = 9;
    InitAcqBuff(1e-3, 10, 3, 1);
    EXPECT_EQ(start(1, 3, 5.0, 2), trigger("2, 0, 2, 0, 2"));
    EXPECT_EQ(start(1, 3, 5.0, 2), "OVAutoStart() ") << "the trigger still stands";
    EXPECT_EQ(start(1, 3, 5.5, 2), trigger("2, 0, 2, 0, 2.25"));
    InputChannels[2]->ModeSpecial = 0;
    EXPECT_EQ(start(1, 0, 5.5, 2), trigger("2, 0, 1, 0, 5.5"));
    EXPECT_EQ(start(1, 0, 5.5, 1), trigger("1, 1, 1, 0, 5.5"));
    EXPECT_EQ(start(0, 0, 5.5, 1), "OVAutoStart() ");
    EXPECT_EQ(start(1, 0, 5.5, 1), trigger("1, 1, 1, 0, 5.5"));
    InitAcqBuff(1e-3, 10, 1, 1);
    EXPECT_EQ(start(1, 0, 5.5, 1), trigger("1, 1, 1, 0, 5.5")) << "a full set-up forgot it";
    EXPECT_EQ(start(1, 0, 0.1, 1), trigger("1, 1, 1, 0, 0.10000000149011612"));
    for (const int32_t beyond : {3, -1, 2147483647}) {
        EXPECT_EQ(start(1, 0, 0.1, beyond), "OVAutoStart() ") << beyond;
    }
}

TEST_F(AcquisitionTest, StartIsTriedTenTimes) {
    static std::string waits;
    UsePause([](unsigned long milliseconds) { waits += Text(milliseconds); });
    Console.Fail("OVAutoStart", 12);
    testing::internal::CaptureStderr();
    StartFree();
    EXPECT_EQ(waits, "200 | 250 | 300 | 350 | 400 | 450 | 500 | 550 | 600 | ");
    EXPECT_TRUE(Acquisition.AcqRunning);
    StartFree();
    EXPECT_EQ(waits.substr(54), "200 | 250 | ");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST_F(AcquisitionTest, CountsWithoutThePreTriggerPoints) {
    const auto countAt = [](uint32_t points) {
        Console.PointCount = points;
        return Text(TestNombreDePointAcqui(), TestFinAcq());
    };
    InitAcqBuff(1e-3, 100, 7, 1);
    Console.TakeCalls();
    EXPECT_EQ(countAt(30), "0 | 0 | ");
    EXPECT_EQ(Calls(), "OVAutoGetPointCount(2, 0, 0) OVAutoGetPointCount(2, 0, 0) ");
    EXPECT_EQ(countAt(149), "297 | 0 | ");
    EXPECT_EQ(countAt(150), "300 | 1 | ");
    EXPECT_EQ(countAt(4294967295U), "2147483647 | 1 | ");
    StopAcqBuff();
    Console.Plug(1);
    EXPECT_EQ(countAt(90), "300 | 1 | ") << "a change of adapters ends the run";
    EXPECT_EQ(RecuperationPoint(2, 0), 0.0) << "and hides its samples";
    Console.Fail("OVAutoGetPointCount");
    VerifCanaux();
    EXPECT_EQ(RecuperationPoint(2, 0), 250.0) << "until it is noted";
    EXPECT_EQ(countAt(90), "0 | 0 | ");
}

TEST_F(AcquisitionTest, SamplesAreReadLiveAndThenFromTheBuffers) {
    InputChannels[2]->Ampli = 2.0;
    InitAcqBuff(1e-3, 10, 0b110, 1);
    InputChannels[2]->Ampli = 5.0;
    StartFree();
    Console.PointCount = 60;
    Console.TakeCalls();
    EXPECT_EQ(RecuperationPoint(1, 3), 2.0 * 253.0) << "live, with the scale of the set-up";
    EXPECT_EQ(Text(RecuperationPoint(2, 0), RecuperationPoint(-1, 0)), "0 | 0 | ");
    EXPECT_EQ(Calls(), "OVAutoGetPoint(2, 0, 53, 0) ");
    StopAcqBuff();
    EXPECT_EQ(Calls(), "OVAutoGetPointCount(2, 0, 0) OVAutoGetPoints(1, 1, 0, 60) "
                       "OVAutoGetPoints(2, 0, 0, 60) OVAutoStop() OVAutoClear() ");
    EXPECT_EQ(RecuperationPoint(0, 9), 1.0) << "limited to the calibre";
    EXPECT_EQ(RecuperationPoint(1, 9), 2.0 * 259.0);
    EXPECT_EQ(RecuperationPoint(1, static_cast<uint32_t>(-50)), 2.0 * 200.0);
    Acquisition.AcqBufferPoints = 59; // Not the memory's end is what counts.
    for (const auto& [voie, point] : {std::pair{1, 9}, {1, -51}, {1, INT32_MIN}, {2, 0}, {-1, 0}}) {
        EXPECT_EQ(RecuperationPoint(voie, static_cast<uint32_t>(point)), 0.0) << point;
    }
    EXPECT_EQ(Calls() + Text(RecuperationVolume(), AccesPointModeBuff()), "0 | 1 | ");
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
    for (uint32_t index = 0; index < count; ++index) {
        const double single = voie.ConvertirBrut(OddSample(2, 0, index), true);
        ASSERT_EQ(std::bit_cast<uint64_t>(Acquisition.AcqBuffers[0][index]),
                  std::bit_cast<uint64_t>(single))
            << Text(index, count, ampli, min, max);
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

TEST_F(AcquisitionTest, RunStoppedShortReadsAsZerosAndFurtherStopsChangeNothing) {
    const auto samplesAfterStop = [](std::optional<uint32_t> points) {
        Console.PointCount = points;
        StopAcqBuff();
        return Text(RecuperationPoint(0, 0), RecuperationPoint(0, 5));
    };
    InitAcqBuff(1e-3, 10, 4, 0);
    StartFree();
    EXPECT_EQ(samplesAfterStop({}), "200 | 205 | ");
    EXPECT_FALSE(ReachesConsole(1e-3, 10, 4)) << "the same buffers again";
    StartFree();
    EXPECT_EQ(samplesAfterStop(9), "0 | 0 | ");
    Console.Fail("OVAutoGetPoints", 1);
    Console.Fail("OVAutoGetPoint", 1);
    EXPECT_EQ(samplesAfterStop({}), "0 | 205 | ") << "a refused read counts as 0.0";
    EXPECT_EQ(samplesAfterStop(0), "0 | 205 | ") << "the console has forgotten its count";
    Console.Fail("OVAutoGetPointCount", 1);
    EXPECT_EQ(samplesAfterStop({}), "0 | 205 | ") << "and refuses it";
    StartAcquisitionPortimetre(1);
    EXPECT_EQ(samplesAfterStop({}), "0 | 205 | ") << "and has run over gates";
}

} // namespace
