#include "console/laboratory/scenario/value_reading.h"

#include "console/laboratory/scenario/named_files.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace orvane::laboratory {

namespace {

/// The number of a value, finite or not.
std::optional<double> AnyNumber(const Value& value) {
    if (const auto* whole = std::get_if<int64_t>(&value.Content); whole != nullptr) {
        return static_cast<double>(*whole);
    }
    const auto* number = std::get_if<double>(&value.Content);
    return number != nullptr ? std::optional(*number) : std::nullopt;
}

bool Within(const Bounds& bounds, double number) {
    return (bounds.Infinite && number == unbounded) ||
           (std::isfinite(number) && number >= bounds.Min && number <= bounds.Max &&
            !(bounds.Open && number == bounds.Min));
}

std::string BoundsText(const Bounds& bounds) {
    const std::string least = NumberText(bounds.Min);
    const std::string most = NumberText(bounds.Max);
    std::string text;
    if (bounds.Min > -greatestNumber && bounds.Max < greatestNumber) {
        text = bounds.Open ? " above " + least + ", at most " + most
                           : " from " + least + " to " + most;
    } else if (bounds.Min > -greatestNumber) {
        text = bounds.Open ? " above " + least : " of " + least + " or more";
    }
    text += bounds.Infinite ? " or inf" : "";
    return bounds.Unit.empty() ? text : text + " (" + std::string(bounds.Unit) + ")";
}

struct GivenText {
    std::string operator()(Date /*date*/) const {
        return "a date";
    }
    std::string operator()(bool flag) const {
        return flag ? "true" : "false";
    }
    std::string operator()(int64_t whole) const {
        return std::to_string(whole);
    }
    std::string operator()(double number) const {
        return NumberText(number);
    }
    std::string operator()(const std::string& text) const {
        return Quoted(text);
    }
    std::string operator()(const List& list) const {
        return "a list of " + std::to_string(list.size());
    }
    std::string operator()(const Table& /*table*/) const {
        return "a table";
    }
};

} // namespace

void Report(Reading& reading, Place at, std::string text) {
    reading.Problems.push_back({at, std::move(text)});
}

std::string NumberText(double number) {
    std::array<char, 32> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    std::string text(digits.data(), end);
    if (const size_t exponent = text.find('e'); exponent != std::string::npos) { // 1e+09, 1e-06
        text.erase(exponent + 1, text[exponent + 1] == '+' ? 1 : 0);
        const size_t digit = text.find_first_of("0123456789", exponent);
        text.erase(digit, text[digit] == '0' ? 1 : 0);
    }
    return text;
}

std::string Quoted(std::string_view text) {
    constexpr size_t most = 60;
    constexpr unsigned char space = 0x20;
    constexpr unsigned char rubout = 0x7F;
    std::string shown = "\"";
    for (size_t i = 0; i < text.size(); ++i) {
        const auto byte = static_cast<unsigned char>(text[i]);
        if (i >= most && (byte & 0xC0U) != 0x80U) { // A character begins.
            shown += "…";
            break;
        }
        shown += byte < space || byte == rubout ? '?' : text[i];
    }
    return shown + "\"";
}

std::string TakesText(const KeyText& key) {
    return std::string(key.Takes) + BoundsText(key.Limits);
}

void ReportMismatch(Reading& reading, const Value& value, const KeyText& key) {
    Report(reading, value.At,
           Quoted(key.Name) + " takes a " + TakesText(key) + ", not " +
               std::visit(GivenText{}, value.Content));
}

const List* ListOf(Reading& reading, const Value& value, const KeyText& key, size_t least,
                   size_t most) {
    const auto* list = std::get_if<List>(&value.Content);
    if (list == nullptr || list->size() < least || list->size() > most) {
        ReportMismatch(reading, value, key);
        return nullptr;
    }
    return list;
}

const Table* TableOf(Reading& reading, const Value& value, const KeyText& key) {
    const auto* table = std::get_if<Table>(&value.Content);
    if (table == nullptr) {
        ReportMismatch(reading, value, key);
    }
    return table;
}

std::optional<double> NumberOf(Reading& reading, const Value& value, const KeyText& key) {
    const auto number = AnyNumber(value);
    if (!number || !Within(key.Limits, *number)) {
        ReportMismatch(reading, value, key);
        return std::nullopt;
    }
    return number;
}

std::optional<int64_t> WholeOf(Reading& reading, const Value& value, const KeyText& key) {
    const auto* whole = std::get_if<int64_t>(&value.Content);
    if (whole == nullptr || !Within(key.Limits, static_cast<double>(*whole))) {
        ReportMismatch(reading, value, key);
        return std::nullopt;
    }
    return *whole;
}

void ReadInto(Reading& reading, const Value& value, const KeyText& key, double& to) {
    to = NumberOf(reading, value, key).value_or(to);
}

void ReadInto(Reading& reading, const Value& value, const KeyText& key, bool& to) {
    const auto* flag = std::get_if<bool>(&value.Content);
    if (flag == nullptr) {
        ReportMismatch(reading, value, key);
    } else {
        to = *flag;
    }
}

void ReadInto(Reading& reading, const Value& value, const KeyText& key, std::string& to) {
    const auto* text = std::get_if<std::string>(&value.Content);
    if (text == nullptr) {
        ReportMismatch(reading, value, key);
    } else if (text->size() > longestText || text->find('\0') != std::string::npos) {
        Report(reading, value.At,
               Quoted(key.Name) + " has " + std::to_string(text->size()) +
                   " bytes or a NUL among them; a text has at most " + std::to_string(longestText) +
                   " bytes and no NUL");
    } else {
        to = *text;
    }
}

void ReadInto(Reading& reading, const Value& value, const KeyText& key, Range& to) {
    const auto* list = ListOf(reading, value, key, 2, 2);
    if (list == nullptr) {
        return;
    }
    // Records of the console hold the limits in single precision.
    constexpr double most = std::numeric_limits<float>::max();
    const double min = AnyNumber(list->front()).value_or(unbounded);
    const double max = AnyNumber(list->back()).value_or(-unbounded);
    if (!(min >= -most && max <= most && static_cast<float>(min) < static_cast<float>(max))) {
        ReportMismatch(reading, value, key);
        return;
    }
    to = {min, max};
}

void ReadInto(Reading& reading, const Value& value, const KeyText& key, Picture& to) {
    std::string path;
    ReadInto(reading, value, key, path);
    if (!path.empty()) {
        to = ReadPicture(reading, value.At, path);
    }
}

std::optional<size_t> ChoiceOf(Reading& reading, const Value& value, const KeyText& key,
                               std::span<const std::string_view> names) {
    const auto* text = std::get_if<std::string>(&value.Content);
    const auto found = text == nullptr ? names.end() : std::ranges::find(names, *text);
    if (found == names.end()) {
        ReportMismatch(reading, value, key);
        return std::nullopt;
    }
    return static_cast<size_t>(found - names.begin());
}

} // namespace orvane::laboratory
