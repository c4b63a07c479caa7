#include "hosts/orvane/commands/commands.h"
#include "hosts/orvane/commands/shared_options.h"
#include "hosts/orvane/terminal/interrupt.h"
#include "hosts/orvane/terminal/standard_output.h"
#include "hosts/session/channel_setup.h"
#include "hosts/session/durations.h"
#include "hosts/session/host_error.h"
#include "hosts/session/number_text.h"

#include <array>
#include <iostream>
#include <limits>
#include <optional>

namespace orvane {

namespace {

struct SignalOptions {
    int32_t Output = 0;
    std::string Shape;
    double Amplitude = 1.0;
    double Offset = 0.0;
    double Frequency = 0.0;
    bool Loop = false;
    std::optional<double> Value;
    std::optional<std::string> Seconds;
    bool Stop = false;
    std::vector<std::string> Settings;
};

struct Shape {
    const char* Name;
    decltype(DriverExports::KiroDACSinus) DriverExports::*Play;
};

constexpr std::array<Shape, 3> shapes{{{"square", &DriverExports::KiroDACCreneau},
                                       {"sine", &DriverExports::KiroDACSinus},
                                       {"triangle", &DriverExports::KiroDACTriangle}}};

const Shape& ShapeNamed(const std::string& name) {
    for (const Shape& shape : shapes) {
        if (shape.Name == name) {
            return shape;
        }
    }
    throw WrongArgument("There is no shape \"" + name + "\", only square, sine and triangle.");
}

void CheckOutput(const DriverExports& driver, int32_t output) {
    const int outputs = driver.CombienDeCanauxEnSortie();
    if (outputs <= 0) {
        throw HostError("This console has no analog output.");
    }
    if (output < 0 || output >= outputs) {
        throw WrongArgument("There is no output " + std::to_string(output) + "; this console has " +
                            IndexesText(static_cast<size_t>(outputs)) + ".");
    }
}

std::string RangeText(double low, double high) {
    return NumberText(low) + " … " + NumberText(high);
}

/// The driver itself limits a signal in part and a value not at all.
void CheckRange(const DriverExports& driver, double low, double high) {
    const double least = driver.GetOutValMin();
    const double most = driver.GetOutValMax();
    if (!(low >= least && low <= high && high <= most)) {
        throw WrongArgument((low == high ? NumberText(low) : RangeText(low, high)) +
                            " is outside the range of the outputs, " + RangeText(least, most) +
                            ".");
    }
}

void CheckFrequency(const DriverExports& driver, double frequency) {
    double ignored = 0.0;
    double highest = 0.0;
    driver.KiroDACParam(0, &ignored, &ignored, &highest);
    if (!(frequency > 0.0 && frequency <= highest)) {
        throw WrongArgument("The frequency " + NumberText(frequency) +
                            " Hz is outside the range of the outputs, above 0 and up to " +
                            NumberText(highest) + " Hz.");
    }
}

/// A value does not stop the signal that plays, so each begins and ends with this.
void StopOutput(const DriverExports& driver, int32_t output) {
    constexpr int32_t stopCode = 2048;
    driver.KiroDACEcrireNum(output, stopCode);
}

/// Holds what an output does for some time, or until Ctrl-C if none is told: the end of the program
/// closes the console. The output is back at 0 then.
void Hold(const DriverExports& driver, int32_t output, const std::string& what,
          std::optional<double> seconds) {
    std::cout << "Output " << output << ' ' << what
              << (seconds ? " for " + DurationText(*seconds) : " until Ctrl-C")
              << ", then it goes back to 0.\n";
    FlushOrEnd();
    WaitUnlessInterrupted(seconds.value_or(std::numeric_limits<double>::infinity()));
    StopOutput(driver, output);
}

void Play(const DriverExports& driver, const SignalOptions& options, const Shape& shape,
          std::optional<double> seconds) {
    const double low = options.Offset - options.Amplitude / 2.0;
    const double high = options.Offset + options.Amplitude / 2.0;
    CheckRange(driver, low, high);
    CheckFrequency(driver, options.Frequency);
    if (!(driver.*shape.Play)(options.Output, options.Amplitude, options.Offset, options.Frequency,
                              options.Loop ? 1 : 0)) {
        throw WrongArgument("Output " + std::to_string(options.Output) + " is too slow for " +
                            NumberText(options.Frequency) + " Hz.");
    }
    if (!options.Loop && !seconds) {
        seconds = 1.0 / options.Frequency;
    }
    Hold(driver, options.Output,
         "plays a " + (shape.Name + (" " + RangeText(low, high))) + ", " +
             NumberText(options.Frequency) + " Hz, " + (options.Loop ? "in a loop" : "once"),
         seconds);
}

void Signal(const DriverOptions& driverOptions, const SignalOptions& options) {
    if (int{!options.Shape.empty()} + int{options.Value.has_value()} + int{options.Stop} != 1) {
        throw WrongArgument("A signal is one of --shape, --value and --stop.");
    }
    const Shape* shape = options.Shape.empty() ? nullptr : &ShapeNamed(options.Shape);
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
    if (shape != nullptr) {
        Play(driver, options, *shape, seconds);
    } else if (options.Value) {
        CheckRange(driver, *options.Value, *options.Value);
        StopOutput(driver, options.Output);
        driver.KiroDACEcrire(options.Output, *options.Value);
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
    CLI::Option* shape = command.add_option("--shape", options->Shape, "Play this signal")
                             ->type_name("square|sine|triangle");
    command.add_option("--amplitude", options->Amplitude, "From the lowest to the highest value")
        ->type_name("A")
        ->capture_default_str()
        ->needs(shape);
    command.add_option("--offset", options->Offset, "The value in the middle")
        ->type_name("A")
        ->capture_default_str()
        ->needs(shape);
    CLI::Option* frequency =
        command.add_option("--frequency", options->Frequency, "Periods per second")
            ->type_name("HZ")
            ->needs(shape);
    shape->needs(frequency);
    command.add_flag("--loop", options->Loop, "Play on and on, not a single period")->needs(shape);
    CLI::Option* value =
        command.add_option("--value", options->Value, "Give this value all the time")
            ->type_name("A");
    CLI::Option* seconds =
        command.add_option("--seconds", options->Seconds, "End by itself after this time")
            ->type_name("DURATION");
    command.add_flag("--stop", options->Stop, "Stop the signal and give 0")
        ->excludes(shape)
        ->excludes(value)
        ->excludes(seconds);
    AddSetOption(command, options->Settings);
    command.callback([options, &driver] { Signal(driver, *options); });
}

} // namespace orvane
