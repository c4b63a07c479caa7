#pragma once

/// \file
/// The mark of an export.

/// Marks what the library shows to its host.
#define ORVANE_EXPORT __attribute__((visibility("default")))
