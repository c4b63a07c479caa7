// Buffered acquisition: set-up, run, samples, refusals.

#include "hosts/orvane/selftest/selftest_checks.h"
#include "hosts/orvane/terminal/interrupt.h"
#include "hosts/session/driver_time.h"
#include "hosts/session/durations.h"
#include "hosts/session/host_error.h"
#include "hosts/session/number_text.h"
#include "hosts/session/run_setup.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <limits>
#include <thread>

namespace orvane {

namespace {

constexpr int32_t pointsOfRun = 100;

/// A run over all channels that fit into one. The destructor stops it.
struct TestRun {
    TestRun(const SelftestTarget& target, bool preTrigger)
        : Driver(target.Driver), Channels(EnumerateChannels(Driver)) {
        if (Channels.empty()) {
            throw SkippedCheck("the console has no input channels");
        }
        Channels.resize(std::min(Channels.size(), MostChannelsOfRun));
        for (const ChannelInfo& channel : Channels) {
            Mask |= ChannelBit(channel.Index);
            RequestedSec = std::max({RequestedSec, Driver.GetMinPas(), channel.ShortestPeriodSec});
        }
        RequestedSec = PeriodForDriver(RequestedSec);
        PeriodSec = SetUpRun(Driver, RequestedSec, pointsOfRun, Mask, preTrigger);
        Expect(PeriodSec > 0.0, "the console refuses a run at " + DurationText(RequestedSec));
    }
    TestRun(const TestRun&) = delete;
    TestRun& operator=(const TestRun&) = delete;
    ~TestRun() {
        Driver.StopAcqBuff();
    }

    [[nodiscard]] int32_t Samples() const {
        return pointsOfRun * static_cast<int32_t>(Channels.size());
    }

    const DriverExports& Driver;
    std::vector<ChannelInfo> Channels;
    uint32_t Mask = 0;
    double RequestedSec = 1e-3;
    double PeriodSec = 0.0;
};

void ExpectSample(const TestRun& run, size_t position, int32_t point) {
    const ChannelInfo& channel = run.Channels[position];
    const double value =
        run.Driver.RecuperationPoint(static_cast<int32_t>(position), static_cast<uint32_t>(point));
    Expect(value >= channel.Min && value <= channel.Max,
           OnChannel(channel.Index, "point " + std::to_string(point) + " is " + NumberText(value)));
}

/// Follows a started run to its end. `onPoints` gets the number of points of each channel.
/// \return false if it does not end
template <class OnPoints> bool Ends(const TestRun& run, OnPoints onPoints) {
    constexpr double graceSec = 4.0; // A console may take 3.6 s to start.
    const double wholeSec =
        run.PeriodSec * (pointsOfRun + static_cast<double>(run.Driver.GetNbPointPreSynchro()));
    int32_t last = 0;
    const auto isFull = [&] {
        const bool full = run.Driver.TestFinAcq();
        const int32_t samples = run.Driver.TestNombreDePointAcqui();
        Expect(samples >= last,
               "the count falls from " + std::to_string(last) + " to " + std::to_string(samples));
        Expect(samples <= run.Samples(), "the count rises to " + std::to_string(samples) + " of " +
                                             std::to_string(run.Samples()));
        Expect(!full || samples == run.Samples(), "the run ends at " + std::to_string(samples) +
                                                      " of " + std::to_string(run.Samples()));
        last = samples;
        onPoints(samples / static_cast<int32_t>(run.Channels.size()));
        return full;
    };
    const PollEnd end =
        PollUntil(run.Driver, {run.PeriodSec, wholeSec + graceSec}, isFull, NotInterrupted);
    if (end == PollEnd::GivenUp) {
        throw HostError("The test was interrupted.", ErrorKind::Interrupted);
    }
    return end == PollEnd::Done;
}

template <class OnPoints> void Follow(const TestRun& run, OnPoints onPoints) {
    Expect(Ends(run, onPoints), "the run does not end");
}

void Start(const TestRun& run) {
    run.Driver.StartAcqBuff(0, 0, 0.0, 0);
}

void AppliesThePeriod(const SelftestTarget& target) {
    const TestRun run(target, false);
    Expect(std::abs(run.PeriodSec - run.RequestedSec) <= 0.1 * run.RequestedSec,
           DurationText(run.RequestedSec) + " becomes " + DurationText(run.PeriodSec));
    Start(run);
    ExpectEqual(run.Driver.InitAcqBuff(run.RequestedSec, pointsOfRun, run.Mask, 0), run.PeriodSec,
                "the period of the same set-up again");
}

void FillsARun(const SelftestTarget& target) {
    const TestRun run(target, false);
    Start(run);
    Follow(run, [&](int32_t points) {
        if (points > 0) {
            ExpectSample(run, 0, points - 1);
        }
    });
}

void KeepsTheSamples(const SelftestTarget& target) {
    const TestRun run(target, false);
    Start(run);
    Follow(run, [](int32_t) {});
    run.Driver.StopAcqBuff();
    for (size_t position = 0; position < run.Channels.size(); ++position) {
        for (int32_t point = 0; point < pointsOfRun; ++point) {
            ExpectSample(run, position, point);
            const auto voie = static_cast<int32_t>(position);
            const auto number = static_cast<uint32_t>(point);
            ExpectEqual(run.Driver.RecuperationPoint(voie, number),
                        run.Driver.RecuperationPoint(voie, number), "a sample read again");
        }
    }
    for (const int position : IndexesOutside(static_cast<int>(run.Channels.size()))) {
        ExpectEqual(run.Driver.RecuperationPoint(position, 0), 0.0,
                    "the sample of position " + std::to_string(position));
    }
    ExpectEqual(run.Driver.RecuperationPoint(0, pointsOfRun), 0.0, "the sample beyond the last");
}

/// The middle of what a channel measures within 20 ms, which it should cross again.
double LevelOf(const TestRun& run, int channel) {
    constexpr int values = 20;
    double least = run.Driver.QuelValeurPour(channel);
    double greatest = least;
    for (int i = 0; i < values; ++i) {
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
        const double value = run.Driver.QuelValeurPour(channel);
        least = std::min(least, value);
        greatest = std::max(greatest, value);
    }
    return least + (greatest - least) / 2.0;
}

/// A run that begins where the first channel rises above such a level. A console can refuse the
/// trigger silently.
void RunTriggered(const TestRun& run) {
    const double level = LevelOf(run, run.Channels.front().Index);
    run.Driver.StartAcqBuff(1, 1, level, run.Channels.front().Index);
    if (!Ends(run, [](int32_t) {})) {
        throw SkippedCheck("no trigger came");
    }
    run.Driver.StopAcqBuff();
    if (run.Driver.RecuperationPoint(0, static_cast<uint32_t>(-1)) >= level ||
        run.Driver.RecuperationPoint(0, 0) < level) {
        throw SkippedCheck("the console does not trigger");
    }
}

void KeepsPreTriggerPoints(const SelftestTarget& target) {
    const auto before = static_cast<int32_t>(target.Driver.GetNbPointPreSynchro());
    if (before == 0) {
        throw SkippedCheck("the console model has no pre-trigger points");
    }
    constexpr int runs = 3; // One may cross the level at its point 0 by chance.
    for (int i = 0; i < runs; ++i) {
        const TestRun run(target, true);
        RunTriggered(run);
        for (int32_t point = -before; point < pointsOfRun; ++point) {
            ExpectSample(run, 0, point);
        }
        ExpectEqual(run.Driver.RecuperationPoint(0, static_cast<uint32_t>(-before - 1)), 0.0,
                    "the sample before the first");
    }
}

void ForgetsARunCutShort(const SelftestTarget& target) {
    constexpr double slowSec = 0.1; // The test does not wait for its end.
    const TestRun run(target, false);
    run.Driver.InitAcqBuff(std::max(run.RequestedSec, slowSec), pointsOfRun, run.Mask, 0);
    Start(run);
    const bool full = run.Driver.TestFinAcq();
    run.Driver.StopAcqBuff();
    if (full) {
        throw SkippedCheck("the console fills a run at once");
    }
    ExpectEqual(run.Driver.RecuperationPoint(0, 0), 0.0, "a sample of it");
}

void SurvivesStrangeSetUps(const SelftestTarget& target) {
    const DriverExports& driver = target.Driver;
    {
        const TestRun run(target, false);
        constexpr double nan = std::numeric_limits<double>::quiet_NaN();
        for (const double period : {0.0, nan, -1.0}) {
            const double applied = driver.InitAcqBuff(period, 1, run.Mask, 0);
            Expect(std::isfinite(applied) && applied >= 0.0,
                   "the period " + NumberText(period) + " becomes " + NumberText(applied));
        }
        driver.InitAcqBuff(run.RequestedSec, pointsOfRun, 0, 0);
        Expect(driver.TestFinAcq(), "a run without channels does not end");
        ExpectEqual(driver.TestNombreDePointAcqui(), 0, "the samples of a run without channels");
        ExpectEqual(driver.RecuperationPoint(0, 0), 0.0, "a sample of a run without channels");
        driver.InitAcqBuff(run.RequestedSec, 0, run.Mask, 0);
        Expect(driver.TestFinAcq(), "a run of no points does not end");
        driver.StopAcqBuff();
        ExpectEqual(driver.RecuperationPoint(0, 0), 0.0, "a sample of a run of no points");
    }
    FillsARun(target);
}

/// What is wrong if the counter is to be that of the machine; else nothing.
std::string DifferenceFromMachine(const DriverExports& driver) {
    using Clock = std::chrono::steady_clock;
    constexpr double tolerance = 0.02;
    const auto now = [] {
        return std::chrono::duration<double, std::micro>(Clock::now().time_since_epoch()).count();
    };
    const double outerStart = now();
    const double start = driver.GetTimeResolu();
    const double innerStart = now();
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    const double innerEnd = now();
    const double end = driver.GetTimeResolu();
    const double outerEnd = now();
    const bool same = end - start >= (innerEnd - innerStart) * (1.0 - tolerance) &&
                      end - start <= (outerEnd - outerStart) * (1.0 + tolerance);
    return same ? ""
                : std::to_string(innerEnd - innerStart) + " us count as " +
                      std::to_string(end - start);
}

/// A console may have a clock of its own: then a run takes its time on that.
void CountsMicroseconds(const SelftestTarget& target) {
    const DriverExports& driver = target.Driver;
    const std::string difference = DifferenceFromMachine(driver);
    if (difference.empty()) {
        return;
    }
    constexpr double leastPace = 0.9;
    constexpr int32_t pointsUnderWay = 2;
    const double before = DriverSeconds(driver);
    const TestRun run(target, false);
    Start(run);
    const double started = DriverSeconds(driver);
    double last = started;
    Follow(run, [&](int32_t points) {
        const double now = DriverSeconds(driver);
        const double least = leastPace * (last - started) / run.PeriodSec - pointsUnderWay;
        const double most = (now - before) / run.PeriodSec + pointsUnderWay;
        Expect(now >= last, difference + ", and it goes back");
        Expect((points >= least || points == pointsOfRun) && points <= most,
               difference + ", and a run has " + std::to_string(points) + " points after " +
                   DurationText(now - started));
        last = now;
    });
}

void HasConstantAnswers(const SelftestTarget& target) {
    ExpectEqual(target.Driver.RecuperationVolume(), 0.0, "RecuperationVolume");
    Expect(target.Driver.AccesPointModeBuff(), "AccesPointModeBuff gives false");
}

} // namespace

std::vector<SelftestCheck> AcquisitionChecks() {
    return {
        {"a set-up gives the applied period, also when it is repeated", AppliesThePeriod},
        {"a run fills up and stops counting", FillsARun},
        {"fetched samples lie within the limits and do not change", KeepsTheSamples},
        {"pre-trigger points lie before point 0", KeepsPreTriggerPoints},
        {"a run that is stopped early leaves no samples", ForgetsARunCutShort},
        {"invalid set-ups do no harm", SurvivesStrangeSetUps},
        {"the counter counts microseconds", CountsMicroseconds},
        {"constant answers are what they are documented to be", HasConstantAnswers},
    };
}

} // namespace orvane
