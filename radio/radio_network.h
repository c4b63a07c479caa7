#pragma once

/// \file
/// The radio network of model 12336.

/// Between StartO150 and the end of StopO150. Written by these two, on the host's thread.
inline bool RadioDemarre = false;

/// Starts the radio network.
void StartO150();

/// Stops the radio network.
void StopO150();
