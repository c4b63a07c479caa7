#include "hosts/session/gate_motion.h"

#include "hosts/session/host_error.h"
#include "hosts/session/sentence_parts.h"
#include "hosts/session/text_parsing.h"
#include "hosts/session/translation.h"

#include <algorithm>
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

/// The line through speeds at these times by least squares.
FallLine LineThrough(const std::vector<double>& timesSec, const std::vector<double>& speeds) {
    const double time = Mean(timesSec);
    const double speed = Mean(speeds);
    double spread = 0.0;
    double common = 0.0;
    for (size_t i = 0; i < speeds.size(); ++i) {
        const double from = timesSec[i] - time;
        spread += from * from;
        common += from * (speeds[i] - speed);
    }
    return {.Acceleration = common / spread, .DoorSpeed = speed - common / spread * time};
}

void CheckOrder(const std::vector<double>& raysSec) {
    if (!Rise(raysSec)) {
        throw HostError(Translated("The gates were not crossed one after the other."));
    }
}

/// The gates in the order in which something that falls crosses them.
std::vector<size_t> OrderOf(const std::vector<double>& positions) {
    std::vector<size_t> order(positions.size());
    std::iota(order.begin(), order.end(), size_t{0});
    std::ranges::stable_sort(order, {}, [&](size_t gate) { return positions[gate]; });
    return order;
}

ForkPassage PassageOf(const GateFall& fall, size_t fork) {
    const double first = fall.TimesSec[2 * fork];
    const double second = fall.TimesSec[2 * fork + 1];
    ForkPassage passage{.FirstSec = first, .SecondSec = second, .MidSec = (first + second) / 2.0};
    if (!fall.Positions.empty()) {
        passage.Speed =
            (fall.Positions[2 * fork + 1] - fall.Positions[2 * fork]) / (second - first);
    }
    return passage;
}

/// With one fork, the speed between the door and the fork serves, too.
std::optional<FallLine> LineOf(const GateFall& fall, const std::vector<double>& raysSec) {
    if (fall.Positions.empty()) {
        return std::nullopt;
    }
    if (fall.Forks.size() == 1) {
        std::vector<double> rising = fall.Positions;
        std::ranges::sort(rising);
        const GateMotion motion = MotionOf(raysSec, rising);
        return FallLine{motion.Acceleration, motion.DoorSpeed};
    }
    std::vector<double> times;
    std::vector<double> speeds;
    for (const ForkPassage& fork : fall.Forks) {
        times.push_back(fork.MidSec);
        speeds.push_back(*fork.Speed);
    }
    return LineThrough(times, speeds);
}

} // namespace

GateMotion MotionOf(const std::vector<double>& raysSec, const std::vector<double>& positions) {
    CheckOrder(raysSec);
    GateMotion motion{.TimesSec = {0.0}, .Positions = {0.0}, .MidTimesSec = {}, .Speeds = {}};
    for (size_t i = 0; i < raysSec.size(); ++i) {
        const double before = motion.TimesSec.back();
        motion.MidTimesSec.push_back((before + raysSec[i]) / 2.0);
        motion.Speeds.push_back((positions[i] - motion.Positions.back()) / (raysSec[i] - before));
        motion.TimesSec.push_back(raysSec[i]);
        motion.Positions.push_back(positions[i]);
    }
    const FallLine line = LineThrough(motion.MidTimesSec, motion.Speeds);
    motion.DoorSpeed = line.DoorSpeed;
    motion.Acceleration = line.Acceleration;
    return motion;
}

GateFall FallOf(const std::vector<double>& raysSec, const std::vector<double>& positions) {
    CheckOrder(raysSec);
    std::vector<double> rising = positions;
    std::ranges::sort(rising);
    GateFall fall;
    fall.TimesSec = raysSec;
    if (positions.size() == raysSec.size() && AreGatePositions(rising)) {
        fall.Positions = positions;
        const std::vector<size_t> order = OrderOf(positions);
        for (size_t ray = 0; ray < order.size(); ++ray) {
            fall.TimesSec[order[ray]] = raysSec[ray];
        }
    }
    for (size_t fork = 0; fork < raysSec.size() / 2; ++fork) {
        fall.Forks.push_back(PassageOf(fall, fork));
        if (fork > 0 && fall.Forks[fork].Speed) {
            const ForkPassage& before = fall.Forks[fork - 1];
            fall.Forks[fork].Acceleration = (*fall.Forks[fork].Speed - *before.Speed) /
                                            (fall.Forks[fork].MidSec - before.MidSec);
        }
    }
    fall.Line = LineOf(fall, raysSec);
    return fall;
}

RunSpread SpreadOf(const std::vector<double>& values) {
    const auto [least, most] = std::ranges::minmax(values);
    return {.Mean = Mean(values), .Spread = most - least};
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
