#include "hosts/panel/habits.h"

#include "hosts/panel/panel_text.h"
#include "hosts/session/number_text.h"

#include <wx/fileconf.h>
#include <wx/filename.h>
#include <wx/listctrl.h>
#include <wx/log.h>
#include <wx/splitter.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace orvane {

namespace {

constexpr size_t mostFiles = 8;
constexpr const char* placeGroup = "/Window";
constexpr const char* channelsGroup = "/Channels";

std::filesystem::path HabitsFile() {
    const auto environment = [](const char* name) {
        const char* value = std::getenv(name);
        return std::filesystem::path(value != nullptr ? value : "");
    };
    const std::filesystem::path folder = environment("XDG_CONFIG_HOME");
    return (folder.empty() ? environment("HOME") / ".config" : folder) / "orvane-panel.conf";
}

wxConfigBase* Config() {
    return wxConfigBase::Get(false); // Made by UseHabits only.
}

/// Numbers of a window as the toolkit names them.
struct PlaceWriter : wxTopLevelWindow::GeometrySerializer {
    bool SaveField(const wxString& name, int value) const override {
        return Config()->Write(wxString(placeGroup) + "/" + name, value);
    }
    bool RestoreField(const wxString& name, int* value) override {
        return Config()->Read(wxString(placeGroup) + "/" + name, value);
    }
};

/// The windows of a kind below a page, in the order in which they were made.
template <class Kind> std::vector<Kind*> Below(const wxWindow& page) {
    std::vector<Kind*> found;
    for (wxWindow* child : page.GetChildren()) {
        if (auto* one = dynamic_cast<Kind*>(child); one != nullptr) {
            found.push_back(one);
        }
        std::ranges::copy(Below<Kind>(*child), std::back_inserter(found));
    }
    return found;
}

/// Calls `act` with the key and the place of each splitter and the width of each column.
template <class Split, class Column>
void ForLayout(const wxWindow& page, const wxString& name, const Split& split,
               const Column& column) {
    const wxString group = "/Layout/" + name;
    int number = 0;
    for (wxSplitterWindow* splitter : Below<wxSplitterWindow>(page)) {
        split(group + wxString::Format("/Splitter%d", number++), *splitter);
    }
    number = 0;
    for (wxListView* list : Below<wxListView>(page)) {
        for (int i = 0; i < list->GetColumnCount(); ++i) {
            column(group + wxString::Format("/List%d/Column%d", number, i), *list, i);
        }
        ++number;
    }
}

wxString GroupOf(const ChannelKey& key) {
    return wxString::Format("%s/%d-%d-%d", channelsGroup, key.Reference, key.Connector,
                            key.Channel);
}

void KeepText(const wxString& key, const std::optional<std::string>& text) {
    if (text) {
        Config()->Write(key, FromUtf8(*text));
    }
}

void KeepNumber(const wxString& key, const std::optional<double>& number) {
    constexpr int allDigits = 17;
    if (number) {
        Config()->Write(key, FromUtf8(NumberText(*number, allDigits)));
    }
}

std::optional<std::string> KeptText(const wxString& key) {
    wxString text;
    return Config()->Read(key, &text) ? std::optional(text.utf8_string()) : std::nullopt;
}

std::optional<double> KeptNumber(const wxString& key) {
    wxString text;
    return Config()->Read(key, &text) ? ParseInput(text) : std::nullopt;
}

ChannelChoice KeptChoice(const wxString& group) {
    ChannelChoice choice;
    choice.Checked = Config()->ReadBool(group + "/Checked", false);
    choice.Setup.Function = KeptText(group + "/Function");
    choice.Setup.Calibre = KeptText(group + "/Calibre");
    choice.Setup.Ampli = KeptNumber(group + "/Ampli");
    choice.Setup.Offset = KeptNumber(group + "/Offset");
    choice.Setup.Quantity = KeptText(group + "/Quantity");
    choice.Setup.Unit = KeptText(group + "/Unit");
    return choice;
}

wxString FileKey(size_t number) {
    return wxString::Format("/Files/File%zu", number);
}

} // namespace

void UseHabits() {
    std::error_code ignored;
    std::filesystem::create_directories(HabitsFile().parent_path(), ignored);
    auto config = std::make_unique<wxFileConfig>(
        "orvane-panel", "", FromUtf8(HabitsFile().string()), "", wxCONFIG_USE_LOCAL_FILE);
    config->DisableAutoSave();
    wxConfigBase::Set(config.release());
}

wxString Habit(const wxString& key, const wxString& otherwise) {
    return Config() != nullptr ? Config()->Read(key, otherwise) : otherwise;
}

void KeepHabit(const wxString& key, const wxString& value) {
    if (Config() != nullptr) {
        Config()->Write(key, value);
    }
}

void KeepPlace(const wxTopLevelWindow& window) {
    if (Config() != nullptr) {
        window.SaveGeometry(PlaceWriter());
    }
}

bool RestorePlace(wxTopLevelWindow& window) {
    PlaceWriter place;
    return Config() != nullptr && window.RestoreToGeometry(place);
}

void KeepLayout(const wxWindow& page, const wxString& name) {
    if (Config() == nullptr) {
        return;
    }
    ForLayout(
        page, name,
        [](const wxString& key, const wxSplitterWindow& splitter) {
            if (splitter.IsSplit()) {
                Config()->Write(key, splitter.GetSashPosition());
            }
        },
        [](const wxString& key, const wxListView& list, int column) {
            Config()->Write(key, list.GetColumnWidth(column));
        });
}

void RestoreLayout(wxWindow& page, const wxString& name) {
    if (Config() == nullptr) {
        return;
    }
    ForLayout(
        page, name,
        [](const wxString& key, wxSplitterWindow& splitter) {
            if (int place = 0; splitter.IsSplit() && Config()->Read(key, &place)) {
                splitter.SetSashPosition(place);
            }
        },
        [](const wxString& key, wxListView& list, int column) {
            if (int width = 0; Config()->Read(key, &width) && width > 0) {
                list.SetColumnWidth(column, width);
            }
        });
}

void KeepChoices(const std::map<ChannelKey, ChannelChoice>& choices) {
    if (Config() == nullptr) {
        return;
    }
    for (const auto& [key, choice] : choices) {
        const wxString group = GroupOf(key);
        Config()->DeleteGroup(group);
        Config()->Write(group + "/Checked", choice.Checked);
        KeepText(group + "/Function", choice.Setup.Function);
        KeepText(group + "/Calibre", choice.Setup.Calibre);
        KeepNumber(group + "/Ampli", choice.Setup.Ampli);
        KeepNumber(group + "/Offset", choice.Setup.Offset);
        KeepText(group + "/Quantity", choice.Setup.Quantity);
        KeepText(group + "/Unit", choice.Setup.Unit);
    }
}

std::map<ChannelKey, ChannelChoice> KeptChoices() {
    std::map<ChannelKey, ChannelChoice> choices;
    if (Config() == nullptr) {
        return choices;
    }
    std::vector<wxString> groups;
    InGroup(channelsGroup, [&](wxConfigBase& config) {
        wxString name;
        long cookie = 0;
        for (bool more = config.GetFirstGroup(name, cookie); more;
             more = config.GetNextGroup(name, cookie)) {
            groups.push_back(name);
        }
    });
    for (const wxString& name : groups) {
        ChannelKey key;
        if (std::sscanf(name.utf8_str(), "%d-%d-%d", &key.Reference, &key.Connector,
                        &key.Channel) == 3) {
            choices[key] = KeptChoice(wxString(channelsGroup) + "/" + name);
        }
    }
    return choices;
}

std::vector<wxString> RecentFiles() {
    std::vector<wxString> files;
    for (size_t i = 0; i < mostFiles; ++i) {
        if (const wxString file = Habit(FileKey(i)); !file.empty()) {
            files.push_back(file);
        }
    }
    return files;
}

void NoteRecentFile(const wxString& path) {
    wxFileName name(path);
    name.MakeAbsolute();
    std::vector<wxString> files = RecentFiles();
    std::erase(files, name.GetFullPath());
    files.insert(files.begin(), name.GetFullPath());
    for (size_t i = 0; i < std::min(files.size(), mostFiles); ++i) {
        KeepHabit(FileKey(i), files[i]);
    }
    KeepHabit(habit_key::Folder, name.GetPath());
}

void InGroup(const wxString& group, const std::function<void(wxConfigBase&)>& act) {
    if (wxConfigBase* config = Config(); config != nullptr) {
        const wxString before = config->GetPath();
        config->SetPath(group);
        act(*config);
        config->SetPath(before.empty() ? wxString("/") : before);
    }
}

void FlushHabits() {
    if (Config() != nullptr) {
        const wxLogNull quiet; // A home that cannot be written forgets.
        Config()->Flush();
    }
}

void UseTheme() {
    // The toolkit's configuration needs the toolkit, which takes its theme when it starts.
    std::ifstream file(HabitsFile());
    for (std::string line; std::getline(file, line) && !line.starts_with('[');) {
        const bool isDark = line == "Theme=dark";
        if (isDark || line == "Theme=light") {
            setenv("GTK_THEME", isDark ? "Adwaita:dark" : "Adwaita", 0);
        }
    }
}

} // namespace orvane
