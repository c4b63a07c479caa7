#pragma once

namespace orvane {

/// \file
/// Messages to the user.

/// Formats a text as printf does and shows it.
///
/// With a GUI application object it is a modal message box, which blocks until the user closes it.
/// Without one it goes to the toolkit's message output, which is standard error unless the host set
/// another: a message box would end such a process. On another thread than the toolkit's main one,
/// the main thread is asked to open the box; if it doesn't within 1 s, because it is busy or waits
/// for the calling thread, the text goes to standard error.
/// \param format a "%" in it starts a conversion, even without arguments
void ShowUserMessage(const wchar_t* format, ...);

namespace platform {

/// Sounds the bell of the desktop, or of the terminal when the host has no GUI or on another thread
/// than the main one.
void RingBell();

} // namespace platform

} // namespace orvane
