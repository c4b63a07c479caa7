#pragma once

/// \file
/// Changes of the adapters that are plugged into the console.

#include "export_macro.h"

/// Notes the adapters that were plugged in or unplugged since the last call.
///
/// False means that something changed: the host then enumerates the channels again. Until a change
/// is noted, a buffered acquisition answers as if it had ended and its samples were 0.0.
/// \return true if nothing has changed since the last call
extern "C" ORVANE_EXPORT bool VerifCanaux();

/// How often VerifCanaux found a change.
ORVANE_EXPORT int GetEtatVerifCanaux();
