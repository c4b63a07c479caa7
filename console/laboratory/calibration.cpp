#include "console/laboratory/calibration.h"

namespace orvane::laboratory {

Correction LineThrough(const CalibrationPoints& points) {
    double count = 0.0;
    double measured = 0.0;
    double wanted = 0.0;
    for (const auto& point : points) {
        if (point) {
            count += 1.0;
            measured += (point->Measured - measured) / count;
            wanted += (point->Wanted - wanted) / count;
        }
    }
    double spread = 0.0;
    double common = 0.0;
    for (const auto& point : points) {
        if (point) {
            spread += (point->Measured - measured) * (point->Measured - measured);
            common += (point->Measured - measured) * (point->Wanted - wanted);
        }
    }
    const double gain = spread > 0.0 ? common / spread : 1.0;
    return {.Gain = gain, .Shift = wanted - gain * measured};
}

} // namespace orvane::laboratory
