// The virtual console behind the port.

#include "console/console_port.h"
#include "console/text_fields.h"
#include "lifecycle_exports.h"
#include "tests/support/allocation_failures.h"
#include "tests/support/answer_text.h"
#include "tests/support/fake_time.h"

#include <gmock/gmock.h>

#include <chrono>
#include <cstdlib>
#include <cstring>
#include <set>
#include <thread>

using namespace orvane;

namespace {

using testing::ElementsAre;
using testing::StartsWith;

class VirtualConsole : public testing::Test {
protected:
    VirtualConsole() {
        EXPECT_TRUE(OVOpen(ConsoleInterfaceId));
    }
};

double Read(uint8_t connector) {
    double value = NAN;
    OVReadValue(connector, 0, 1, 0, &value);
    return value;
}

TEST_F(VirtualConsole, DescribesTwoAdapters) {
    tAdapterDesc adapter{};
    tChannelDesc channel{};
    tFunctionDesc function{};
    tCalibreDesc calibre{};
    EXPECT_TRUE(OVGetChannelDesc(2, 0, &channel) && OVGetFunctionDesc(2, 0, 0, &function) &&
                OVGetCalibreDesc(2, 0, 0, 1, &calibre) && OVGetAdapterDesc(2, &adapter));
    EXPECT_EQ(Text(adapter.Nom, adapter.Reference, std::string(adapter.ManufacturingDate, 8),
                   channel.Description, +channel.Sens, channel.PeriodeDefautNs, function.Nom,
                   function.NomGrandeur, function.Grandeur, function.Unite, calibre.Nom),
              "Ampèremetre | Reference Adapt 2 | Manufact | Description ch 1 adapt 2 | 1 | 1000000 "
              "| Intensité instantanée | Intensité | i | A | 2A | ");
    EXPECT_TRUE(OVGetAdapterDesc(0, &adapter));
    EXPECT_EQ(adapter.NbVoies, 0);
    SetText(adapter.Nom, std::string(300, 'x'));
    EXPECT_EQ(std::string(adapter.Nom), std::string(255, 'x')) << "with its terminator";
}

/// Whether a read is refused and leaves every byte of the record alone.
template <class Record> bool LeavesAlone(auto read) {
    Record records[2];
    std::memset(static_cast<void*>(records), 'x', sizeof records);
    return !read(records) && std::memcmp(records, records + 1, sizeof(Record)) == 0;
}

TEST_F(VirtualConsole, RefusesWhatItDoesNotHaveAndWritesNothing) {
    struct Block {
        double Value;
        uint32_t Got;
    };
    EXPECT_TRUE(
        LeavesAlone<tAdapterDesc>([](auto* to) { return OVGetAdapterDesc(3, to); }) &&
        LeavesAlone<tChannelDesc>([](auto* to) { return OVGetChannelDesc(0, 0, to); }) &&
        LeavesAlone<tChannelDesc>([](auto* to) { return OVGetChannelDesc(1, 1, to); }) &&
        LeavesAlone<tFunctionDesc>([](auto* to) { return OVGetFunctionDesc(1, 0, 1, to); }) &&
        LeavesAlone<tCalibreDesc>([](auto* to) { return OVGetCalibreDesc(1, 0, 0, 2, to); }) &&
        LeavesAlone<double>([](auto* to) { return OVReadValue(1, 1, 1, 0, to); }) &&
        LeavesAlone<Block>(
            [](auto* to) { return OVAutoGetPoints(1, 1, 0, 1, &to->Value, &to->Got); }));
    EXPECT_FALSE(OVSelectFunction(1, 0, 1) || OVSelectCalibre(1, 0, 2) ||
                 OVSelectCalibre(255, 255, 255) || OVAutoAddChannel(1, 1));
    OVRelease();
    OVRelease();
    tAdapterDesc adapter{};
    EXPECT_TRUE(std::isnan(Read(1)));
    EXPECT_TRUE(OVGetAdapterDesc(1, &adapter));
    EXPECT_EQ(adapter.NbVoies, 0);
}

TEST_F(VirtualConsole, OpensWholeOrNotAtAllWhereMemoryRunsOut) {
    tAdapterDesc adapter{};
    const std::size_t live = (OVRelease(), allocation_failures::LiveBlocks());
    std::size_t failing = 0;
    for (bool opened = false; !opened; OVRelease()) {
        allocation_failures::FailOne(++failing);
        opened = OVOpen(ConsoleInterfaceId);
        allocation_failures::End();
        ASSERT_EQ(opened, allocation_failures::Count() < failing);
        OVGetAdapterDesc(2, &adapter);
        ASSERT_EQ(adapter.NbVoies, opened ? 1 : 0) << failing;
        ASSERT_TRUE(opened || allocation_failures::LiveBlocks() == live) << failing;
    }
    EXPECT_GT(failing, 6U) << "the nodes of two adapters at least";
}

/// What the runtime draws first after a seed.
int RuntimesDraw(unsigned seed) {
    srand(seed);
    return rand() % 40;
}

TEST_F(VirtualConsole, MeasuresTheDrawOfTheMillisecondInTheSelectedCalibre) {
    UseFakeTime();
    std::set<int> seen;
    for (unsigned millisecond = 0; millisecond < 2000; ++millisecond) {
        const int r = RuntimesDraw(millisecond);
        constexpr unsigned hostsSeed = 4711; // No millisecond of these.
        RuntimesDraw(hostsSeed);
        const int hostsNext = rand();
        RuntimesDraw(hostsSeed);
        SetFakeTime(millisecond / 1000.0 + 0.0005);
        OVSelectCalibre(1, 0, static_cast<uint8_t>(millisecond % 2));
        const double spread = r > 20 ? r : -r;
        EXPECT_DOUBLE_EQ(Read(1), (millisecond % 2 == 0 ? 24.0 : 48.0) * spread / 100.0);
        EXPECT_DOUBLE_EQ(Read(2), 0.5 + spread / 100.0);
        EXPECT_EQ(rand(), hostsNext) << "the host's own sequence is left alone";
        seen.insert(r);
    }
    EXPECT_EQ(seen.size(), 40U);
    SetFakeTime(4294967.296 + 0.0771);
    EXPECT_DOUBLE_EQ(Read(2), 0.5 + (RuntimesDraw(77) > 20 ? 0.01 : -0.01) * RuntimesDraw(77))
        << "the millisecond counts modulo 2^32";
    EXPECT_TRUE(OVOpen(ConsoleInterfaceId));
    tFunctionDesc function{};
    EXPECT_TRUE(OVGetFunctionDesc(1, 0, 0, &function));
    EXPECT_EQ(function.CalibreCourant, 0) << "an opening resets the selection";
}

/// What a block of `count` samples of the voltmeter holds.
std::vector<double> Block(uint32_t count) {
    std::vector<double> values(count + 1, NAN);
    uint32_t got = 0;
    EXPECT_TRUE(OVAutoGetPoints(1, 0, 7, count, values.data(), &got));
    EXPECT_EQ(got, count);
    EXPECT_TRUE(std::isnan(values.back())) << "beyond the block";
    values.pop_back();
    return values;
}

TEST_F(VirtualConsole, MeasuresBlocksAsSingleReadsWithinTheirMilliseconds) {
    UseFakeTime();
    SetFakeTime(0.077);
    EXPECT_THAT(Block(100'000), testing::Each(Read(1)));
    FakeReadings = 0;
    Block(100'000);
    EXPECT_LT(FakeReadings, 1000) << "few looks at the clock";
    UseCounter(1000, [] { return ++FakeNanoseconds; }); // A millisecond at each look.
    SetFakeTime(0.0);
    const std::vector<double> values = Block(1000);
    EXPECT_EQ(std::set(values.begin(), values.end()).size(), 40U) << "a draw for each";
}

TEST_F(VirtualConsole, GivesTwoThreadsTheDrawOfTheSameMillisecond) {
    // Both read the real time; a draw under a wrong name would leave the 40 values.
    const auto readMany = [] {
        for (int i = 0; i < 200'000; ++i) {
            const double steps = Read(1) / 0.24;
            ASSERT_TRUE(std::abs(steps - std::round(steps)) < 1e-9 && steps >= -20.0 &&
                        steps <= 39.0);
        }
    };
    std::thread other(readMany);
    readMany();
    other.join();
}

uint32_t CountAt(double seconds) {
    SetFakeTime(seconds);
    uint32_t count = 4711;
    EXPECT_TRUE(OVAutoGetPointCount(1, 0, 0, &count));
    return count;
}

TEST_F(VirtualConsole, CountsPointsWhenItIsLookedAt) {
    UseFakeTime();
    SetFakeTime(100.0);
    EXPECT_TRUE(OVAutoConfigAcq(1'000'000'000, 3));
    // Whole periods; the next computation is due a period after the last one.
    for (const auto& [time, count] :
         {std::pair{100.0, 0U}, {100.5, 0U}, {101.8, 1U}, {102.7, 1U}, {102.9, 2U}}) {
        EXPECT_EQ(CountAt(time), count) << time;
    }
    EXPECT_EQ(CountAt(109.0), 3U);
    FakeReadings = 0;
    EXPECT_EQ(CountAt(100.0), 3U) << "a full clock stays full";
    EXPECT_EQ(FakeReadings, 0) << "and does not read the time";
    uint32_t dt = 0;
    EXPECT_TRUE(OVAutoGetDt(&dt));
    EXPECT_EQ(dt, 1'000'000'000U);
    OVAutoConfigAcq(0, 7);
    EXPECT_EQ(CountAt(100.0), 7U) << "a period of 0 is full at once";
    OVAutoConfigAcq(1, 4294967295U);
    EXPECT_EQ(CountAt(110.0), 4294967295U) << "a count beyond 32 bits is the total";
}

TEST_F(VirtualConsole, StandsStillWithoutACounter) {
    UseCounter(0, nullptr);
    testing::internal::CaptureStderr();
    EXPECT_EQ(GetTimeResolu(), 0.0);
    OVAutoConfigAcq(1000, 5);
    EXPECT_EQ(CountAt(1.0) + CountAt(2.0), 0U);
    EXPECT_EQ(Read(1), Read(1));
    EXPECT_THAT(testing::internal::GetCapturedStderr(), StartsWith("\a")) << "the bell sounds";
}

TEST(TimeResolu, IsTheMachinesMonotonicTimeInMicroseconds) {
    using Microseconds = std::chrono::duration<double, std::micro>;
    const Microseconds before = std::chrono::steady_clock::now().time_since_epoch();
    EXPECT_THAT(GetTimeResolu() - before.count(),
                testing::AllOf(testing::Ge(-1.0), testing::Lt(1e6)));
}

TEST_F(VirtualConsole, ReportsItsAdaptersOnceAndAcceptsTheRest) {
    static std::vector<int> plugged;
    OVSetPlugCallback(nullptr);
    OVSetPlugCallback([](uint8_t connector, bool isIn) noexcept {
        plugged.push_back(isIn ? connector : -connector);
    });
    EXPECT_THAT(plugged, ElementsAre(1, 2));
    uint32_t kept = 17;
    uint8_t found = 17;
    tInterfaceInfo info{};
    EXPECT_FALSE(OVSetLanguage(2) || OVConnect(1) || OVGetInterfaces(&info, 0, 2, &found));
    EXPECT_EQ(found, 17);
    EXPECT_TRUE(OVGetInterfaces(&info, 1, 2, &found));
    EXPECT_EQ(info.Modele, 12304);
    constexpr double sample = 0.0;
    EXPECT_TRUE(OVSetLanguage(1) && OVAutoGetLogCount(&kept) && OVGetMemorySize(9, 9, &kept) &&
                OVDacStop(0, 0) && OVDacClear(0, 0) && OVDacConfig(0, 0, 1, 1, 0) &&
                OVDacLoad(0, 0, &sample, 1) && OVDacStart(0, 0) && OVDacWrite(0, 0, sample) &&
                OVAutoConfigSynchro(9, 9, 1, 0, sample, &found) && OVAutoEnableSynchro(found) &&
                OVAutoSetPreSynchro(found, 50) && OVWriteAdjustment(9, -1, sample));
    EXPECT_EQ(kept, 17U);
    EXPECT_EQ(found, 1) << "an output without a model stays as it was";
}

} // namespace
