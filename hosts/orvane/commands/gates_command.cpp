#include "hosts/orvane/commands/commands.h"
#include "hosts/orvane/commands/option_checks.h"
#include "hosts/orvane/terminal/interrupt.h"
#include "hosts/orvane/terminal/standard_output.h"
#include "hosts/session/durations.h"
#include "hosts/session/gate_run.h"
#include "hosts/session/number_text.h"

#include <iostream>
#include <optional>

namespace orvane {

namespace {

struct GatesOptions {
    std::optional<int32_t> Run; ///< Forks of the run.
    std::string Timeout = "60s";
};

std::string StateTable(const GateStates& states) {
    TextRows rows;
    for (size_t gate = 0; gate < states.Gates.size(); ++gate) {
        rows.push_back(
            {std::to_string(gate), std::to_string(gate / 2), std::to_string(states.Gates[gate])});
    }
    return TableForOutput({{"Gate", true}, {"Fork", true}, {"State", true}}, rows);
}

std::string TimeTable(const std::vector<double>& times) {
    constexpr int digits = 10;
    TextRows rows;
    for (size_t ray = 0; ray < times.size(); ++ray) {
        rows.push_back({std::to_string(ray), NumberText(times[ray], digits)});
    }
    return TableForOutput({{"Ray", true}, {"Time (s)", true}}, rows);
}

void Gates(const DriverOptions& driverOptions, const GatesOptions& options) {
    const double timeoutSec = ParseWait("timeout", options.Timeout);
    const auto session = OpenDriver(driverOptions);
    const DriverExports& driver = session->Driver.Exports;
    if (options.Run) {
        CatchInterrupts();
        const GateRun run(driver, *options.Run);
        std::cout << "Armed: the door and " << run.Gates << " gates.\n" << std::flush;
        WaitForEnd(run, timeoutSec, NotInterrupted);
        std::cout << TimeTable(RayTimes(run));
        return;
    }
    const GateStates states = ReadGates(driver);
    std::cout << "Forks  " << states.Forks << "\nDoor   " << (states.DoorClosed ? "closed" : "open")
              << "\n\n"
              << StateTable(states);
}

} // namespace

void AddGatesCommand(CLI::App& command, const DriverOptions& driver) {
    auto options = std::make_shared<GatesOptions>();
    TakeWholeNumber(
        command
            .add_option("--run", options->Run, "Time a run over this many forks; Ctrl-C aborts it")
            ->type_name("N"),
        1);
    command.add_option("--timeout", options->Timeout, "How long to wait for the end of the run")
        ->type_name("DURATION")
        ->capture_default_str()
        ->needs("--run");
    command.callback([options, &driver] { Gates(driver, *options); });
}

} // namespace orvane
