#include "hosts/session/gate_run.h"

#include "hosts/session/channel_info.h"
#include "hosts/session/durations.h"
#include "hosts/session/host_error.h"

namespace orvane {

namespace {

/// The most forks that a run takes.
int32_t ForkCount(const DriverExports& driver) {
    const int32_t forks = driver.GetNombreDeFourcheMaxPortimetre();
    if (forks == 0) {
        throw HostError("This console has no gates.");
    }
    return forks;
}

/// The first time that is read stops a run.
void Disarm(const DriverExports& driver) {
    driver.GetTimeRayPortimetre(0);
}

} // namespace

GateStates ReadGates(const DriverExports& driver) {
    return ReadGates(driver, ForkCount(driver));
}

GateStates ReadGates(const DriverExports& driver, int32_t forks) {
    GateStates states{forks, driver.IsPorteClosedPortimetre(), {}};
    for (int32_t gate = 0; gate < 2 * states.Forks; ++gate) {
        states.Gates.push_back(driver.GetEtatFourchePortimetre(gate));
    }
    return states;
}

GateRun::GateRun(const DriverExports& exports, int32_t forks) : Driver(exports), Gates(2 * forks) {
    const int32_t most = ForkCount(Driver);
    if (forks < 1 || forks > most) {
        throw WrongArgument("A run takes 1 to " + std::to_string(most) + " forks, not " +
                            std::to_string(forks) + ".");
    }
    if (!Driver.StartAcquisitionPortimetre(forks)) {
        Disarm(Driver);
        throw HostError("The console does not start the run.");
    }
}

GateRun::~GateRun() {
    Disarm(Driver);
}

bool HasEnded(const GateRun& run) {
    const bool ended = run.Driver.TestEndOfLogPortimetre();
    if (!ended) {
        CheckAdapters(run.Driver);
    }
    return ended;
}

void WaitForEnd(const GateRun& run, double timeoutSec, const GoesOn& goesOn) {
    constexpr double pauseSec = 0.01;
    switch (PollUntil(
        run.Driver, {pauseSec, timeoutSec}, [&] { return HasEnded(run); }, goesOn)) {
    case PollEnd::Done:
        break;
    case PollEnd::GivenUp:
        throw HostError("The run was interrupted.", ErrorKind::Interrupted);
    case PollEnd::TimedOut:
        throw HostError("The run has not ended within " + DurationText(timeoutSec) + ".");
    }
}

std::vector<double> RayTimes(const GateRun& run) {
    std::vector<double> times;
    times.reserve(static_cast<size_t>(run.Gates));
    for (int32_t ray = 0; ray < run.Gates; ++ray) {
        times.push_back(run.Driver.GetTimeRayPortimetre(ray));
    }
    return times;
}

} // namespace orvane
