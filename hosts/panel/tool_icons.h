#pragma once

#include <wx/bmpbndl.h>

namespace orvane {

/// \name Pictures of the toolbar
/// @{
namespace tool_icon {
inline constexpr const char* Open = "open";
inline constexpr const char* Save = "save";
inline constexpr const char* Run = "run";
inline constexpr const char* Once = "once";
inline constexpr const char* Stop = "stop";
inline constexpr const char* Fit = "fit";
inline constexpr const char* Cursors = "cursors";
inline constexpr const char* Overlay = "overlay";
inline constexpr const char* XY = "xy";
inline constexpr const char* Spectrum = "spectrum";
inline constexpr const char* Undo = "undo";
inline constexpr const char* Previous = "previous";
inline constexpr const char* Next = "next";
inline constexpr const char* Accept = "accept";
inline constexpr const char* Ping = "ping";
inline constexpr const char* Copy = "copy";
} // namespace tool_icon

/// A picture by its name, in the colour of texts.
wxBitmapBundle ToolIcon(const char* name);
/// @}

} // namespace orvane
