#include "hosts/common/csv_file.h"

#include "hosts/common/host_error.h"
#include "hosts/common/sentence.h"

#include <array>
#include <cerrno>
#include <charconv>
#include <fstream>
#include <system_error>

namespace {

/// A title in quotes if it needs them.
std::string Cell(const std::string& title) {
    if (title.find_first_of(",\"\r\n") == std::string::npos) {
        return title;
    }
    std::string quoted = "\"";
    for (const char c : title) {
        quoted += c == '"' ? "\"\"" : std::string(1, c);
    }
    return quoted + '"';
}

void WriteNumber(std::ostream& out, double value) {
    std::array<char, 1100> text; // NOLINT: the longest double in fixed notation, left unfilled
    const auto end =
        std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed).ptr;
    out.write(text.data(), end - text.data());
}

} // namespace

void WriteCsv(const std::filesystem::path& file, const std::string& name,
              const std::vector<CsvColumn>& columns) {
    errno = 0;
    std::ofstream out(file, std::ios::binary | std::ios::trunc);
    const char* separator = "";
    for (const CsvColumn& column : columns) {
        out << separator << Cell(column.Title);
        separator = ",";
    }
    out << '\n';
    const size_t rows = columns.empty() ? 0 : columns.front().Values.size();
    for (size_t row = 0; row < rows && out; ++row) {
        separator = "";
        for (const CsvColumn& column : columns) {
            out << separator;
            WriteNumber(out, column.Values[row]);
            separator = ",";
        }
        out << '\n';
    }
    out.close();
    if (!out) {
        throw HostError(
            Sentence("%s cannot be written: %s.", {name, std::generic_category().message(errno)}));
    }
}
