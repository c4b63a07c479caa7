#include "platform/clock.h"
#include "tests/laboratory/laboratory_fixture.h"

#include <atomic>
#include <thread>

namespace orvane {

namespace {

using LaboratoryClock = LaboratoryTest;

TEST_F(LaboratoryClock, PassesOnceWhenTwoThreadsPause) {
    ASSERT_TRUE(Start(""));
    std::atomic<int> pauses{0};
    std::atomic<bool> ends{false};
    std::thread other([&] {
        for (; !ends; ++pauses) {
            platform::Pause(25);
        }
    });
    while (pauses == 0) {
        std::this_thread::yield();
    }
    const int before = pauses;
    const double begin = GetTimeResolu();
    platform::Pause(1000);
    EXPECT_NEAR(GetTimeResolu() - begin, 1e6, 0.06e6);
    EXPECT_GT(pauses - before, 10);
    ends = true;
    other.join();
    const double alone = GetTimeResolu();
    platform::Pause(3'600'000);
    EXPECT_NEAR(GetTimeResolu() - alone, 3600e6, 1e6);
}

} // namespace

} // namespace orvane
