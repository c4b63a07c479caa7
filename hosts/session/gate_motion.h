#pragma once

#include <optional>
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

/// Speed over time of what falls: that at the door, and how it grows.
struct FallLine {
    double Acceleration = 0.0; ///< m/s²
    double DoorSpeed = 0.0;    ///< m/s
};

/// What a fork measured: when its two gates were crossed, and the mean speed between them, which is
/// that at the middle of the time.
struct ForkPassage {
    double FirstSec = 0.0; ///< Since the door.
    double SecondSec = 0.0;
    double MidSec = 0.0;
    std::optional<double> Speed = {};        ///< m/s; nothing without positions.
    std::optional<double> Acceleration = {}; ///< m/s² since the fork before.
};

/// A run over gates, gate by gate and fork by fork.
struct GateFall {
    std::vector<double> TimesSec;  ///< Of each gate, since the door.
    std::vector<double> Positions; ///< m below the door, of each gate; empty: not known.
    std::vector<ForkPassage> Forks;
    std::optional<FallLine> Line; ///< Nothing without positions.
};

/// A run over gates at these positions, in m below the door and in the order of the gates. If they
/// aren't those of gates below a door, there are no speeds. The line fits the speeds of the forks;
/// with one fork it goes through its speed and that between the door and its first gate. Throws
/// HostError if the times don't rise.
GateFall FallOf(const std::vector<double>& raysSec, const std::vector<double>& positions);

/// What several runs gave, one at least.
struct RunSpread {
    double Mean = 0.0;
    double Spread = 0.0; ///< Between the least and the most.
};
RunSpread SpreadOf(const std::vector<double>& values);

/// Whether positions can be those of gates below a door: above 0, and rising.
bool AreGatePositions(const std::vector<double>& positions);

/// Reads "0.25,0.27". Throws HostError unless these are the positions of so many gates.
std::vector<double> ParseGatePositions(const std::string& text, size_t gates);

} // namespace orvane
