#pragma once

#include "hosts/plot/chart.h"
#include "hosts/session/gate_motion.h"

namespace orvane {

/// A fall through gates over time, without size: its positions and speeds as dots, and the motion
/// of constant acceleration that fits them as curves.
Chart PictureOf(const GateMotion& motion);

} // namespace orvane
