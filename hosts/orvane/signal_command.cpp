#include "hosts/common/host_error.h"
#include "hosts/common/text_table.h"
#include "hosts/orvane/commands.h"

#include <array>
#include <iostream>
#include <optional>

namespace {

struct SignalOptions {
    int32_t Output = 0;
    std::string Shape;
    double Amplitude = 1.0;
    double Offset = 0.0;
    double Frequency = 0.0;
    bool Loop = false;
    std::optional<double> Value;
    bool Stop = false;
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
    driver.CombienDeCanauxEnEntree(); // The outputs follow from it.
    const int outputs = driver.CombienDeCanauxEnSortie();
    if (outputs == 0) {
        throw HostError("This console has no analog output.");
    }
    if (output < 0 || output >= outputs) {
        throw WrongArgument("There is no output " + std::to_string(output) + ", only " +
                            std::to_string(outputs) + " from 0 on.");
    }
}

/// The driver itself limits a signal in part and a value not at all.
void CheckRange(const DriverExports& driver, double low, double high) {
    const double least = driver.GetOutValMin();
    const double most = driver.GetOutValMax();
    if (!(low >= least && low <= high && high <= most)) {
        throw WrongArgument(NumberText(low) + " … " + NumberText(high) +
                            " leaves the range of the outputs, " + NumberText(least) + " … " +
                            NumberText(most) + ".");
    }
}

void CheckFrequency(const DriverExports& driver, double frequency) {
    double ignored = 0.0;
    double highest = 0.0;
    driver.KiroDACParam(0, &ignored, &ignored, &highest);
    if (!(frequency > 0.0 && frequency <= highest)) {
        throw WrongArgument("A frequency lies above 0 and goes up to " + NumberText(highest) +
                            " Hz.");
    }
}

void Play(const DriverExports& driver, const SignalOptions& wish, const Shape& shape) {
    const double low = wish.Offset - wish.Amplitude / 2.0;
    const double high = wish.Offset + wish.Amplitude / 2.0;
    CheckRange(driver, low, high);
    CheckFrequency(driver, wish.Frequency);
    if (!(driver.*shape.Play)(wish.Output, wish.Amplitude, wish.Offset, wish.Frequency,
                              wish.Loop ? 1 : 0)) {
        throw WrongArgument("Output " + std::to_string(wish.Output) + " is too slow for " +
                            NumberText(wish.Frequency) + " Hz.");
    }
    std::cout << "Output " << wish.Output << " plays a " << shape.Name << ' ' << NumberText(low)
              << " … " << NumberText(high) << ", " << NumberText(wish.Frequency) << " Hz, "
              << (wish.Loop ? "in a loop" : "once") << ".\n";
}

void Signal(const DriverOptions& options, const SignalOptions& wish) {
    if (int{!wish.Shape.empty()} + int{wish.Value.has_value()} + int{wish.Stop} != 1) {
        throw WrongArgument("A signal is one of --shape, --value and --stop.");
    }
    const Shape* shape = wish.Shape.empty() ? nullptr : &ShapeNamed(wish.Shape);
    const auto session = OpenDriver(options);
    const DriverExports& driver = session->Driver.Exports;
    CheckOutput(driver, wish.Output);
    if (shape != nullptr) {
        Play(driver, wish, *shape);
        return;
    }
    // A value does not stop the signal that plays.
    constexpr int32_t stopCode = 2048;
    if (wish.Value) {
        CheckRange(driver, *wish.Value, *wish.Value);
    }
    driver.KiroDACEcrireNum(wish.Output, stopCode);
    if (wish.Value) {
        driver.KiroDACEcrire(wish.Output, *wish.Value);
    }
    std::cout << "Output " << wish.Output << " gives " << NumberText(wish.Value.value_or(0.0))
              << ".\n";
}

} // namespace

void AddSignalCommand(CLI::App& app, const DriverOptions& driver) {
    auto wish = std::make_shared<SignalOptions>();
    CLI::App* command = app.add_subcommand(
        "signal", "Plays a signal on an analog output; exit code 1 if the console has none");
    command->add_option("--output", wish->Output, "Which output")
        ->type_name("N")
        ->capture_default_str();
    CLI::Option* shape = command->add_option("--shape", wish->Shape, "Play this signal")
                             ->type_name("square|sine|triangle");
    command->add_option("--amplitude", wish->Amplitude, "From the lowest to the highest value")
        ->type_name("A")
        ->capture_default_str()
        ->needs(shape);
    command->add_option("--offset", wish->Offset, "The value in the middle")
        ->type_name("A")
        ->capture_default_str()
        ->needs(shape);
    CLI::Option* frequency =
        command->add_option("--frequency", wish->Frequency, "Periods per second")
            ->type_name("HZ")
            ->needs(shape);
    shape->needs(frequency);
    command->add_flag("--loop", wish->Loop, "Play on and on, not a single period")->needs(shape);
    command->add_option("--value", wish->Value, "Give this value all the time")->type_name("A");
    command->add_flag("--stop", wish->Stop, "Stop the signal and give 0");
    command->callback([wish, &driver] { Signal(driver, *wish); });
}
