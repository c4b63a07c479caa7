#include "console/laboratory/calibration.h"

namespace orvane::laboratory {

Correction LineThrough(const std::map<uint32_t, CalibrationPoint>& points) {
    if (points.empty()) {
        return {};
    }
    const auto count = static_cast<double>(points.size());
    double measured = 0.0;
    double wanted = 0.0;
    for (const auto& [number, point] : points) {
        measured += point.Measured / count;
        wanted += point.Wanted / count;
    }
    double spread = 0.0;
    double common = 0.0;
    for (const auto& [number, point] : points) {
        spread += (point.Measured - measured) * (point.Measured - measured);
        common += (point.Measured - measured) * (point.Wanted - wanted);
    }
    const double gain = spread > 0.0 ? common / spread : 1.0;
    return {.Gain = gain, .Shift = wanted - gain * measured};
}

} // namespace orvane::laboratory
