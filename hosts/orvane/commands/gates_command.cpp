#include "console/laboratory/scenario/gate_row.h"
#include "console/laboratory/scenario/scenario_reader.h"
#include "hosts/orvane/commands/chart_target.h"
#include "hosts/orvane/commands/commands.h"
#include "hosts/orvane/commands/json_texts.h"
#include "hosts/orvane/commands/option_checks.h"
#include "hosts/orvane/commands/shared_options.h"
#include "hosts/orvane/terminal/interrupt.h"
#include "hosts/orvane/terminal/standard_output.h"
#include "hosts/plot/gate_picture.h"
#include "hosts/plot/run_picture.h"
#include "hosts/session/durations.h"
#include "hosts/session/gate_run.h"
#include "hosts/session/number_text.h"
#include "hosts/session/pending_file.h"

#include <algorithm>
#include <iostream>
#include <optional>

namespace orvane {

namespace {

struct GatesOptions {
    std::optional<int32_t> Run; ///< Forks of the run.
    std::string Timeout = "60s";
    std::optional<std::string> Positions;
    std::optional<std::string> Plot;
    bool Json = false;
};

constexpr int timeDigits = 10;

/// The gates of a scenario's first forks, in m below its door. Empty if some are missing or lie on
/// each other.
std::vector<double> PositionsIn(const laboratory::Scenario& scenario, size_t gates) {
    std::map<uint8_t, const laboratory::Adapter*> adapters; // In the order of the row.
    for (const laboratory::Adapter& adapter : scenario.Adapters) {
        if (adapter.Plugged && adapter.Kind == laboratory::AdapterKind::Gates) {
            adapters[adapter.Connector] = &adapter;
        }
    }
    std::vector<double> row;
    for (const auto& [connector, adapter] : adapters) {
        for (const auto& position : laboratory::GatePositions(*adapter)) {
            if (position) {
                row.push_back(*position);
            }
        }
    }
    if (row.size() <= gates) {
        return {};
    }
    std::vector<double> positions(row.begin() + 1, row.begin() + 1 + static_cast<ptrdiff_t>(gates));
    std::ranges::sort(positions); // Rays count in the order of time.
    for (double& position : positions) {
        position -= row.front();
    }
    return AreGatePositions(positions) ? positions : std::vector<double>();
}

/// Where the gates of the run lie, if that was said. Empty if not.
std::vector<double> PositionsFor(const DriverOptions& driver, const GatesOptions& options) {
    const auto gates = 2 * static_cast<size_t>(*options.Run);
    if (options.Positions) {
        return ParseGatePositions(*options.Positions, gates);
    }
    std::vector<double> positions =
        driver.Scenario.empty()
            ? std::vector<double>()
            : PositionsIn(laboratory::LoadScenario(driver.Scenario).Value, gates);
    if (options.Plot && positions.empty()) {
        throw WrongArgument("A plot needs to know where the gates are; --positions says it.");
    }
    return positions;
}

std::string StateTable(const GateStates& states) {
    TextRows rows;
    for (size_t gate = 0; gate < states.Gates.size(); ++gate) {
        rows.push_back(
            {std::to_string(gate), std::to_string(gate / 2), std::to_string(states.Gates[gate])});
    }
    return TableForOutput({{"Gate", true}, {"Fork", true}, {"State", true}}, rows);
}

std::string TimeTable(const std::vector<double>& times) {
    TextRows rows;
    for (size_t ray = 0; ray < times.size(); ++ray) {
        rows.push_back({std::to_string(ray), NumberText(times[ray], timeDigits)});
    }
    return TableForOutput({{"Ray", true}, {"Time (s)", true}}, rows);
}

std::string MotionTable(const GateMotion& motion) {
    constexpr int midTimeDecimals = 7;
    constexpr int speedDecimals = 4;
    TextRows rows{{"door", "0", "0", "", ""}};
    for (size_t ray = 0; ray < motion.Speeds.size(); ++ray) {
        rows.push_back({std::to_string(ray), NumberText(motion.Positions[ray + 1]),
                        NumberText(motion.TimesSec[ray + 1], timeDigits),
                        FixedText(motion.MidTimesSec[ray], midTimeDecimals),
                        FixedText(motion.Speeds[ray], speedDecimals)});
    }
    return TableForOutput({{"Ray", true},
                           {"Position (m)", true},
                           {"Time (s)", true},
                           {"Mid-time (s)", true},
                           {"Speed (m/s)", true}},
                          rows) +
           "\ng  " + FixedText(motion.Acceleration, 2) + " m/s², " +
           FixedText(motion.DoorSpeed, 2) + " m/s at the door\n";
}

void TimeRun(const DriverOptions& driverOptions, const GatesOptions& options) {
    const double timeoutSec = ParseWait("timeout", options.Timeout);
    CatchInterrupts();
    std::optional<PendingFile> plot;
    OpenChartFile(options.Plot, plot);
    const auto session = OpenDriver(driverOptions);
    const DriverExports& driver = session->Driver.Exports;
    const std::vector<double> positions = PositionsFor(driverOptions, options);
    const GateRun run(driver, *options.Run);
    AsideOf(options.Json) << "Armed: the door and " << run.Gates << " gates.\n" << std::flush;
    WaitForEnd(run, timeoutSec, NotInterrupted);
    const bool doorClosed = driver.IsPorteClosedPortimetre(); // Before the read-out ends the run.
    const std::vector<double> times = RayTimes(run);
    if (options.Json) {
        std::cout << GateRunJson(*options.Run, times, doorClosed);
    } else {
        std::cout << (positions.empty() ? TimeTable(times)
                                        : MotionTable(MotionOf(times, positions)));
    }
    if (plot) {
        SaveChart(PictureOf(MotionOf(times, positions)), *plot);
        ReportChart(*plot, options.Json);
    }
}

void ShowGates(const DriverOptions& driverOptions, const GatesOptions& options) {
    const auto session = OpenDriver(driverOptions);
    const GateStates states = ReadGates(session->Driver.Exports);
    if (options.Json) {
        std::cout << GatesJson(states);
        return;
    }
    std::cout << "Forks  " << states.Forks << "\nDoor   " << (states.DoorClosed ? "closed" : "open")
              << "\n\n"
              << StateTable(states);
}

} // namespace

void AddGatesCommand(CLI::App& command, const DriverOptions& driver) {
    auto options = std::make_shared<GatesOptions>();
    command.footer(
        "The times of a run are those of the leading edge, from the door on. With the positions of "
        "the gates there are speeds: the mean speed between two crossings is that at the middle of "
        "the time between them, its mid-time, not at one of the crossings. The line that fits the "
        "speeds at mid-times gives g, also of a card that already moves when it comes to the "
        "door.");
    CLI::Option* run = command.add_option("--run", options->Run,
                                          "Time a run over this many forks; Ctrl-C aborts it");
    TakeWholeNumber(run->type_name("N"), 1);
    command.add_option("--timeout", options->Timeout, "How long to wait for the end of the run")
        ->type_name("DURATION")
        ->capture_default_str()
        ->needs(run);
    command
        .add_option("--positions", options->Positions,
                    "Where the gates of the run are, in m below the door and in the order in which "
                    "they are crossed: 0.25,0.27; with them speeds and g are shown (default: those "
                    "of the scenario, if there is one)")
        ->type_name("LIST")
        ->needs(run);
    command
        .add_option("--plot", options->Plot,
                    "Draw position and speed over time to this .png or .svg file")
        ->type_name("FILE")
        ->needs(run);
    AddJsonFlag(command, options->Json);
    command.callback([options, &driver] {
        options->Run ? TimeRun(driver, *options) : ShowGates(driver, *options);
    });
}

} // namespace orvane
