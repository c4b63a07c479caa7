// The only file that knows the parser.

#include "console/laboratory/scenario/toml_tree.h"

#include "console/laboratory/scenario/toml_syntax.h"

#include <algorithm>

// What the parser asserts holds for right files only: a wrong one may neither end the process nor
// let the compiler assume something.
#undef NDEBUG
#define TOML_ASSERT(condition) static_cast<void>(0)
#define TOML_EXCEPTIONS 0
#define TOML_MAX_NESTED_VALUES 16
#include <toml++/toml.h>

namespace orvane::laboratory {

namespace {

Place PlaceOf(const toml::source_region& region) {
    return {region.begin.line, region.begin.column};
}

Value Converted(toml::node& node);

Table ConvertedTable(toml::table& from) {
    Table table;
    table.reserve(from.size());
    for (auto&& [key, node] : from) {
        table.push_back({std::string(key.str()), PlaceOf(key.source()), Converted(node)});
    }
    std::ranges::sort(table, {}, &Member::At);
    return table;
}

List ConvertedList(toml::array& from) {
    List list;
    list.reserve(from.size());
    for (toml::node& node : from) {
        list.push_back(Converted(node));
    }
    return list;
}

Value Converted(toml::node& node) {
    Value value{PlaceOf(node.source()), {}};
    if (toml::table* table = node.as_table(); table != nullptr) {
        value.Content = ConvertedTable(*table);
    } else if (toml::array* list = node.as_array(); list != nullptr) {
        value.Content = ConvertedList(*list);
    } else if (auto* text = node.as_string(); text != nullptr) {
        value.Content = std::move(text->get());
    } else if (const auto* whole = node.as_integer(); whole != nullptr) {
        value.Content = whole->get();
    } else if (const auto* number = node.as_floating_point(); number != nullptr) {
        value.Content = number->get();
    } else if (const auto* flag = node.as_boolean(); flag != nullptr) {
        value.Content = flag->get();
    }
    return value;
}

/// The parser's sentence without what helps only its developers.
std::string Reworded(std::string_view description) {
    if (description.find("cannot redefine existing") != std::string_view::npos) {
        return "this key or table stands above already; each may stand once";
    }
    if (description.find("maximum nested value depth") != std::string_view::npos) {
        return "lists and tables lie too deep in one another";
    }
    const size_t colon = description.find(": ");
    if (description.starts_with("Error while parsing ") && colon != std::string_view::npos) {
        description.remove_prefix(colon + 2);
    }
    return "this is not TOML: " + std::string(description);
}

} // namespace

std::variant<Value, SyntaxError> ParseToml(std::string_view text) {
    if (auto unparsable = FindUnparsable(text); unparsable) {
        return *std::move(unparsable);
    }
    toml::parse_result parsed = toml::parse(text);
    if (!parsed) {
        const toml::parse_error& error = parsed.error();
        return SyntaxError{PlaceOf(error.source()), Reworded(error.description())};
    }
    return Converted(parsed.table());
}

} // namespace orvane::laboratory
