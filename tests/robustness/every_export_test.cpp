// Every export over a console as it is: the virtual one, or one with only what a channel needs.

#include "tests/support/every_export.h"
#include "tests/support/fake_time.h"

#include <gtest/gtest.h>

using namespace orvane;

namespace {

TEST(EveryExport, MayBeCalledInAHostsOrderTwice) {
    UseFakeTimeBesideSpiro();
    setenv("ORVANE_CLOCK", "virtual", 1); // The laboratory has a time of its own.
    testing::internal::CaptureStderr();
    for (int round = 0; round < 2; ++round) {
        for (const every_export::Step& step : every_export::scenario) {
            step.Call();
        }
        EXPECT_TRUE(StartDll(0, "", "fr", 0));
        EXPECT_EQ(CombienDeCanauxEnEntree(), CONSOLE_CHANNELS);
        StopDll();
    }
    testing::internal::GetCapturedStderr();
}

} // namespace
