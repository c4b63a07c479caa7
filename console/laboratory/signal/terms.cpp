// The terms of a signal as functions of time. All but the loopback compute from the instant alone.

#include "console/laboratory/signal/terms.h"

#include "console/laboratory/signal/elementary.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace orvane::laboratory {

namespace {

constexpr double nsPerSecond = 1e9;
constexpr double quarterTurn = 0.25;

/// A time in ns. What is as good as a whole number becomes one: a file's 2.1e-3 s.
double Nanoseconds(double seconds) {
    constexpr double asGoodAs = 1e-6;
    const double ns = seconds * nsPerSecond;
    const double whole = Nearest(ns);
    return whole > 0.0 && std::fabs(ns - whole) < asGoodAs ? whole : ns;
}

/// The time since a delay, 0 before it.
double Since(double delay, double time) {
    const double since = time - delay;
    return since > 0.0 ? since : 0.0;
}

double UndampedAt(const SinTerm& sine, const Instant& at) {
    return sine.Amplitude * SineOfTurns(sine.Frequency * Since(sine.Delay, at.Seconds));
}

double DampedAt(const SinTerm& sine, const Instant& at) {
    return UndampedAt(sine, at) * Exponential(-Since(sine.Delay, at.Seconds) * sine.Damping);
}

double TermAt(const SinTerm& sine, const Instant& at) {
    return sine.Offset + (sine.Damping == 0.0 ? UndampedAt(sine, at) : DampedAt(sine, at));
}

/// A pulse is computed in ns, where periods and times mostly are whole numbers: so an edge lies at
/// its sample, whatever the number of periods before it.
double TermAt(const PulseTerm& pulse, const Instant& at) {
    const double period = Nanoseconds(pulse.Period);
    const double rise = Nanoseconds(pulse.Rise);
    const double fallFrom = rise + Nanoseconds(pulse.Width);
    const double fall = Nanoseconds(pulse.Fall);
    double since = at.Ns - Nanoseconds(pulse.Delay);
    if (since < 0.0) {
        return pulse.First;
    }
    if (period > 0.0) {
        since = std::max(since - period * Floor(since / period), 0.0);
    }
    if (since < rise) {
        return pulse.First + (pulse.Second - pulse.First) * (since / rise);
    }
    if (since < fallFrom) {
        return pulse.Second;
    }
    const double falling = since - fallFrom;
    return falling < fall ? pulse.Second + (pulse.First - pulse.Second) * (falling / fall)
                          : pulse.First;
}

double TermAt(const ExpTerm& curve, const Instant& at) {
    const double rise = curve.Second - curve.First;
    const double risen =
        ExponentialMinusOne(Since(curve.RiseDelay, at.Seconds) * (-1.0 / curve.RiseTime));
    const double fallen =
        ExponentialMinusOne(Since(curve.FallDelay, at.Seconds) * (-1.0 / curve.FallTime));
    return curve.First - rise * risen + rise * fallen;
}

double TermAt(const PwlTerm& lines, const Instant& at) {
    const double t = at.Ns / nsPerSecond; // To the last bit, so that it meets the file's times.
    const auto after = std::ranges::upper_bound(lines.Times, t);
    if (after == lines.Times.begin()) {
        return lines.Values.front();
    }
    if (after == lines.Times.end()) {
        return lines.Values.back();
    }
    const auto next = static_cast<size_t>(std::distance(lines.Times.begin(), after));
    const double from = lines.Times[next - 1];
    const double value = lines.Values[next - 1];
    return value + (lines.Values[next] - value) * ((t - from) / (*after - from));
}

double TermAt(const DampedTerm& swing, const Instant& at) {
    const double since = Since(0.0, at.Seconds);
    return swing.Amplitude * SineOfTurns(swing.Frequency * since + quarterTurn) *
           Exponential(since * (-1.0 / swing.Time));
}

double TermAt(const FileTerm& file, const Instant& at) {
    constexpr double mostSamples = 0x1p53;
    const double last = file.Loop ? mostSamples : static_cast<double>(file.Values.size() - 1);
    const double number = std::clamp(at.Ns / Nanoseconds(file.Period), 0.0, last);
    return file.Values[static_cast<size_t>(number) % file.Values.size()];
}

template <class ValueOf>
void AddEach(const Instants& at, std::span<double> samples, ValueOf valueOf) {
    for (size_t i = 0; i < samples.size(); ++i) {
        samples[i] += valueOf(InstantAt(at, i));
    }
}

/// Terms of a few numbers are copied: so the samples can't change them.
template <class Form>
void AddEach(const Form& term, const Instants& at, std::span<double> samples) {
    if constexpr (std::is_trivially_copyable_v<Form>) {
        AddEach(at, samples, [term](const Instant& one) { return TermAt(term, one); });
    } else {
        AddEach(at, samples, [&term](const Instant& one) { return TermAt(term, one); });
    }
}

/// Whether a sine is damped is asked once.
void AddEach(const SinTerm& sine, const Instants& at, std::span<double> samples) {
    if (sine.Damping == 0.0) {
        AddEach(at, samples,
                [sine](const Instant& one) { return sine.Offset + UndampedAt(sine, one); });
    } else {
        AddEach(at, samples,
                [sine](const Instant& one) { return sine.Offset + DampedAt(sine, one); });
    }
}

} // namespace

double ValueAt(const Term& term, const OutputHistories& outputs, const Instant& at) {
    return std::visit(
        [&](const auto& form) {
            if constexpr (std::is_same_v<decltype(form), const OutputTerm&>) {
                return LoopedBack(outputs[form.Output], form, at.ClockNs);
            } else {
                return TermAt(form, at);
            }
        },
        term);
}

void AddTerm(const Term& term, const OutputHistories& outputs, const Instants& at,
             std::span<double> samples) {
    std::visit(
        [&](const auto& form) {
            if constexpr (std::is_same_v<decltype(form), const OutputTerm&>) {
                AddLoopedBack(outputs[form.Output], form, at.ClockNs, samples);
            } else {
                AddEach(form, at, samples);
            }
        },
        term);
}

} // namespace orvane::laboratory
