#include "hosts/session/samples_file.h"

#include "hosts/session/durations.h"
#include "hosts/session/host_error.h"
#include "hosts/session/number_text.h"
#include "hosts/session/text_parsing.h"
#include "hosts/session/translation.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <fstream>
#include <sstream>

namespace orvane {

namespace {

constexpr std::string_view timeTitle = "time (s)";
constexpr std::string_view runTitle = "run";

/// On one line and without what separates.
std::string Plain(std::string text) {
    std::ranges::replace_if(
        text, [](char c) { return c == ';' || c == '\n' || c == '\r'; }, ' ');
    return text;
}

std::string ChannelNote(const ChannelInfo& channel) {
    return "# channel " + std::to_string(channel.Index + 1) + "; " +
           std::to_string(channel.Connector) + "; " + std::to_string(channel.Channel) + "; " +
           NumberText(channel.Min, 17) + "; " + NumberText(channel.Max, 17) + "; " +
           Plain(channel.Quantity) + "; " + Plain(channel.Unit) + "; " +
           Plain(CalibreName(channel)) + "; " + Plain(channel.Name) + "\n";
}

/// What has been read so far.
struct Reading {
    SamplesFile File;
    std::vector<ChannelInfo> Noted;
    double NotedPeriodSec = 0.0;
    std::vector<std::string> Titles;
    size_t TimeColumn = 0;
    Samples Times;
    double Run = 0.0;
};

void ReadChannelNote(std::string_view text, std::vector<ChannelInfo>& noted) {
    std::vector<std::string_view> parts = Split(text, ';');
    for (std::string_view& part : parts) {
        part.remove_prefix(part.starts_with(' ') ? 1 : 0);
    }
    constexpr size_t fields = 9;
    if (parts.size() != fields) {
        return;
    }
    ChannelInfo channel;
    channel.Index = ParseNumber<int>(parts[0]).value_or(1) - 1;
    channel.Connector = ParseNumber<int>(parts[1]).value_or(0);
    channel.Channel = ParseNumber<int>(parts[2]).value_or(0);
    channel.Min = ParseNumber<double>(parts[3]).value_or(0.0);
    channel.Max = ParseNumber<double>(parts[4]).value_or(0.0);
    channel.Quantity = parts[5];
    channel.Unit = parts[6];
    channel.Calibres = {std::string(parts[7])};
    channel.Name = parts[8];
    noted.push_back(std::move(channel));
}

void ReadNote(std::string_view line, Reading& reading) {
    const auto take = [&](std::string_view key) {
        const bool is = line.starts_with(key);
        line.remove_prefix(is ? key.size() : 0);
        return is;
    };
    if (take("# date: ")) {
        reading.File.Notes.Date = line;
    } else if (take("# console: ")) {
        reading.File.Notes.Console = line;
    } else if (take("# scenario: ")) {
        reading.File.Notes.Scenario = line;
    } else if (take("# period: ")) {
        reading.NotedPeriodSec = ParseNumber<double>(Split(line, ' ')[0]).value_or(0.0);
    } else if (take("# channel ")) {
        ReadChannelNote(line, reading.Noted);
    }
}

/// The cells of a line of titles.
std::vector<std::string> TitlesIn(std::string_view line) {
    std::vector<std::string> titles(1);
    bool quoted = false;
    for (size_t i = 0; i < line.size(); ++i) {
        if (line[i] == '"' && quoted && i + 1 < line.size() && line[i + 1] == '"') {
            titles.back() += line[i++];
        } else if (line[i] == '"') {
            quoted = !quoted;
        } else if (line[i] == ',' && !quoted) {
            titles.emplace_back();
        } else {
            titles.back() += line[i];
        }
    }
    for (std::string& title : titles) {
        const bool kept = title.size() > 1 && title[0] == '\'' &&
                          std::string_view("=+-@").find(title[1]) != std::string_view::npos;
        title.erase(0, kept ? 1 : 0);
    }
    return titles;
}

/// The channel of a column: as the notes have it, else by what its title says.
ChannelInfo ChannelOf(const std::string& title, size_t column, const Reading& reading) {
    if (column < reading.Noted.size() && NameWithUnit(reading.Noted[column]) == Plain(title)) {
        return reading.Noted[column];
    }
    ChannelInfo channel;
    channel.Index = static_cast<int>(column);
    const size_t unit = title.rfind(" (");
    const bool hasUnit = unit != std::string::npos && title.ends_with(')');
    channel.Name = title.substr(0, hasUnit ? unit : std::string::npos);
    channel.Unit = hasUnit ? title.substr(unit + 2, title.size() - unit - 3) : "";
    channel.Quantity = channel.Name;
    channel.Connector = static_cast<int>(column) + 1;
    return channel;
}

void ReadTitles(std::string_view line, Reading& reading) {
    reading.Titles = TitlesIn(line);
    const auto time = std::ranges::find(reading.Titles, timeTitle);
    reading.TimeColumn = static_cast<size_t>(time - reading.Titles.begin());
    const bool runs = reading.TimeColumn == 1 && reading.Titles[0] == runTitle;
    if (time == reading.Titles.end() || (reading.TimeColumn > 0 && !runs) ||
        time + 1 == reading.Titles.end()) {
        throw HostError(Translated("it has no column of times and samples"));
    }
    for (auto title = time + 1; title != reading.Titles.end(); ++title) {
        const size_t column = reading.File.Channels.size();
        reading.File.Channels.push_back(ChannelOf(*title, column, reading));
    }
    reading.File.Recording.Fetched.resize(reading.File.Channels.size());
}

void ReadRow(std::string_view line, size_t number, Reading& reading) {
    std::vector<Samples>& samples = reading.File.Recording.Fetched;
    const char* from = line.data();
    const char* const end = from + line.size();
    for (size_t column = 0; column < reading.Titles.size(); ++column) {
        double value = 0.0;
        const auto [rest, error] = std::from_chars(from, end, value);
        const bool isLast = column + 1 == reading.Titles.size();
        if (error != std::errc() || (isLast ? rest != end : rest == end || *rest != ',')) {
            throw HostError(
                Translated("line %s has no number in each column", {std::to_string(number)}));
        }
        from = isLast ? rest : rest + 1;
        if (column < reading.TimeColumn) {
            if (value != reading.Run) { // The last run counts.
                reading.Run = value;
                reading.Times.clear();
                std::ranges::for_each(samples, [](Samples& one) { one.clear(); });
            }
        } else if (column == reading.TimeColumn) {
            reading.Times.push_back(value);
        } else {
            samples[column - reading.TimeColumn - 1].push_back(value);
        }
    }
}

void Complete(Reading& reading) {
    const Samples& times = reading.Times;
    if (times.empty()) {
        throw HostError(Translated("it has no samples"));
    }
    AcquisitionRecording& recording = reading.File.Recording;
    constexpr double nsPerSecond = 1e9;
    const double period =
        times.size() > 1 ? (times.back() - times.front()) / static_cast<double>(times.size() - 1)
                         : reading.NotedPeriodSec;
    recording.PeriodSec = std::round(period * nsPerSecond) / nsPerSecond;
    if (!(recording.PeriodSec > 0.0)) {
        throw HostError(Translated("its times do not ascend"));
    }
    recording.PreTriggerPoints =
        static_cast<size_t>(std::max(std::round(-times.front() / recording.PeriodSec), 0.0));
}

} // namespace

void SaveSamplesFile(PendingFile& file, const std::vector<ChannelInfo>& channels,
                     const AcquisitionRecording& recording, const SamplesNotes& notes) {
    Append(file, "# date: " + notes.Date + "\n# console: " + Plain(notes.Console) + "\n");
    if (!notes.Scenario.empty()) {
        Append(file, "# scenario: " + Plain(notes.Scenario) + "\n");
    }
    Append(file, "# period: " + NumberText(recording.PeriodSec, 12) + " s\n");
    for (const ChannelInfo& channel : channels) {
        Append(file, ChannelNote(channel));
    }
    SaveCsv(file, channels, PointTimes(recording), KeptSamples(recording));
}

SamplesFile ReadSamplesFile(const std::string& name) {
    try {
        std::ifstream in(name, std::ios::binary);
        Reading reading;
        size_t number = 0;
        for (std::string line; std::getline(in, line);) {
            ++number;
            if (line.ends_with('\r')) {
                line.pop_back();
            }
            if (line.starts_with('#')) {
                ReadNote(line, reading);
            } else if (reading.Titles.empty()) {
                ReadTitles(line, reading);
            } else if (!line.empty()) {
                ReadRow(line, number, reading);
            }
        }
        if (!in.eof()) {
            throw HostError(Translated("the system cannot read it"));
        }
        Complete(reading);
        return std::move(reading.File);
    } catch (const HostError& error) {
        throw HostError(Translated("%s is not a file of samples: %s.", {name, error.what()}));
    }
}

} // namespace orvane
