#pragma once

/// \file
/// Marks exports.

/// Marks what the library shows to its host.
#define ORVANE_EXPORT __attribute__((visibility("default")))
