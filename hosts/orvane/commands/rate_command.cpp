#include "hosts/orvane/commands/commands.h"
#include "hosts/orvane/commands/rate_measurement.h"
#include "hosts/orvane/terminal/interrupt.h"
#include "hosts/orvane/terminal/standard_output.h"
#include "hosts/session/channel_info.h"
#include "hosts/session/driver_time.h"
#include "hosts/session/durations.h"
#include "hosts/session/host_error.h"
#include "hosts/session/number_text.h"
#include "hosts/session/run_setup.h"

#include <algorithm>
#include <chrono>
#include <iostream>

namespace orvane {

namespace {

using Clock = std::chrono::steady_clock;

constexpr uint32_t firstChannel = ChannelBit(0);

/// A run on the first channel.
struct RateRun {
    double PeriodSec;
    int32_t Points;
};

RateRun ShortRun(const DriverExports& driver) {
    constexpr int32_t points = 200;
    return {PeriodForDriver(std::max(driver.GetMinPas(), driver.QuelTempsMinPour(0))), points};
}

/// One that lasts at least 10 s, longer than any round.
RateRun LongRun(const DriverExports& driver) {
    constexpr double periodSec = 1e-3;
    constexpr int32_t points = 10'000;
    return {std::max(ShortRun(driver).PeriodSec, PeriodForDriver(periodSec)), points};
}

void WaitForPoints(const DriverExports& driver, int32_t points, double periodSec) {
    constexpr double graceSec = 1.0;
    const auto haveCome = [&] { return driver.TestNombreDePointAcqui() >= points; };
    switch (
        PollUntil(driver, {periodSec, points * periodSec + graceSec}, haveCome, NotInterrupted)) {
    case PollEnd::Done:
        break;
    case PollEnd::GivenUp:
        throw HostError("The measurement was interrupted.", ErrorKind::Interrupted);
    case PollEnd::TimedOut:
        throw HostError("The console acquires no points.");
    }
}

/// Begins a run and waits for its first `points`; it goes on.
void BeginRun(const DriverExports& driver, const RateRun& run, int32_t points) {
    driver.StopAcqBuff();
    const double periodSec = SetUpRun(driver, run.PeriodSec, run.Points, firstChannel, false);
    if (periodSec <= 0.0) {
        throw HostError("The console refuses an acquisition.");
    }
    driver.StartAcqBuff(0, 0, 0.0, 0);
    WaitForPoints(driver, points, periodSec);
}

std::vector<RateCase> Questions(const DriverExports& driver) {
    return {
        {"a value", {}, Repeated([&] { driver.QuelValeurPour(0); })},
        {"the name of a channel", {}, Repeated([&] { driver.QuelNomPour(0, 0); })},
        {"its unit", {}, Repeated([&] { driver.QuelUnitePour(0); })},
        {"a limit", {}, Repeated([&] { driver.QuelMaxPour(0); })},
        {"the limit of a calibre", {}, Repeated([&] { driver.QuelMaxPourCalibrePour(0, 0); })},
        {"the number of its calibres", {}, Repeated([&] { driver.CombienDeCalibrePour(0); })},
        {"an enumeration", {}, Repeated([&] { driver.CombienDeCanauxEnEntree(); })},
    };
}

std::vector<RateCase> Acquisition(const DriverExports& driver) {
    const RateRun shortRun = ShortRun(driver);
    const RateRun longRun = LongRun(driver);
    const auto live = [longRun, &driver] { BeginRun(driver, longRun, 1); };
    const auto goesOn = [&driver] { return !driver.TestFinAcq(); };
    const auto full = [shortRun, &driver] { BeginRun(driver, shortRun, shortRun.Points); };
    const auto fetched = [full, &driver] {
        full();
        driver.StopAcqBuff();
    };
    return {
        {"a set-up of a run", {}, Repeated([shortRun, &driver] {
             // Not the points of the other runs: with their start it would be a repetition.
             driver.InitAcqBuff(shortRun.PeriodSec, shortRun.Points + 1, firstChannel, 0);
         })},
        {"the same set-up again", live, Repeated([longRun, &driver] {
             driver.InitAcqBuff(longRun.PeriodSec, longRun.Points, firstChannel, 0);
         })},
        {"the number of points so far", live, Repeated([&] { driver.TestNombreDePointAcqui(); }),
         goesOn},
        {"a live sample", live, Repeated([&] { driver.RecuperationPoint(0, 0); }), goesOn},
        {"the fetch of a sample", full,
         [shortRun, &driver](size_t) {
             driver.StopAcqBuff();
             return static_cast<size_t>(shortRun.Points);
         }},
        {"a fetched sample", fetched, Repeated([&] { driver.RecuperationPoint(0, 0); })},
    };
}

void ShowRates(const DriverOptions& options) {
    CatchInterrupts();
    const auto session = OpenDriver(options);
    const DriverExports& driver = session->Driver.Exports;
    driver.VerifCanaux();
    CheckChannel(EnumerateChannels(driver), 0);
    std::vector<RateCase> cases{{"a read of the clock", {}, Repeated([] { Clock::now(); })}};
    for (const auto& more : {Questions(driver), Acquisition(driver)}) {
        cases.insert(cases.end(), more.begin(), more.end());
    }
    const std::vector<double> costs = MeasureRates(cases);
    driver.StopAcqBuff();

    TextRows rows;
    for (size_t i = 0; i < cases.size(); ++i) {
        rows.push_back({cases[i].Label, FixedText(costs[i], 1), FixedText(costs[i] / costs[0], 2)});
    }
    std::cout << "Channel 0 of " << TextOf(driver.GetInterfaceName()) << ", "
              << TextOf(driver.QuelNomPour(0, 0)) << "\n\n"
              << TableForOutput({{"Cost of"}, {"ns", true}, {"Clock reads", true}}, rows);
}

} // namespace

void AddRateCommand(CLI::App& command, const DriverOptions& driver) {
    command
        .footer("Each cost is the minimum of up to 100 interleaved rounds, in nanoseconds and as a "
                "ratio to a read of the monotonic clock. A round repeats a call for 1 ms.")
        ->callback([&driver] { ShowRates(driver); });
}

} // namespace orvane
