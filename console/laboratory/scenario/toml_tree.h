#pragma once

/// \file
/// A TOML file as plain values that know where they stand.

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace orvane::laboratory {

/// Both count from 1; columns are characters.
struct Place {
    uint32_t Line = 1;
    uint32_t Column = 1;
    // The analyser means the zero that the generated comparison has inside.
    auto operator<=>(const Place&) const = default; // NOLINT(modernize-use-nullptr)
};

struct Value;
struct Member;
using List = std::vector<Value>;
using Table = std::vector<Member>; ///< In the order of the file.
struct Date {};                    ///< Scenarios have none: what it says is left out.

struct Value {
    Place At;
    std::variant<Date, bool, int64_t, double, std::string, List, Table> Content;
};

struct Member {
    std::string Key;
    Place At; ///< Of the key.
    Value Held;
};

/// What keeps a text from being TOML.
struct SyntaxError {
    Place At;
    std::string Text;
};

/// The whole text as a table, or the first error.
std::variant<Value, SyntaxError> ParseToml(std::string_view text);

} // namespace orvane::laboratory
