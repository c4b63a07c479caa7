// The terms of a signal: the kinds, and the arguments of each in their order.

#include "console/laboratory/scenario/named_files.h"
#include "console/laboratory/scenario/scenario_tables.h"

namespace orvane::laboratory {

namespace {

constexpr std::array sinRows{
    Plain<&SinTerm::Offset>("offset", {}, required),
    Plain<&SinTerm::Amplitude>("amplitude", {}, required),
    Plain<&SinTerm::Frequency>("frequency", {.Min = 0.0, .Max = 1e9, .Unit = "Hz"}, required),
    Plain<&SinTerm::Delay>("delay", AnyTime),
    Plain<&SinTerm::Damping>("damping", {.Min = 0.0, .Unit = "1/s"}),
};
constexpr KeyTable<SinTerm> sinArguments{"sin", sinRows};

constexpr Bounds EndlessTime{.Min = 0.0, .Max = longestTime, .Unit = "s", .Infinite = true};

constexpr std::array pulseRows{
    Plain<&PulseTerm::First>("first", {}, required),
    Plain<&PulseTerm::Second>("second", {}, required),
    Plain<&PulseTerm::Delay>("delay", AnyTime),
    Plain<&PulseTerm::Rise>("rise", AnyTime),
    Plain<&PulseTerm::Fall>("fall", AnyTime),
    Plain<&PulseTerm::Width>("width", EndlessTime, "inf"),
    Plain<&PulseTerm::Period>("period", AnyTime, "0: once"),
};
constexpr KeyTable<PulseTerm> pulseArguments{"pulse", pulseRows};

constexpr std::array expRows{
    Plain<&ExpTerm::First>("first", {}, required),
    Plain<&ExpTerm::Second>("second", {}, required),
    Plain<&ExpTerm::RiseDelay>("rise_delay", AnyTime, required),
    Plain<&ExpTerm::RiseTime>("rise_time", SomeTime, required),
    Plain<&ExpTerm::FallDelay>("fall_delay", EndlessTime, "inf"),
    Plain<&ExpTerm::FallTime>("fall_time", SomeTime),
};
constexpr KeyTable<ExpTerm> expArguments{"exp", expRows};

constexpr std::array dampedRows{
    Plain<&DampedTerm::Amplitude>("amplitude", {}, required),
    Plain<&DampedTerm::Frequency>("frequency", {.Min = 0.0, .Max = 1e9, .Unit = "Hz"}, required),
    Plain<&DampedTerm::Time>("time", SomeTime, required),
};
constexpr KeyTable<DampedTerm> dampedArguments{"damped", dampedRows};

struct NamedColumn {
    std::string Path;
    uint32_t Column = 1;
    FileTerm Samples;
};

void ReadPeriod(Reading& reading, const Value& value, const KeyText& key, NamedColumn& file) {
    ReadInto(reading, value, key, file.Samples.Period);
}

void ReadLoop(Reading& reading, const Value& value, const KeyText& key, NamedColumn& file) {
    ReadInto(reading, value, key, file.Samples.Loop);
}

constexpr std::array fileRows{
    Plain<&NamedColumn::Path>("path", {}, required),
    Plain<&NamedColumn::Column>("column", {.Min = 1, .Max = 1000}),
    Key<NamedColumn>{{"period", "number", "1", {shortestPeriod, longestTime, "s"}}, ReadPeriod},
    Key<NamedColumn>{{"loop", "flag, true or false", "false"}, ReadLoop},
};
constexpr KeyTable<NamedColumn> fileKeys{"file", fileRows};

template <class Argument, const KeyTable<Argument>& Arguments, size_t Least>
void ReadList(Reading& reading, const Value& value, const KeyText& key, std::optional<Term>& term) {
    Argument argument{};
    ReadArguments(reading, value, key, Arguments, Least, argument);
    term = argument;
}

void ReadPulse(Reading& reading, const Value& value, const KeyText& key,
               std::optional<Term>& term) {
    PulseTerm pulse{.Width = unbounded};
    if (ReadArguments(reading, value, key, pulseArguments, 2, pulse) && pulse.Period != 0.0 &&
        !(pulse.Rise + pulse.Width + pulse.Fall <= pulse.Period)) {
        Report(reading, value.At,
               R"(the period of "pulse" is shorter than rise, width and fall together; )"
               "make it 0 for one pulse, or longer");
    }
    term = pulse;
}

void ReadExp(Reading& reading, const Value& value, const KeyText& key, std::optional<Term>& term) {
    ExpTerm exponential{.FallDelay = unbounded};
    if (ReadArguments(reading, value, key, expArguments, 4, exponential) &&
        exponential.FallDelay < exponential.RiseDelay) {
        Report(reading, value.At,
               R"("exp" falls before it rises; fall_delay comes after rise_delay)");
    }
    term = exponential;
}

void ReadPwl(Reading& reading, const Value& value, const KeyText& key, std::optional<Term>& term) {
    PwlTerm line;
    const List* list = ListOf(reading, value, key, 2, std::numeric_limits<size_t>::max());
    const KeyText time{"time of pwl", "number", {}, AnyTime};
    const KeyText at{"value of pwl", "number", {}};
    if (list != nullptr && list->size() % 2 != 0) {
        ReportMismatch(reading, value, key);
        list = nullptr;
    }
    for (size_t i = 0; list != nullptr && i < list->size(); i += 2) {
        const double next = NumberOf(reading, (*list)[i], time).value_or(0.0);
        if (i > 0 && next <= line.Times.back()) {
            Report(reading, (*list)[i].At,
                   "the times of \"pwl\" rise; " + NumberText(next) + " s comes after " +
                       NumberText(line.Times.back()) + " s");
        }
        line.Times.push_back(next);
        line.Values.push_back(NumberOf(reading, (*list)[i + 1], at).value_or(0.0));
    }
    term = std::move(line);
}

void ReadFile(Reading& reading, const Value& value, const KeyText& /*key*/,
              std::optional<Term>& term) {
    NamedColumn file;
    ReadTable(reading, value, fileKeys, file);
    if (!file.Path.empty()) {
        file.Samples.Values = ReadSamples(reading, value.At, file.Path, file.Column);
    }
    term = std::move(file.Samples);
}

constexpr std::array termRows{
    Key<std::optional<Term>>{{"sin", "list of 3 to 5 numbers", "none"},
                             ReadList<SinTerm, sinArguments, 3>,
                             nullptr,
                             DescribeKeys<sinArguments>},
    Key<std::optional<Term>>{{"pulse", "list of 2 to 7 numbers", "none"},
                             ReadPulse,
                             nullptr,
                             DescribeKeys<pulseArguments>},
    Key<std::optional<Term>>{
        {"exp", "list of 4 to 6 numbers", "none"}, ReadExp, nullptr, DescribeKeys<expArguments>},
    Key<std::optional<Term>>{{"pwl", "list [time, value, time, value, ...]", "none"}, ReadPwl},
    Key<std::optional<Term>>{{"damped", "list of 3 numbers", "none"},
                             ReadList<DampedTerm, dampedArguments, 3>,
                             nullptr,
                             DescribeKeys<dampedArguments>},
    Key<std::optional<Term>>{{"file", "table", "none"}, ReadFile, nullptr, DescribeKeys<fileKeys>},
};
constexpr KeyTable<std::optional<Term>> termKeys{"signal", termRows};

constexpr std::array loopbackRows{
    Plain<&OutputTerm::Output>("output", {.Min = 0, .Max = longestList - 1.0}, "none"),
    Plain<&OutputTerm::Gain>("gain"),
    Plain<&OutputTerm::Delay>("delay", AnyTime),
    Plain<&OutputTerm::LowPass>("low_pass", AnyTime),
};
constexpr KeyTable<OutputTerm> loopbackKeys{"signal", loopbackRows};

/// What an output plays is a term too, said by several keys.
OutputTerm ReadLoopback(Reading& reading, const Table& table, Place at) {
    OutputTerm loopback;
    ReadKeys(reading, table, at, loopbackKeys, loopback);
    const Member* output = Find(table, "output");
    const size_t outputs = reading.Result.Outputs.size();
    if (output == nullptr) {
        Report(reading, at, R"("gain", "delay" and "low_pass" belong to a term with "output")");
    } else if (loopback.Output >= outputs) {
        Report(reading, output->Held.At,
               "there is no output " + std::to_string(loopback.Output) +
                   (outputs == 0 ? "; [[output]] adds one"
                                 : "; the last one is " + std::to_string(outputs - 1)));
    }
    return loopback;
}

/// A term is of exactly one kind.
void ReadTerm(Reading& reading, const Value& value, Function& function) {
    const Table* table = TableOf(reading, value, {"signal", "list of tables", {}});
    if (table == nullptr) {
        return;
    }
    std::vector<std::string_view> known = NamesOf(termKeys.Keys);
    const auto given = [&](std::string_view name) { return Find(*table, name) != nullptr; };
    auto kinds = std::ranges::count_if(known, given);
    std::ranges::copy(NamesOf(loopbackKeys.Keys), std::back_inserter(known));
    ReportUnknown(reading, "signal", *table, known);

    std::optional<Term> term;
    ReadKeys(reading, *table, value.At, termKeys, term);
    if (std::ranges::any_of(NamesOf(loopbackKeys.Keys), given)) {
        term = ReadLoopback(reading, *table, value.At);
        kinds += given("output") ? 1 : 0;
    }
    if (kinds > 1 || !term) {
        Report(reading, value.At,
               "each table of \"signal\" is one term: exactly one of sin, pulse, exp, pwl, damped, "
               "file and output");
    } else {
        function.Signal.push_back(*std::move(term));
    }
}

} // namespace

void ReadSignal(Reading& reading, const Value& value, const KeyText& key, Function& function) {
    if (const List* list = ListOf(reading, value, key, 0, longestList); list != nullptr) {
        for (const Value& term : *list) {
            ReadTerm(reading, term, function);
        }
    }
}

void DescribeSignal(Descriptions& all) {
    Describe(all, termKeys);
    Describe(all, loopbackKeys);
}

} // namespace orvane::laboratory
