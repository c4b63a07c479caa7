#include "hosts/session/csv_file.h"

#include <array>
#include <charconv>

namespace orvane {

namespace {

/// A title as text: in quotes if it needs them, and behind an apostrophe if it would begin a
/// formula in a spreadsheet.
std::string Cell(const std::string& title) {
    const bool formula = title.find_first_of("=+-@") == 0;
    std::string text = formula ? "'" + title : title;
    if (text.find_first_of(",\"\r\n") == std::string::npos) {
        return text;
    }
    std::string quoted = "\"";
    for (const char c : text) {
        quoted += c == '"' ? "\"\"" : std::string(1, c);
    }
    return quoted + '"';
}

void AppendNumber(std::string& rows, double value) {
    std::array<char, 1100> text; // NOLINT: the longest double in fixed notation, left unfilled
    const auto end =
        std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed).ptr;
    rows.append(text.data(), end);
}

} // namespace

void WriteTitles(PendingFile& file, const std::vector<CsvColumn>& columns) {
    std::string titles;
    for (size_t i = 0; i < columns.size(); ++i) {
        titles += i == 0 ? "" : ",";
        titles += Cell(columns[i].Title);
    }
    Append(file, titles + '\n');
}

void WriteRows(PendingFile& file, const std::vector<CsvColumn>& columns) {
    constexpr size_t chunk = 1 << 16;
    std::string rows;
    const size_t count = columns.empty() ? 0 : columns.front().Values.size();
    for (size_t row = 0; row < count; ++row) {
        for (size_t i = 0; i < columns.size(); ++i) {
            rows += i == 0 ? "" : ",";
            AppendNumber(rows, columns[i].Values[row]);
        }
        rows += '\n';
        if (rows.size() >= chunk) {
            Append(file, rows);
            rows.clear();
        }
    }
    Append(file, rows);
}

} // namespace orvane
