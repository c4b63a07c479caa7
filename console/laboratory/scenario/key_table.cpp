#include "console/laboratory/scenario/key_table.h"

namespace orvane::laboratory {

namespace key_rows {

std::string DefaultText(double number) {
    return NumberText(number);
}

std::string DefaultText(bool flag) {
    return flag ? "true" : "false";
}

std::string DefaultText(const std::string& text) {
    return std::string("\"") + text + "\"";
}

std::string DefaultText(const Range& range) {
    return std::string("[") + NumberText(range.Min) + ", " + NumberText(range.Max) + "]";
}

std::string DefaultText(const Picture& /*none*/) {
    return "none";
}

} // namespace key_rows

const Member* Find(const Table& table, std::string_view key) {
    const auto found = std::ranges::find(table, key, &Member::Key);
    return found == table.end() ? nullptr : &*found;
}

void ReportUnknown(Reading& reading, std::string_view kind, const Table& table,
                   const std::vector<std::string_view>& known) {
    for (const Member& member : table) {
        if (std::ranges::find(known, member.Key) == known.end()) {
            std::string names;
            for (const std::string_view name : known) {
                names += (names.empty() ? "" : ", ") + std::string(name);
            }
            Report(reading, member.At,
                   Quoted(kind) + " has no key " + Quoted(member.Key) + "; its keys are " + names);
        }
    }
}

} // namespace orvane::laboratory
