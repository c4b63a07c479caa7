// The faults of a scenario, as the driver meets them through the stack.

#include "platform/clock.h"
#include "tests/laboratory/laboratory_fixture.h"

#include <gmock/gmock.h>

using namespace orvane;

namespace {

class LaboratoryFaults : public LaboratoryTest {
protected:
    /// What a call takes on the console's clock, in ms.
    static double MillisecondsOf(const std::function<void()>& call) {
        const double begin = GetTimeResolu();
        call();
        return (GetTimeResolu() - begin) / 1000.0;
    }
};

TEST_F(LaboratoryFaults, BeginAtTheStartAndLater) {
    testing::internal::CaptureStderr();
    ASSERT_TRUE(Start("bus.latency = 0.25e-3\nconsole.serial = \"S\"\n" +
                      Voltmeter(1, "signal = [{ sin = [2, 0, 1] }]") + R"([timeline]
"0" = [{ fault = { operation = "OVOpen", refuse = 2 } },
       { fault = { operation = "OVConnect", refuse = 1 } },
       { fault = { operation = "OVGetMemorySize", size = 32767 } },
       { fault = { operation = "OVGetAdapterDesc", unterminated = true } },
       { fault = { operation = "OVReadValue", latency = 3e-3 } }]
"5" = [{ fault = { operation = "OVReadValue", from = 2, refuse = 1 } }])"));
    EXPECT_THAT(testing::internal::GetCapturedStderr(), testing::HasSubstr("lecture"));
    EXPECT_NEAR(GetTimeResolu() / 1e6, 1.0, 0.2) << "two waits of half a second";
    EXPECT_EQ(GetSerialNumber(), "");
    EXPECT_EQ(QuelReferencePour(0), 482034);
    double value = 0.0;
    EXPECT_NEAR(MillisecondsOf([&] { value = QuelValeurPour(0); }), 3.25, 0.01);
    EXPECT_EQ(value, 2.0);
    platform::Pause(4000);
    EXPECT_EQ(QuelValeurPour(0), 2.0);
    EXPECT_EQ(QuelValeurPour(0), 0.0) << "the second value from 5 s on";
    EXPECT_EQ(QuelValeurPour(0), 2.0);
}

TEST_F(LaboratoryFaults, CanBeForEverAndStillTimePasses) {
    ASSERT_TRUE(Start(Voltmeter(1, "") + "[timeline]\n\"0\" = [{ fault = { operation = "
                                         "\"OVAutoGetPointCount\" } }]"));
    InitAcqBuff(1e-3, 100, 1, 0);
    StartAcqBuff(0, 0, 0.0, 0);
    EXPECT_NEAR(MillisecondsOf([] { EXPECT_FALSE(TestFinAcq()); }), 10.0, 0.01);
}

} // namespace
