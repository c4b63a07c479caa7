#pragma once

/// \file
/// What the window remembers from one run to the next, in the toolkit's configuration. Without
/// one nothing is remembered.

#include "hosts/panel/driver_access.h"

#include <wx/toplevel.h>

#include <vector>

class wxConfigBase;

namespace orvane {

/// Has the habits of this user read and kept.
void UseHabits();

/// \name A text by its key
/// @{
wxString Habit(const wxString& key, const wxString& otherwise = "");
void KeepHabit(const wxString& key, const wxString& value);

namespace habit_key {
inline constexpr const char* Language = "/Language";
inline constexpr const char* Theme = "/Theme"; ///< "light", "dark" or empty, that of the desktop.
inline constexpr const char* Page = "/Page";   ///< English title of the one that was shown.
inline constexpr const char* Scenario = "/Scenario"; ///< Opened without asking; may be empty.
inline constexpr const char* Folder = "/Folder";     ///< Where files were last opened or saved.
} // namespace habit_key
/// @}

/// \name Size and place of the window
/// @{
void KeepPlace(const wxTopLevelWindow& window);
bool RestorePlace(wxTopLevelWindow& window); ///< Whether there was one.
/// @}

/// \name Splitters and columns of a page
/// @{
void KeepLayout(const wxWindow& page, const wxString& name);
void RestoreLayout(wxWindow& page, const wxString& name);
/// @}

/// \name What was chosen for each channel
/// @{
void KeepChoices(const std::map<ChannelKey, ChannelChoice>& choices);
std::map<ChannelKey, ChannelChoice> KeptChoices();
/// @}

/// \name The last files, the newest first
/// @{
std::vector<wxString> RecentFiles();
void NoteRecentFile(const wxString& path);
/// @}

/// Runs something with the configuration in a group, such as "/Consoles/Orvane150/Radio".
void InGroup(const wxString& group, const std::function<void(wxConfigBase&)>& act);

/// Writes the habits to their file now.
void FlushHabits();

/// Has the toolkit draw in the theme that the user chose. To be called before it is initialised.
void UseTheme();

} // namespace orvane
