#pragma once

/// \file
/// The steps of the turbine and the record that reports them, for the spirometer thread.

#include "spiro_exports.h"

namespace orvane {

/// Replaces the record that the host copies.
void SpiroEcrireDonnees(const tSpiroData& donnees);

/// Clears the record that the host copies.
void SpiroEffacerDonnees();

/// The next step begins now.
void SpiroInitTemps();

/// Reads the flow of the turbine last detected and ends a step. Call it inside the host's section.
tSpiroSample SpiroPas();

} // namespace orvane
