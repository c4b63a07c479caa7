#include "hosts/orvane/terminal/text_table.h"

#include "hosts/session/number_text.h"

#include <algorithm>
#include <array>
#include <numeric>

namespace orvane {

namespace {

constexpr size_t gap = 2;        // blanks between two columns
constexpr size_t leastWidth = 8; // minimum width of a column whose words are broken

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

size_t LineWidth(const std::vector<size_t>& widths) {
    return std::accumulate(widths.begin(), widths.end(), gap * (widths.size() - 1));
}

size_t LongestWord(std::string_view text) {
    size_t longest = 0;
    while (!text.empty()) {
        const std::string_view word = text.substr(0, text.find(' '));
        longest = std::max(longest, CharacterCount(word));
        text.remove_prefix(std::min(word.size() + 1, text.size()));
    }
    return longest;
}

/// The smallest widths of the columns: numbers are not broken, and texts only between words.
std::vector<size_t> LeastWidths(const std::vector<TextColumn>& columns,
                                const std::vector<Cells>& lines, std::vector<size_t> widths) {
    for (size_t i = 0; i < columns.size(); ++i) {
        if (!columns[i].Right) {
            widths[i] = 0;
            for (const Cells& line : lines) {
                widths[i] = std::max(widths[i], LongestWord(line[i]));
            }
        }
    }
    return widths;
}

/// Narrows the widest column that is above its minimum width, until a line fits into `room`.
/// \return false if the columns cannot give that much
bool Narrow(std::vector<size_t>& widths, const std::vector<size_t>& least, size_t room) {
    while (LineWidth(widths) > room) {
        size_t* widest = nullptr;
        for (size_t i = 0; i < widths.size(); ++i) {
            if (widths[i] > least[i] && (widest == nullptr || widths[i] > *widest)) {
                widest = &widths[i];
            }
        }
        if (widest == nullptr) {
            return false;
        }
        --*widest;
    }
    return true;
}

size_t BytesOf(std::string_view utf8, size_t characters) {
    size_t bytes = 0;
    while (bytes < utf8.size() && CharacterCount(utf8.substr(0, bytes + 1)) <= characters) {
        ++bytes;
    }
    return bytes;
}

/// Breaks a text into lines of at most `width` characters, between words where it can.
Cells Wrap(std::string_view text, size_t width) {
    Cells lines;
    while (CharacterCount(text) > width) {
        const size_t most = BytesOf(text, width);
        const size_t blank = text.rfind(' ', most);
        const size_t end = blank == std::string_view::npos || blank == 0 ? most : blank;
        lines.emplace_back(text.substr(0, end));
        text.remove_prefix(std::min(text.find_first_not_of(' ', end), text.size()));
    }
    lines.emplace_back(text);
    return lines;
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

/// A row, on as many lines as its longest cell takes.
std::string FormatRow(const std::vector<TextColumn>& columns, const std::vector<size_t>& widths,
                      const Cells& cells) {
    std::vector<Cells> lines(1, Cells(columns.size()));
    for (size_t i = 0; i < columns.size(); ++i) {
        const Cells wrapped = Wrap(cells[i], widths[i]);
        lines.resize(std::max(lines.size(), wrapped.size()), Cells(columns.size()));
        for (size_t line = 0; line < wrapped.size(); ++line) {
            lines[line][i] = wrapped[line];
        }
    }
    std::string text;
    for (const Cells& line : lines) {
        text += FormatLine(columns, widths, line);
    }
    return text;
}

/// A table of titles and cells for each row, with an empty line between two rows.
std::string FormatBlocks(const std::vector<TextColumn>& columns, const std::vector<Cells>& rows,
                         size_t room) {
    std::string text;
    for (const Cells& row : rows) {
        std::vector<Cells> block;
        for (size_t i = 0; i < columns.size(); ++i) {
            block.push_back({columns[i].Title, row[i]});
        }
        text += text.empty() ? "" : "\n";
        text += FormatTable({{}, {}}, block, room);
    }
    return text;
}

} // namespace

std::string FormatTable(const std::vector<TextColumn>& columns, const std::vector<Cells>& rows,
                        size_t room) {
    std::vector<Cells> lines;
    const bool titled = !std::ranges::all_of(columns, &std::string::empty, &TextColumn::Title);
    if (titled) {
        lines.emplace_back();
        std::ranges::transform(columns, std::back_inserter(lines.front()), &TextColumn::Title);
    }
    lines.insert(lines.end(), rows.begin(), rows.end());
    std::vector<size_t> widths = ColumnWidths(columns.size(), lines);
    if (room > 0 && !Narrow(widths, LeastWidths(columns, lines, widths), room)) {
        if (titled) {
            return FormatBlocks(columns, rows, room);
        }
        Narrow(widths, std::vector<size_t>(widths.size(), leastWidth), room);
    }
    std::string text;
    for (const Cells& line : lines) {
        text += FormatRow(columns, widths, line);
    }
    return text;
}

} // namespace orvane
