#include "hosts/orvane/commands/commands.h"
#include "hosts/orvane/commands/shared_options.h"
#include "hosts/orvane/terminal/interrupt.h"
#include "hosts/orvane/terminal/standard_output.h"
#include "hosts/session/channel_setup.h"
#include "hosts/session/driver_time.h"
#include "hosts/session/durations.h"
#include "hosts/session/host_error.h"
#include "hosts/session/number_text.h"
#include "hosts/session/output_signal.h"

#include <iostream>
#include <limits>
#include <optional>

namespace orvane {

namespace {

struct SignalOptions {
    int32_t Output = 0;
    OutputSignal Signal;
    std::optional<double> Value;
    std::optional<std::string> Seconds;
    bool Stop = false;
    std::vector<std::string> Settings;
};

/// Keeps an output active for some time, or until Ctrl-C if none is given, because the end of the
/// program closes the console. Then the output goes back to 0.
void Hold(const DriverExports& driver, int32_t output, const std::string& what,
          std::optional<double> seconds) {
    std::cout << "Output " << output << ' ' << what
              << (seconds ? " for " + DurationText(*seconds) : " until Ctrl-C")
              << ", then it goes back to 0.\n";
    FlushOrEnd();
    WaitFor(driver, seconds.value_or(std::numeric_limits<double>::infinity()), NotInterrupted);
    StopOutput(driver, output);
}

void Play(const DriverExports& driver, int32_t output, const OutputSignal& signal,
          std::optional<double> seconds) {
    PlaySignal(driver, output, signal);
    if (!signal.Loop && !seconds) {
        seconds = 1.0 / signal.FrequencyHz;
    }
    Hold(driver, output,
         "plays a " + signal.Shape + " " + RangeText(signal.Low(), signal.High()) + ", " +
             NumberText(signal.FrequencyHz) + " Hz, " + (signal.Loop ? "in a loop" : "once"),
         seconds);
}

void Signal(const DriverOptions& driverOptions, const SignalOptions& options) {
    const bool plays = !options.Signal.Shape.empty();
    if (int{plays} + int{options.Value.has_value()} + int{options.Stop} != 1) {
        throw WrongArgument("A signal is one of --shape, --value and --stop.");
    }
    if (plays) {
        CheckShape(options.Signal.Shape);
    }
    std::optional<double> seconds;
    if (options.Seconds) {
        seconds = ParseWait("time", *options.Seconds);
    }
    const std::vector<ChannelSetup> setups = ParseChannelSetups(options.Settings);
    CatchInterrupts();
    const auto session = OpenDriver(driverOptions);
    const DriverExports& driver = session->Driver.Exports;
    EnumerateChannels(driver, setups); // The outputs are enumerated with the inputs.
    CheckOutput(driver, options.Output);
    if (plays) {
        Play(driver, options.Output, options.Signal, seconds);
    } else if (options.Value) {
        GiveValue(driver, options.Output, *options.Value);
        Hold(driver, options.Output, "gives " + NumberText(*options.Value), seconds);
    } else {
        StopOutput(driver, options.Output);
        std::cout << "Output " << options.Output << " gives 0.\n";
    }
}

} // namespace

void AddSignalCommand(CLI::App& command, const DriverOptions& driver) {
    auto options = std::make_shared<SignalOptions>();
    command.add_option("--output", options->Output, "Which output")
        ->type_name("N")
        ->capture_default_str();
    CLI::Option* shape = command.add_option("--shape", options->Signal.Shape, "Play this signal")
                             ->type_name("square|sine|triangle");
    command
        .add_option("--amplitude", options->Signal.Amplitude,
                    "From the lowest to the highest value")
        ->type_name("A")
        ->capture_default_str()
        ->needs(shape);
    command.add_option("--offset", options->Signal.Offset, "The value in the middle")
        ->type_name("A")
        ->capture_default_str()
        ->needs(shape);
    CLI::Option* frequency =
        command.add_option("--frequency", options->Signal.FrequencyHz, "Periods per second")
            ->type_name("HZ")
            ->needs(shape);
    shape->needs(frequency);
    command.add_flag("--loop", options->Signal.Loop, "Repeat the period until the end")
        ->needs(shape);
    CLI::Option* value =
        command.add_option("--value", options->Value, "Output this constant value")->type_name("A");
    CLI::Option* seconds = command.add_option("--seconds", options->Seconds, "End after this time")
                               ->type_name("DURATION");
    command.add_flag("--stop", options->Stop, "Stop the signal and output 0")
        ->excludes(shape)
        ->excludes(value)
        ->excludes(seconds);
    AddSetOption(command, options->Settings);
    command.callback([options, &driver] { Signal(driver, *options); });
}

} // namespace orvane
