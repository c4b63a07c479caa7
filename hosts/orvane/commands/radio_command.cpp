#include "hosts/orvane/commands/commands.h"
#include "hosts/orvane/commands/json_texts.h"
#include "hosts/orvane/commands/option_checks.h"
#include "hosts/orvane/commands/shared_options.h"
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
    bool Json = false;
};

void WaitForPods(const DriverExports& driver, double seconds) {
    WaitFor(driver, seconds, NotInterrupted);
    if (Interrupted()) {
        throw HostError("The wait for pods was interrupted.", ErrorKind::Interrupted);
    }
}

std::string NetworkTable(const RadioNetwork& network) {
    TextRows rows;
    for (const Pod& pod : network.Pods) {
        rows.push_back({std::to_string(pod.Id), pod.Accepted ? "yes" : "no"});
    }
    return TableForOutput({{}, {}}, {{"Radio channel", std::to_string(network.Channel)},
                                     {"Pods connected", std::to_string(network.Pods.size())}}) +
           (rows.empty() ? "" : TableForOutput({{"Pod", true}, {"Accepted"}}, rows));
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
        if (!options.Json) {
            std::cout << "Device " << *options.Ping << " answers.\n";
        }
    }
    if (options.Accept) {
        AcceptPod(driver, *options.Accept);
    }
    const RadioNetwork network = DescribeRadio(driver, options.Pilot);
    std::cout << (options.Json ? RadioJson(network) : NetworkTable(network));
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
    AddJsonFlag(command, options->Json);
    command.callback([options, &driver] { ShowRadio(driver, *options); });
}

} // namespace orvane
