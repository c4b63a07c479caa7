#include "hosts/session/gate_motion.h"

#include "hosts/session/host_error.h"
#include "hosts/session/sentence_parts.h"
#include "hosts/session/text_parsing.h"

#include <cmath>
#include <numeric>

namespace orvane {

namespace {

/// From 0 on, and finite.
bool Rise(const std::vector<double>& values) {
    double last = 0.0;
    for (const double value : values) {
        if (!(value > last && std::isfinite(value))) {
            return false;
        }
        last = value;
    }
    return true;
}

double Mean(const std::vector<double>& values) {
    return std::accumulate(values.begin(), values.end(), 0.0) / static_cast<double>(values.size());
}

/// The line through the speeds by least squares.
void FitLine(GateMotion& motion) {
    const double time = Mean(motion.MidTimesSec);
    const double speed = Mean(motion.Speeds);
    double spread = 0.0;
    double common = 0.0;
    for (size_t i = 0; i < motion.Speeds.size(); ++i) {
        const double from = motion.MidTimesSec[i] - time;
        spread += from * from;
        common += from * (motion.Speeds[i] - speed);
    }
    motion.Acceleration = common / spread;
    motion.DoorSpeed = speed - motion.Acceleration * time;
}

} // namespace

GateMotion MotionOf(const std::vector<double>& raysSec, const std::vector<double>& positions) {
    if (!Rise(raysSec)) {
        throw HostError("The gates were not crossed one after the other.");
    }
    GateMotion motion{.TimesSec = {0.0}, .Positions = {0.0}, .MidTimesSec = {}, .Speeds = {}};
    for (size_t i = 0; i < raysSec.size(); ++i) {
        const double before = motion.TimesSec.back();
        motion.MidTimesSec.push_back((before + raysSec[i]) / 2.0);
        motion.Speeds.push_back((positions[i] - motion.Positions.back()) / (raysSec[i] - before));
        motion.TimesSec.push_back(raysSec[i]);
        motion.Positions.push_back(positions[i]);
    }
    FitLine(motion);
    return motion;
}

bool AreGatePositions(const std::vector<double>& positions) {
    return !positions.empty() && Rise(positions);
}

std::vector<double> ParseGatePositions(const std::string& text, size_t gates) {
    std::vector<double> positions;
    for (const std::string_view part : Split(text, ',')) {
        positions.push_back(ParseNumber<double>(part).value_or(0.0)); // Which none of them is.
    }
    if (!AreGatePositions(positions) || positions.size() != gates) {
        throw WrongArgument("The positions " + Quoted(text) + " are not " + std::to_string(gates) +
                            " rising distances below the door in m, such as 0.25,0.27.");
    }
    return positions;
}

} // namespace orvane
