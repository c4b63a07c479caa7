// What the hosts compute of runs over gates and of manoeuvres.

#include "hosts/session/gate_motion.h"
#include "hosts/session/host_error.h"
#include "hosts/session/manoeuvres.h"

#include <gmock/gmock.h>

#include <cmath>

using namespace orvane;
using namespace testing;

namespace {

constexpr double gravity = 9.81;
constexpr double doorSpeed = 0.8;

double TimeAt(double position) {
    return (std::sqrt(doorSpeed * doorSpeed + 2 * gravity * position) - doorSpeed) / gravity;
}

TEST(GateFall, HasTheAccelerationOfItsForks) {
    // The second fork lies above the first, and its gates stand the other way round.
    const std::vector<double> positions{0.60, 0.62, 0.27, 0.25, 0.90, 0.94};
    std::vector<double> rays;
    for (const double position : {0.25, 0.27, 0.60, 0.62, 0.90, 0.94}) {
        rays.push_back(TimeAt(position));
    }
    const GateFall fall = FallOf(rays, positions);
    EXPECT_DOUBLE_EQ(fall.TimesSec[0], TimeAt(0.60));
    ASSERT_TRUE(fall.Line);
    EXPECT_NEAR(fall.Line->Acceleration, gravity, 1e-9);
    EXPECT_NEAR(fall.Line->DoorSpeed, doorSpeed, 1e-9);
    EXPECT_NEAR(*fall.Forks[1].Acceleration, gravity, 1e-9);
    EXPECT_NEAR(*fall.Forks[1].Speed, doorSpeed + gravity * fall.Forks[1].MidSec, 1e-9);

    const GateFall one = FallOf({rays[0], rays[1]}, {0.25, 0.27});
    EXPECT_NEAR(one.Line->Acceleration, gravity, 1e-9);
    EXPECT_FALSE(FallOf(rays, {}).Line);
    EXPECT_THROW(FallOf({0.1, 0.0}, {0.25, 0.27}), HostError);
}

TEST(Manoeuvres, GiveTheBestOfThoseThatAreKept) {
    const auto with = [](double fvc, double fev1, double back) {
        Manoeuvre made;
        made.Breath.Fvc = fvc;
        made.Breath.Fev1 = fev1;
        made.Breath.BackVolume = back;
        return made;
    };
    std::vector<Manoeuvre> list{with(4.80, 3.80, 0.2), with(4.70, 3.95, 0.2), with(4.9, 4.0, 0.3)};
    list[2].Kept = false;
    const auto summary = SummaryOf(list);
    ASSERT_TRUE(summary);
    EXPECT_EQ(summary->Fvc, 4.80);
    EXPECT_EQ(summary->Fev1, 3.95);
    EXPECT_EQ(summary->Best, 1);
    EXPECT_NEAR(*summary->FvcApart, 0.10, 1e-12);
    EXPECT_TRUE(summary->StartsWell);
    list[2].Kept = true;
    EXPECT_FALSE(SummaryOf(list)->StartsWell);
    for (Manoeuvre& one : list) {
        one.Kept = false;
    }
    EXPECT_FALSE(SummaryOf(list));
}

} // namespace
