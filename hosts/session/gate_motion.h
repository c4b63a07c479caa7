#pragma once

#include <string>
#include <vector>

namespace orvane {

/// What falls through gates, between each two crossings of its lower edge. The mean speed between
/// them is the speed at the middle of the time between them if the acceleration is constant; at
/// neither crossing it is.
struct GateMotion {
    std::vector<double> TimesSec;    ///< Of the crossings: 0 at the door, then the gates.
    std::vector<double> Positions;   ///< m below the door, of each crossing.
    std::vector<double> MidTimesSec; ///< Between each crossing and the next.
    std::vector<double> Speeds;      ///< m/s at these times.
    double DoorSpeed = 0.0;          ///< m/s, of the line that fits the speeds best.
    double Acceleration = 0.0;       ///< m/s²
};

/// The motion of a run over gates at rising positions, in m below the door; as many as times.
/// Throws HostError if the times don't rise.
GateMotion MotionOf(const std::vector<double>& raysSec, const std::vector<double>& positions);

/// Whether positions can be those of gates below a door: above 0, and rising.
bool AreGatePositions(const std::vector<double>& positions);

/// Reads "0.25,0.27". Throws HostError unless these are the positions of so many gates.
std::vector<double> ParseGatePositions(const std::string& text, size_t gates);

} // namespace orvane
