#pragma once

#include <wx/app.h>

#include <memory>

/// The application object of the host that a test program is: with GUI or without, as the program
/// was linked.
std::unique_ptr<wxAppConsole> MakeTestApplication();
