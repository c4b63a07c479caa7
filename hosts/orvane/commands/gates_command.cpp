#include "hosts/orvane/commands/commands.h"
#include "hosts/orvane/commands/option_checks.h"
#include "hosts/orvane/terminal/interrupt.h"
#include "hosts/orvane/terminal/standard_output.h"
#include "hosts/session/durations.h"
#include "hosts/session/host_error.h"
#include "hosts/session/number_text.h"

#include <chrono>
#include <iostream>
#include <optional>

namespace orvane {

namespace {

struct GatesOptions {
    std::optional<int32_t> Run; ///< Forks of the run.
    std::string Timeout = "60s";
};

/// Its end stops a run that is still armed: reading out is what does that.
struct RunStop {
    explicit RunStop(const DriverExports& exports) : Driver(exports) {}
    RunStop(const RunStop&) = delete;
    RunStop& operator=(const RunStop&) = delete;
    ~RunStop() {
        Driver.GetTimeRayPortimetre(0);
    }
    const DriverExports& Driver;
};

std::string GateTable(const DriverExports& driver, int32_t forks) {
    std::vector<std::vector<std::string>> rows;
    rows.reserve(2 * static_cast<size_t>(forks));
    for (int32_t gate = 0; gate < 2 * forks; ++gate) {
        rows.push_back({std::to_string(gate), std::to_string(gate / 2),
                        std::to_string(driver.GetEtatFourchePortimetre(gate))});
    }
    return TableForOutput({{"Gate", true}, {"Fork", true}, {"State", true}}, rows);
}

void WaitForEnd(const DriverExports& driver, double timeoutSec) {
    using Clock = std::chrono::steady_clock;
    constexpr double pollSec = 0.01;
    const auto end = Clock::now() + std::chrono::duration<double>(timeoutSec);
    while (!driver.TestEndOfLogPortimetre()) {
        if (Interrupted()) {
            throw HostError("The run was interrupted.", ErrorKind::Interrupted);
        }
        if (!driver.VerifCanaux()) {
            throw HostError("The adapters of the console changed.");
        }
        if (Clock::now() >= end) {
            throw HostError("The run has not ended within " + DurationText(timeoutSec) + ".");
        }
        WaitUnlessInterrupted(pollSec);
    }
}

void TimeRun(const DriverExports& driver, int32_t forks, double timeoutSec) {
    CatchInterrupts();
    const RunStop stop(driver);
    if (!driver.StartAcquisitionPortimetre(forks)) {
        throw HostError("The console does not start the run.");
    }
    std::cout << "Armed: the door and " << 2 * forks << " gates.\n" << std::flush;
    WaitForEnd(driver, timeoutSec);
    std::vector<std::vector<std::string>> rows;
    rows.reserve(2 * static_cast<size_t>(forks));
    for (int32_t ray = 0; ray < 2 * forks; ++ray) {
        rows.push_back({std::to_string(ray), NumberText(driver.GetTimeRayPortimetre(ray), 10)});
    }
    std::cout << TableForOutput({{"Ray", true}, {"Time (s)", true}}, rows);
}

void Gates(const DriverOptions& driverOptions, const GatesOptions& options) {
    const double timeoutSec = ParseWait("timeout", options.Timeout);
    const auto session = OpenDriver(driverOptions);
    const DriverExports& driver = session->Driver.Exports;
    const int32_t forks = driver.GetNombreDeFourcheMaxPortimetre();
    if (forks == 0) {
        throw HostError("This console has no gates.");
    }
    if (options.Run) {
        if (*options.Run > forks) {
            throw WrongArgument("A run takes 1 to " + std::to_string(forks) + " forks, not " +
                                std::to_string(*options.Run) + ".");
        }
        TimeRun(driver, *options.Run, timeoutSec);
        return;
    }
    std::cout << "Forks  " << forks << "\nDoor   "
              << (driver.IsPorteClosedPortimetre() ? "closed" : "open") << "\n\n"
              << GateTable(driver, forks);
}

} // namespace

void AddGatesCommand(CLI::App& command, const DriverOptions& driver) {
    auto options = std::make_shared<GatesOptions>();
    TakeWholeNumber(command
                        .add_option("--run", options->Run,
                                    "Time a run over this many forks; Ctrl-C gives it up")
                        ->type_name("N"),
                    1);
    command.add_option("--timeout", options->Timeout, "How long to wait for the end of the run")
        ->type_name("DURATION")
        ->capture_default_str()
        ->needs("--run");
    command.callback([options, &driver] { Gates(driver, *options); });
}

} // namespace orvane
