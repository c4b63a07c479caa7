#pragma once

/// \file
/// A scenario as plain values: what the laboratory's console consists of and what happens at it.
/// `ReadScenario` makes it of a file and has checked all that is said here. Times are in s,
/// frequencies in Hz, volumes in L, flows in L/s, lengths in m, unless a field says otherwise.
/// docs/scenarios.md describes the file.

#include <algorithm>
#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace orvane::laboratory {

struct Range {
    double Min = 0.0;
    double Max = 0.0; ///< Above Min.
};

/// \name Terms of a signal, functions of the time t
/// The arguments of the first four and their order are those of SPICE's independent sources.
/// @{

/// Offset until Delay, then Offset + Amplitude sin(2 pi Frequency (t - Delay)) exp(-(t - Delay)
/// Damping).
struct SinTerm {
    double Offset = 0.0;
    double Amplitude = 0.0;
    double Frequency = 0.0;
    double Delay = 0.0;
    double Damping = 0.0; ///< 1/s
};

/// First until Delay; then, once or each Period: rises to Second, stays there for Width, falls
/// back.
struct PulseTerm {
    double First = 0.0;
    double Second = 0.0;
    double Delay = 0.0;
    double Rise = 0.0;
    double Fall = 0.0;
    double Width = 0.0;  ///< May be infinite.
    double Period = 0.0; ///< 0: once. Else at least Rise + Width + Fall.
};

/// First until RiseDelay; towards Second with RiseTime; from FallDelay on back with FallTime.
struct ExpTerm {
    double First = 0.0;
    double Second = 0.0;
    double RiseDelay = 0.0;
    double RiseTime = 1.0;  ///< Above 0.
    double FallDelay = 0.0; ///< Not before RiseDelay; may be infinite.
    double FallTime = 1.0;  ///< Above 0.
};

/// Straight lines between points; the first and last value before and after them.
struct PwlTerm {
    std::vector<double> Times;  ///< Rising; at least one.
    std::vector<double> Values; ///< As many.
};

/// Amplitude cos(2 pi Frequency t) exp(-t / Time); Amplitude before t = 0.
struct DampedTerm {
    double Amplitude = 0.0;
    double Frequency = 0.0;
    double Time = 1.0; ///< Above 0.
};

/// Samples of a file, each held for Period; the first before t = 0.
struct FileTerm {
    std::vector<double> Values; ///< At least one, finite.
    double Period = 1.0;        ///< Above 0.
    bool Loop = false;          ///< Else the last value stays.
};

/// What an analog output plays, through a first-order low pass if there is one.
struct OutputTerm {
    uint8_t Output = 0; ///< Below the number of outputs.
    double Gain = 1.0;
    double Delay = 0.0;
    double LowPass = 0.0; ///< Time constant; 0: none.
};
/// @}

using Term = std::variant<SinTerm, PulseTerm, ExpTerm, PwlTerm, DampedTerm, FileTerm, OutputTerm>;

/// What is added to the sum of a signal's terms, in the unit of the channel.
struct Noise {
    double White = 0.0;     ///< Standard deviation of each sample.
    double Flicker = 0.0;   ///< The same, of noise that falls with the frequency (1/f).
    double DriftRms = 0.0;  ///< RMS of a slow, bounded drift.
    double DriftTime = 1.0; ///< Between two knots of the drift; above 0.
    uint32_t Bits = 0;      ///< Of the converter, 1 to 24; 0: no rounding.
};

/// Where t = 0 lies.
enum class Align {
    Clock, ///< At the start of the console's clock.
    Run,   ///< At the start of the last acquisition; without one, at the start of the clock.
};

/// The bytes of a png, bmp or gif file.
struct Picture {
    std::string Format; ///< "png", "bmp" or "gif"; empty: no picture.
    std::vector<uint8_t> Bytes;
};

struct Calibre {
    std::string Name; ///< Such as "-12 … 12 V" if the file names none.
    Range Limits;
};

/// One quantity that a channel can measure.
struct Function {
    std::string Name;
    std::string QuantityName;      ///< "Tension"; may be empty.
    std::string Symbol;            ///< "u"
    std::string Unit;              ///< "V"; may be empty.
    std::vector<Calibre> Calibres; ///< 1 to 255.
    std::vector<Term> Signal;
    Noise Added;
    Align Zero = Align::Clock;
    Picture Image;
    uint8_t OwnAdjustment = 0; ///< 0: none; 1 to 3: its kind, as the driver's codes 101 to 103.
};

struct Channel {
    std::string Name;
    std::optional<int32_t> Label; ///< `Etiquette` of the channel's text.
    double ShortestPeriod = 1e-4;
    double DefaultPeriod = 1e-3;
    std::vector<Function> Functions; ///< 1 to 255.
};

/// How the channels of an adapter are adjusted. The adapter gets a channel that takes the value,
/// one that tells the state (modes 2 to 5) and one that gives the value back (modes 1, 4 and 5).
struct Adjustment {
    uint8_t Mode = 0; ///< 1: value; 2: presets with a state as text; 3: state as text; 4: state as
                      ///< number and picture; 5: state as number. 0: none.
    std::string Label;
    Range Limits{-1e9, 1e9};         ///< What is written is held within these.
    double Initial = 0.0;            ///< Within Limits.
    bool Adds = false;               ///< The value is added to what the channels measure.
    std::vector<std::string> States; ///< Texts (modes 2 and 3), by number from 0.
    std::vector<Picture> Pictures;   ///< One for each state (mode 4).
    double PresetTime = 0.0;         ///< How long a preset (mode 2) takes.
};

enum class AdapterKind { Measuring, Gates, Turbine };

struct Adapter {
    std::string Id; ///< The key in the file: what the timeline calls it.
    std::string Name;
    uint8_t Connector = 1; ///< 1 to 4, each taken once by what is plugged at the start.
    uint32_t Reference = 0;
    AdapterKind Kind = AdapterKind::Measuring;
    std::string Serial;
    Picture Image;                 ///< Also of its functions that name none.
    bool Plugged = true;           ///< At the start.
    std::vector<Channel> Channels; ///< Of a turbine: its flow. Gates have none in the file.
    Adjustment Adjusted;
    std::optional<double> Door; ///< Gates: position of the door below the card's lower edge.
    std::vector<std::array<double, 2>> Forks; ///< Gates: two positions each, rising; at most 2.
};

struct Output {
    std::string Name; ///< Begins with "Sortie a" or "Analog o".
    Range Limits{-1.0, 1.0};
    double Period = 1e-6; ///< Shortest, of a sample that it plays.
};

/// What falls through the gates.
struct Card {
    double Length = 0.1;
    double Gravity = 9.81; ///< m/s²
    double AfterArming = 0.5;
    std::optional<double> TerminalSpeed; ///< m/s; none: no drag.
};

/// A forced manoeuvre, again and again.
struct ForcedBreath {
    double Every = 20.0;
    double Fvc = 4.8;
    double Fev1 = 3.9; ///< Below Fvc.
    double Pef = 8.6;
    static constexpr double RiseTime = 0.08; ///< Until the peak flow. FEV1 counts from its middle.
};

/// The time that the expiration of a forced manoeuvre has.
constexpr double LongestExpiration(const ForcedBreath& forced) {
    constexpr double most = 15.0;
    constexpr double partOfCycle = 0.75;
    return std::min(most, partOfCycle * forced.Every);
}

/// What turns the turbine.
struct Breath {
    double Tidal = 0.5;
    double Rate = 15.0; ///< Breaths a minute.
    std::optional<ForcedBreath> Forced;
};

struct Pod {
    uint8_t Id = 0;      ///< 0 to 49.
    double Joins = 0.2;  ///< After the network is opened.
    double Leaves = 0.1; ///< After it is released.
    bool Pings = true;
};

struct Radio {
    uint8_t Channel = 15; ///< 11 to 26.
    int8_t Level = 4;     ///< -4 to 17.
    std::vector<Pod> Pods;
};

struct Plug {
    size_t Adapter = 0; ///< Index in the scenario's adapters.
    bool Plugged = true;
};

/// What an operation of the port does wrong.
struct Fault {
    std::string Operation;             ///< Its name.
    uint64_t From = 1;                 ///< The first call that it concerns.
    std::optional<uint64_t> Refuse;    ///< So many refusals; none: all from there on.
    std::optional<double> Probability; ///< Of a refusal, 0 to 1.
    std::optional<double> Latency;     ///< Time that a call takes; such a call is not refused.
    std::optional<uint32_t> Size;      ///< Wrong size of the console memory.
    bool Unterminated = false;         ///< Texts lack their terminator.
};

struct TimelineEntry {
    double Time = 0.0; ///< On the console's clock.
    std::variant<Plug, Fault> Event;
};

enum class ClockMode { Real, Scaled, Virtual };

constexpr double leastClockFactor = 1e-3;
constexpr double greatestClockFactor = 1e6;

struct ClockSetting {
    ClockMode Mode = ClockMode::Real;
    double Factor = 1.0; ///< Of a scaled clock, between the two above.
};

struct ConsoleIdentity {
    uint16_t Model = 12304; ///< 12304, 12306, 12336 or 12368.
    std::string Serial;
    std::string Type;
    std::string Establishment;
    std::array<std::string, 2> Lines;
};

struct Scenario {
    uint64_t Seed = 0;
    ConsoleIdentity Console;
    ClockSetting Time;
    double BusLatency = 0.0;
    std::vector<Output> Outputs;
    std::vector<Adapter> Adapters;
    Card Falling;
    Breath Breathing;
    Radio Network;
    std::vector<TimelineEntry> Timeline; ///< In the order of time.
};

} // namespace orvane::laboratory
