#include "hosts/common/text_table.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace {

constexpr size_t gap = 2; // blanks between two columns

using Cells = std::vector<std::string>;

std::vector<size_t> ColumnWidths(size_t columns, const std::vector<Cells>& lines) {
    std::vector<size_t> widths(columns, 0);
    for (const Cells& line : lines) {
        for (size_t i = 0; i < columns; ++i) {
            widths[i] = std::max(widths[i], CharacterCount(line[i]));
        }
    }
    return widths;
}

std::string FormatLine(const std::vector<TextColumn>& columns, const std::vector<size_t>& widths,
                       const Cells& cells) {
    std::string text;
    for (size_t i = 0; i < columns.size(); ++i) {
        const std::string padding(widths[i] - CharacterCount(cells[i]), ' ');
        text += std::string(i == 0 ? 0 : gap, ' ');
        text += columns[i].Right ? padding + cells[i] : cells[i] + padding;
    }
    text.erase(text.find_last_not_of(' ') + 1);
    return text + '\n';
}

} // namespace

size_t CharacterCount(std::string_view utf8) {
    return static_cast<size_t>(std::ranges::count_if(
        utf8, [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; }));
}

std::string FormatTable(const std::vector<TextColumn>& columns, const std::vector<Cells>& rows) {
    std::vector<Cells> lines;
    if (!std::ranges::all_of(columns, &std::string::empty, &TextColumn::Title)) {
        lines.emplace_back();
        std::ranges::transform(columns, std::back_inserter(lines.front()), &TextColumn::Title);
    }
    lines.insert(lines.end(), rows.begin(), rows.end());
    const std::vector<size_t> widths = ColumnWidths(columns.size(), lines);
    std::string text;
    for (const Cells& line : lines) {
        text += FormatLine(columns, widths, line);
    }
    return text;
}

std::string NumberText(double value, int digits) {
    std::array<char, 64> text{};
    const auto result = std::to_chars(text.data(), text.data() + text.size(), value,
                                      std::chars_format::general, digits);
    return {text.data(), result.ptr};
}
