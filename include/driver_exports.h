#pragma once

/// \file
/// All that the driver library exports to its host, family by family.
///
/// Rules that hold for every export:
/// - One thread at a time, unless the export says otherwise.
/// - An index outside its list gives the neutral result of the type (0, 0.0, false, an empty text)
///   and touches nothing.
/// - Only std::bad_alloc is thrown, when memory runs out, and never by an export that stops
///   something. An export that threw may be called again, and so may StartDll.
/// - Host and library share one copy of the toolkit.
/// - In a host with windows, a message to the user is a box and blocks until it is closed. An
///   export that is called on another thread than the toolkit's main one asks the main thread to
///   open the box; if that doesn't respond within 1 s, the message goes to standard error. In a
///   host without windows it goes there at once.
///
/// Order of calls: StartDll, VerifCanaux, CombienDeCanauxEnEntree, then all exports that take
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
