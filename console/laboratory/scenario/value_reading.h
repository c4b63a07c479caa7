#pragma once

/// \file
/// From values of a file to those of the scenario. What doesn't fit is reported, and the
/// scenario keeps its default.

#include "console/laboratory/scenario/scenario.h"
#include "console/laboratory/scenario/toml_tree.h"

#include <filesystem>
#include <limits>
#include <optional>
#include <span>
#include <string_view>
#include <type_traits>

namespace orvane::laboratory {

struct Problem {
    Place At;
    std::string Text;
};

/// A file while it is read.
struct Reading {
    std::filesystem::path Folder; ///< Of the pictures and samples.
    Scenario Result;
    std::vector<Place> AdapterPlaces; ///< Of the keys of Result's adapters.
    std::vector<Problem> Problems;
};

void Report(Reading& reading, Place at, std::string text);

constexpr double unbounded = std::numeric_limits<double>::infinity();
constexpr double greatestNumber = 1e30; ///< Products of a few are still finite.
constexpr double longestTime = 1e9;     ///< s; in ns it is still a whole number of 64 bits.
constexpr double shortestPeriod = 1e-9;
constexpr uint8_t connectors = 4;   ///< Numbered from 1.
constexpr size_t longestText = 255; ///< Bytes, as the records of a console take them.
constexpr size_t longestList = 255; ///< Of whatever a record of the console counts.

/// What a number may be.
struct Bounds {
    double Min = -greatestNumber;
    double Max = greatestNumber;
    std::string_view Unit{};
    bool Open = false;     ///< Min itself is not in.
    bool Infinite = false; ///< "inf" is in besides.
};

constexpr Bounds AnyTime{.Min = 0.0, .Max = longestTime, .Unit = "s"};
constexpr Bounds SomeTime{.Min = 1e-9, .Max = longestTime, .Unit = "s"};
constexpr Bounds NotNegative{.Min = 0.0};

/// What a key is called and what it takes.
struct KeyText {
    std::string_view Name;
    std::string_view Takes; ///< Completed by the bounds where it is a number.
    std::string_view Default{};
    Bounds Limits{};
};

/// The default of a key that has to be there.
constexpr std::string_view required = "required";

/// All that a key takes, in words: "number from 0 to 4 (s)".
std::string TakesText(const KeyText& key);

std::string NumberText(double number);

/// In quotes, in a length and with characters that a terminal can show.
std::string Quoted(std::string_view text);

/// `"period" takes a number above 0 (s), not -1`
void ReportMismatch(Reading& reading, const Value& value, const KeyText& key);

/// Null and a report if it is none, or if it has fewer or more elements.
const List* ListOf(Reading& reading, const Value& value, const KeyText& key, size_t least,
                   size_t most);
const Table* TableOf(Reading& reading, const Value& value, const KeyText& key);

/// A number within the key's bounds, whole or not.
std::optional<double> NumberOf(Reading& reading, const Value& value, const KeyText& key);
std::optional<int64_t> WholeOf(Reading& reading, const Value& value, const KeyText& key);

/// \name Reading one value
/// What doesn't fit leaves `to` as it is.
/// @{
void ReadInto(Reading& reading, const Value& value, const KeyText& key, double& to);
void ReadInto(Reading& reading, const Value& value, const KeyText& key, bool& to);
void ReadInto(Reading& reading, const Value& value, const KeyText& key, std::string& to);
void ReadInto(Reading& reading, const Value& value, const KeyText& key, Range& to);
void ReadInto(Reading& reading, const Value& value, const KeyText& key, Picture& to);

template <std::integral Whole>
void ReadInto(Reading& reading, const Value& value, const KeyText& key, Whole& to) {
    if (const auto number = WholeOf(reading, value, key); number) {
        to = static_cast<Whole>(*number);
    }
}

template <class Inner>
void ReadInto(Reading& reading, const Value& value, const KeyText& key, std::optional<Inner>& to) {
    Inner inner{};
    const size_t before = reading.Problems.size();
    ReadInto(reading, value, key, inner);
    if (reading.Problems.size() == before) {
        to = std::move(inner);
    }
}

/// The place of a text among names.
std::optional<size_t> ChoiceOf(Reading& reading, const Value& value, const KeyText& key,
                               std::span<const std::string_view> names);

/// The names of an enumeration's values, in their order.
constexpr std::array<std::string_view, 2> NamesOf(Align /*any*/) {
    return {"clock", "run"};
}
constexpr std::array<std::string_view, 3> NamesOf(AdapterKind /*any*/) {
    return {"measuring", "gates", "turbine"};
}
constexpr std::array<std::string_view, 3> NamesOf(ClockMode /*any*/) {
    return {"real", "scaled", "virtual"};
}

template <class Choice>
requires std::is_enum_v<Choice>
void ReadInto(Reading& reading, const Value& value, const KeyText& key, Choice& to) {
    if (const auto place = ChoiceOf(reading, value, key, NamesOf(to)); place) {
        to = static_cast<Choice>(*place);
    }
}
/// @}

} // namespace orvane::laboratory
