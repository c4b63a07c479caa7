#pragma once

/// \file
/// All that the driver library exports to its host, family by family.
///
/// Rules that hold for every export:
/// - One thread at a time, unless the export says otherwise.
/// - An index outside its list gives the neutral result of the type (0, 0.0, false, an empty text)
///   and touches nothing.
/// - Nothing is thrown but std::bad_alloc, when memory runs out, and what stops something doesn't
///   throw at all. Whatever threw is safe to call again, and so is StartDll.
/// - Host and library share one copy of the toolkit.
/// - A message to the user is a box in a host with windows, and blocks until it is closed. Called
/// on
///   another thread than the toolkit's main one, an export has the main thread open the box; if
///   that doesn't take it within 1 s, the message goes to standard error. In a host without windows
///   it goes there at once.
///
/// Order of calls: StartDll, VerifCanaux, CombienDeCanauxEnEntree, then all that works with
/// channel indexes, and StopDll at the end.

#include "acquisition_exports.h"
#include "adapter_exports.h"
#include "adjustment_exports.h"
#include "channel_exports.h"
#include "gate_exports.h"
#include "image_exports.h"
#include "lifecycle_exports.h"
#include "output_exports.h"
#include "radio_exports.h"
#include "settings_exports.h"
#include "spiro_exports.h"
