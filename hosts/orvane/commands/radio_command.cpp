#include "hosts/orvane/commands/commands.h"
#include "hosts/orvane/commands/option_checks.h"
#include "hosts/orvane/terminal/interrupt.h"
#include "hosts/orvane/terminal/standard_output.h"
#include "hosts/session/driver_time.h"
#include "hosts/session/durations.h"
#include "hosts/session/host_error.h"
#include "hosts/session/radio_network.h"

#include <iostream>
#include <optional>

namespace orvane {

namespace {

struct RadioOptions {
    bool Pilot = false;
    bool None = false;
    std::string Wait;
    std::optional<int> Ping;
    std::optional<int> Accept;
};

void WaitForPods(const DriverExports& driver, double seconds) {
    WaitFor(driver, seconds, NotInterrupted);
    if (Interrupted()) {
        throw HostError("The wait for pods was interrupted.", ErrorKind::Interrupted);
    }
}

std::string PodTable(const std::vector<Pod>& pods) {
    TextRows rows;
    for (const Pod& pod : pods) {
        rows.push_back({std::to_string(pod.Id), pod.Accepted ? "yes" : "no"});
    }
    return rows.empty() ? "" : TableForOutput({{"Pod", true}, {"Accepted"}}, rows);
}

void ShowRadio(const DriverOptions& driverOptions, const RadioOptions& options) {
    const double waitSec = options.Wait.empty() ? 0.0 : ParseWait("wait", options.Wait);
    CatchInterrupts(); // The radio has to be stopped in any case.
    const auto session = OpenDriver(driverOptions);
    const DriverExports& driver = session->Driver.Exports;
    CheckRadio(driver);
    if (options.None) {
        EndRadioConfiguration(driver);
    }
    if (options.Pilot) {
        BecomePilot(driver);
    }
    WaitForPods(driver, waitSec);
    if (options.Ping) {
        PingDevice(driver, *options.Ping);
        std::cout << "Device " << *options.Ping << " answers.\n";
    }
    if (options.Accept) {
        AcceptPod(driver, *options.Accept);
    }
    std::cout << TableForOutput(
                     {{}, {}}, {{"Radio channel", std::to_string(driver.GetCanalReelO150())},
                                {"Pods connected", std::to_string(driver.GetNbPodConnectedO150())}})
              << PodTable(ConnectedPods(driver));
}

} // namespace

void AddRadioCommand(CLI::App& command, const DriverOptions& driver) {
    auto options = std::make_shared<RadioOptions>();
    CLI::Option* none = command.add_flag("--none", options->None, "End the configuration");
    command.add_flag("--pilot", options->Pilot, "Make the console the pilot of the network")
        ->excludes(none);
    command.add_option("--wait", options->Wait, "Give the pods this time to connect")
        ->type_name("DURATION");
    TakeWholeNumber(command.add_option("--ping", options->Ping, "Ping a device")->type_name("ID"),
                    0, 255);
    TakeWholeNumber(
        command.add_option("--accept", options->Accept, "Accept a connected pod")->type_name("ID"),
        0, RadioDeviceCount - 1);
    command.callback([options, &driver] { ShowRadio(driver, *options); });
}

} // namespace orvane
