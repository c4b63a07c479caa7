#include "hosts/orvane/commands/commands.h"
#include "hosts/orvane/commands/option_checks.h"
#include "hosts/orvane/terminal/interrupt.h"
#include "hosts/orvane/terminal/standard_output.h"
#include "hosts/session/durations.h"
#include "hosts/session/host_error.h"

#include <atomic>
#include <iostream>
#include <optional>

namespace orvane {

namespace {

struct RadioOptions {
    bool Pilot = false;
    bool None = false;
    std::string Wait;
    std::optional<unsigned> Ping;
    std::optional<int> Accept;
};

/// A field of a device, which the console may be changing on a thread of its own.
template <typename T> T FieldNow(T& field) {
    return std::atomic_ref(field).load();
}

void Configure(const DriverExports& driver, const RadioOptions& options) {
    if (options.None && !driver.RadioSetConfigNoneO150()) {
        throw HostError("The console refuses to end the configuration of its radio network.");
    }
    if (options.Pilot && !driver.RadioSetConfigPilotO150()) {
        throw HostError("The console does not become the pilot of a radio network: its memory "
                        "holds no valid configuration, or it refuses.");
    }
}

void WaitForPods(double seconds) {
    WaitUnlessInterrupted(seconds);
    if (Interrupted()) {
        throw HostError("The wait for pods was interrupted.", ErrorKind::Interrupted);
    }
}

void Ping(const DriverExports& driver, unsigned id) {
    if (!driver.RadioPingDeviceO150(static_cast<unsigned char>(id))) {
        throw HostError("Device " + std::to_string(id) + " does not answer.");
    }
    std::cout << "Device " << id << " answers.\n";
}

void Accept(const DriverExports& driver, int id) {
    TVL_RADIO_DEVICE& device = *driver.GetRadioDeviceO150(id);
    if (FieldNow(device.Connecte) == 0) {
        throw HostError("Device " + std::to_string(id) + " is not connected.");
    }
    driver.AcceptDeviceO150(id);
    if (FieldNow(device.Accepte) == 0) {
        throw HostError("The console does not accept device " + std::to_string(id) + ".");
    }
}

/// The entries of the table that are in use.
std::string DeviceTable(const DriverExports& driver) {
    std::vector<std::vector<std::string>> rows;
    for (int id = 0; id < RadioDeviceCount; ++id) {
        TVL_RADIO_DEVICE& device = *driver.GetRadioDeviceO150(id);
        if (FieldNow(device.Connecte) != 0) {
            rows.push_back({std::to_string(id), FieldNow(device.Accepte) != 0 ? "yes" : "no"});
        }
    }
    return rows.empty() ? "" : TableForOutput({{"Pod", true}, {"Accepted"}}, rows);
}

void ShowRadio(const DriverOptions& driverOptions, const RadioOptions& options) {
    const double waitSec = options.Wait.empty() ? 0.0 : ParseWait("wait", options.Wait);
    CatchInterrupts(); // The radio is to be stopped in any case.
    const auto session = OpenDriver(driverOptions);
    const DriverExports& driver = session->Driver.Exports;
    if (driver.GetInterfaceName() != "Orvane150") {
        throw HostError("This console has no radio network.");
    }
    Configure(driver, options);
    WaitForPods(waitSec);
    if (options.Ping) {
        Ping(driver, *options.Ping);
    }
    if (options.Accept) {
        Accept(driver, *options.Accept);
    }
    std::cout << TableForOutput(
                     {{}, {}}, {{"Radio channel", std::to_string(driver.GetCanalReelO150())},
                                {"Pods connected", std::to_string(driver.GetNbPodConnectedO150())}})
              << DeviceTable(driver);
}

} // namespace

void AddRadioCommand(CLI::App& command, const DriverOptions& driver) {
    auto options = std::make_shared<RadioOptions>();
    CLI::Option* none = command.add_flag("--none", options->None, "End the configuration");
    command.add_flag("--pilot", options->Pilot, "Make the console the pilot of the network")
        ->excludes(none);
    command.add_option("--wait", options->Wait, "Give the pods this time to connect")
        ->type_name("DURATION");
    TakeWholeNumber(command.add_option("--ping", options->Ping, "Ask a device for a sign of life")
                        ->type_name("ID"),
                    0, 255);
    TakeWholeNumber(
        command.add_option("--accept", options->Accept, "Accept a connected pod")->type_name("ID"),
        0, RadioDeviceCount - 1);
    command.callback([options, &driver] { ShowRadio(driver, *options); });
}

} // namespace orvane
