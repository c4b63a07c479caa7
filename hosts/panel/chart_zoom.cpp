#include "hosts/panel/chart_zoom.h"

#include <algorithm>

namespace orvane {

AxisRange Scaled(AxisRange range, double about, double factor) {
    return {about - (about - range.From) * factor, about + (range.To - about) * factor};
}

AxisRange Moved(AxisRange range, double part) {
    const double by = (range.To - range.From) * part;
    return {range.From + by, range.To + by};
}

AxisRange HeldWithin(AxisRange range, AxisRange whole) {
    const double length = std::min(range.To - range.From, whole.To - whole.From);
    const double from = std::clamp(range.From, whole.From, whole.To - length);
    return {from, from + length};
}

} // namespace orvane
