#include "console/laboratory/scenario/named_files.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cmath>
#include <cstring>
#include <fstream>

namespace orvane::laboratory {

namespace {

namespace fs = std::filesystem;

constexpr size_t mostPictureBytes = 1U << 20U;
constexpr size_t mostSampleBytes = 1U << 29U;
constexpr size_t mostSamples = 10'000'000;

/// Empty if the bytes are none that the driver shows.
std::string PictureFormat(std::string_view bytes) {
    constexpr std::string_view png = "\x89PNG\r\n\x1A\n";
    return bytes.starts_with(png)                                       ? "png"
           : bytes.starts_with("GIF87a") || bytes.starts_with("GIF89a") ? "gif"
           : bytes.starts_with("BM")                                    ? "bmp"
                                                                        : "";
}

/// A file that a scenario names; a pipe or a device would make the reader wait.
std::optional<std::string> ReadNamedFile(Reading& reading, Place at, const std::string& path,
                                         size_t most) {
    const fs::path file = reading.Folder / path;
    std::error_code error;
    std::string reason = "it is not a file";
    const auto kind = fs::status(file, error).type();
    if (kind == fs::file_type::regular) {
        if (auto bytes = ReadWholeFile(file, most, reason); bytes) {
            return bytes;
        }
    } else if (error) {
        reason = error.message();
    }
    Report(reading, at, Quoted(path) + " cannot be read beside the scenario: " + reason);
    return std::nullopt;
}

/// The text of a column, from 1; empty if the line has no such column. Where semicolons separate,
/// a comma is a decimal point.
std::string Column(std::string_view line, uint32_t column) {
    const char separator = line.find(';') != std::string_view::npos   ? ';'
                           : line.find(',') != std::string_view::npos ? ','
                                                                      : ' ';
    constexpr std::string_view blanks = " \t\r";
    const auto withoutBlanks = [&](std::string_view text) {
        const size_t first = std::min(text.find_first_not_of(blanks), text.size());
        return text.substr(first, text.find_last_not_of(blanks) + 1 - first);
    };
    for (; column > 1; --column) {
        line = withoutBlanks(line);
        const size_t end = separator == ' ' ? line.find_first_of(blanks) : line.find(separator);
        if (end == std::string_view::npos) {
            return "";
        }
        line.remove_prefix(end + 1);
    }
    line = withoutBlanks(line);
    const size_t end = separator == ' ' ? line.find_first_of(blanks) : line.find(separator);
    std::string text(withoutBlanks(line.substr(0, end)));
    std::ranges::replace(text, ',', '.');
    return text;
}

std::optional<double> NumberIn(std::string_view text) {
    double number = 0.0;
    text.remove_prefix(text.starts_with('+') ? 1 : 0);
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    const bool whole = !text.empty() && error == std::errc() && end == text.data() + text.size();
    return whole && std::abs(number) <= greatestNumber ? std::optional(number) : std::nullopt;
}

} // namespace

std::optional<std::string> ReadWholeFile(const fs::path& path, size_t most, std::string& reason) {
    errno = 0;
    std::ifstream file(path, std::ios::binary);
    std::string bytes;
    std::array<char, 65536> part{};
    while (file && bytes.size() <= most) {
        file.read(part.data(), part.size());
        bytes.append(part.data(), static_cast<size_t>(file.gcount()));
    }
    if (bytes.size() > most) {
        reason = "it is larger than " + std::to_string(most) + " bytes";
        return std::nullopt;
    }
    if (!file.eof()) {
        reason = errno != 0 ? std::strerror(errno) : "it cannot be read";
        return std::nullopt;
    }
    return bytes;
}

Picture ReadPicture(Reading& reading, Place at, const std::string& path) {
    const auto bytes = ReadNamedFile(reading, at, path, mostPictureBytes);
    if (!bytes) {
        return {};
    }
    Picture picture{PictureFormat(*bytes), {bytes->begin(), bytes->end()}};
    if (picture.Format.empty()) {
        Report(reading, at, Quoted(path) + " is no picture; it has to be a png, bmp or gif file");
    }
    return picture;
}

SampleColumn ParseSamples(std::string_view text, uint32_t column) {
    std::vector<double> samples;
    const std::string place = "column " + std::to_string(column);
    text.remove_prefix(text.starts_with("\xEF\xBB\xBF") ? 3 : 0); // The byte order mark.
    for (unsigned number = 1; !text.empty(); ++number) {
        const std::string_view line = text.substr(0, text.find('\n'));
        text.remove_prefix(std::min(line.size() + 1, text.size()));
        const bool blank = line.find_first_not_of(" \t\r") == std::string_view::npos;
        const auto sample = NumberIn(Column(line, column));
        if (sample) {
            samples.push_back(*sample);
        } else if (!blank && !samples.empty()) { // Before the first number stand headings.
            return {{}, "line " + std::to_string(number) + " has no finite number in " + place};
        }
        if (samples.size() > mostSamples) {
            return {{}, "there are more than " + std::to_string(mostSamples) + " samples"};
        }
    }
    std::string wrong = samples.empty() ? "there is no number in " + place : "";
    return {std::move(samples), std::move(wrong)};
}

std::vector<double> ReadSamples(Reading& reading, Place at, const std::string& path,
                                uint32_t column) {
    const auto text = ReadNamedFile(reading, at, path, mostSampleBytes);
    SampleColumn parsed = ParseSamples(text ? *text : "0", column);
    if (text && !parsed.Wrong.empty()) {
        Report(reading, at, Quoted(path) + " gives no samples: " + parsed.Wrong);
    }
    return std::move(parsed.Samples);
}

} // namespace orvane::laboratory
