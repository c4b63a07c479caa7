#pragma once

/// \file
/// The keys of a kind of table, one row each: from the rows come the reading, the errors that name
/// the known keys, and the list that the documentation is held against.

#include "console/laboratory/scenario/scenario_keys.h"
#include "console/laboratory/scenario/value_reading.h"

#include <algorithm>

namespace orvane::laboratory {

using Descriptions = std::vector<KeyDescription>;

/// A key of a table that fills a record.
template <class Record> struct Key {
    KeyText Text;
    void (*Read)(Reading&, const Value&, const KeyText&, Record&);
    std::string (*Default)() = nullptr;        ///< In place of the text's.
    void (*Describe)(Descriptions&) = nullptr; ///< The tables that it takes.
};

/// A kind of table.
template <class Record> struct KeyTable {
    std::string_view Kind; ///< What errors and the documentation call it.
    std::span<const Key<Record>> Keys;
};

namespace key_rows {

template <class Record, class Field> Record RecordOf(Field Record::*);

template <auto Member> using RecordWith = decltype(RecordOf(Member));
template <auto Member>
using FieldOf = std::remove_cvref_t<decltype(std::declval<RecordWith<Member>>().*Member)>;

template <class Field> inline constexpr bool isOptional = false;
template <class Inner> inline constexpr bool isOptional<std::optional<Inner>> = true;

template <class Field> Field Bare(const Field&);
template <class Inner> Inner Bare(const std::optional<Inner>&);

/// What a field of this type takes.
template <class Field> constexpr std::string_view TakesOf() {
    if constexpr (std::is_same_v<Field, bool>) {
        return "flag, true or false";
    } else if constexpr (std::is_integral_v<Field>) {
        return "whole number";
    } else if constexpr (std::is_same_v<Field, std::string>) {
        return "text";
    } else if constexpr (std::is_same_v<Field, Range>) {
        return "range [min, max]";
    } else if constexpr (std::is_same_v<Field, Picture>) {
        return "file name of a png, bmp or gif";
    } else {
        return "number";
    }
}

std::string DefaultText(double number);
std::string DefaultText(bool flag);
std::string DefaultText(const std::string& text);
std::string DefaultText(const Range& range);
std::string DefaultText(const Picture& picture);

template <auto Member> std::string DefaultOf() {
    const RecordWith<Member> record{};
    if constexpr (std::is_enum_v<FieldOf<Member>>) {
        const auto names = NamesOf(record.*Member);
        return DefaultText(std::string(names[static_cast<size_t>(record.*Member)]));
    } else if constexpr (std::is_integral_v<FieldOf<Member>> &&
                         !std::is_same_v<FieldOf<Member>, bool>) {
        return std::to_string(record.*Member);
    } else {
        return DefaultText(record.*Member);
    }
}

template <auto Member>
void ReadMember(Reading& reading, const Value& value, const KeyText& key,
                RecordWith<Member>& record) {
    ReadInto(reading, value, key, record.*Member);
}

} // namespace key_rows

/// A key whose value is the member as it stands; the default is the member's own unless words tell
/// another.
template <auto Member>
constexpr Key<key_rows::RecordWith<Member>> Plain(std::string_view name, Bounds limits = {},
                                                  std::string_view defaultWords = {}) {
    using namespace key_rows;
    constexpr std::string_view takes = TakesOf<decltype(Bare(std::declval<FieldOf<Member>>()))>();
    if constexpr (isOptional<FieldOf<Member>>) {
        return {{name, takes, defaultWords, limits}, ReadMember<Member>};
    } else {
        return {{name, takes, defaultWords, limits}, ReadMember<Member>, DefaultOf<Member>};
    }
}

/// A key that takes one of the names of an enumeration.
template <auto Member>
constexpr Key<key_rows::RecordWith<Member>> Choice(std::string_view name, std::string_view names) {
    using namespace key_rows;
    return {{name, names, {}}, ReadMember<Member>, DefaultOf<Member>};
}

/// The value of a key in a table, null if it isn't there.
const Member* Find(const Table& table, std::string_view key);

/// Says that a table has keys that aren't among the known ones.
void ReportUnknown(Reading& reading, std::string_view kind, const Table& table,
                   const std::vector<std::string_view>& known);

/// Reads the keys that stand in the table, in the order of the rows.
template <class Record>
void ReadKeys(Reading& reading, const Table& table, Place at, const KeyTable<Record>& keys,
              Record& record) {
    for (const Key<Record>& key : keys.Keys) {
        const Member* member = Find(table, key.Text.Name);
        if (member != nullptr) {
            key.Read(reading, member->Held, key.Text, record);
        } else if (key.Text.Default == required) {
            Report(reading, at,
                   Quoted(keys.Kind) + " needs " + Quoted(key.Text.Name) + ", a " +
                       TakesText(key.Text));
        }
    }
}

template <class Record> std::vector<std::string_view> NamesOf(std::span<const Key<Record>> keys) {
    std::vector<std::string_view> names;
    for (const Key<Record>& key : keys) {
        names.push_back(key.Text.Name);
    }
    return names;
}

/// Reads a table of this kind, and no key but its own.
template <class Record>
void ReadTable(Reading& reading, const Value& value, const KeyTable<Record>& keys, Record& record) {
    if (const Table* table = TableOf(reading, value, {keys.Kind, "table", {}}); table != nullptr) {
        ReadKeys(reading, *table, value.At, keys, record);
        ReportUnknown(reading, keys.Kind, *table, NamesOf(keys.Keys));
    }
}

/// Takes up the keys of this kind and of what lies in it.
template <class Record> void Describe(Descriptions& all, const KeyTable<Record>& keys) {
    for (const Key<Record>& key : keys.Keys) {
        const bool own = key.Default != nullptr && key.Text.Default.empty();
        all.push_back({std::string(keys.Kind), std::string(key.Text.Name), TakesText(key.Text),
                       own ? key.Default() : std::string(key.Text.Default)});
    }
    for (const Key<Record>& key : keys.Keys) {
        if (key.Describe != nullptr) {
            key.Describe(all);
        }
    }
}

template <const auto& Keys> void DescribeKeys(Descriptions& all) {
    Describe(all, Keys);
}

/// A key whose value is a table that fills the member.
template <auto Member, const auto& Keys>
constexpr Key<key_rows::RecordWith<Member>> Subtable(std::string_view name) {
    using Record = key_rows::RecordWith<Member>;
    constexpr auto read = [](Reading& reading, const Value& value, const KeyText&, Record& record) {
        if constexpr (key_rows::isOptional<key_rows::FieldOf<Member>>) {
            ReadTable(reading, value, Keys, (record.*Member).emplace());
        } else {
            ReadTable(reading, value, Keys, record.*Member);
        }
    };
    return {{name, "table", "none"}, read, nullptr, DescribeKeys<Keys>};
}

/// Reads a list of tables of this kind, at most `most`.
template <class Record>
void ReadTables(Reading& reading, const Value& value, const KeyText& key,
                const KeyTable<Record>& keys, std::vector<Record>& to, size_t most = longestList) {
    if (const List* list = ListOf(reading, value, key, 0, most); list != nullptr) {
        for (const Value& element : *list) {
            ReadTable(reading, element, keys, to.emplace_back());
        }
    }
}

/// Reads the arguments of a list by their rows, in their order; behind the first `least` they may
/// be left out.
template <class Record>
bool ReadArguments(Reading& reading, const Value& value, const KeyText& key,
                   const KeyTable<Record>& arguments, size_t least, Record& record) {
    const List* list = ListOf(reading, value, key, least, arguments.Keys.size());
    for (size_t i = 0; list != nullptr && i < list->size(); ++i) {
        arguments.Keys[i].Read(reading, (*list)[i], arguments.Keys[i].Text, record);
    }
    return list != nullptr;
}

} // namespace orvane::laboratory
