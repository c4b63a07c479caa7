#pragma once

#include <wx/defs.h>

namespace orvane {

/// The window's own commands, beside those of the toolkit.
enum PanelCommand {
    SavePictureCommand = wxID_HIGHEST + 1,
    French,
    English,
    SystemTheme,
    LightTheme,
    DarkTheme,
    FullScreen,
    PreviousPage,
    NextPage,
    LookAgainCommand,
    ChooseCommand,
    FirstPage,
    FirstRecent = FirstPage + 20,
    FirstTool = FirstRecent + 20
};

} // namespace orvane
