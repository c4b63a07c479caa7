#include "hosts/orvane/commands/chart_target.h"

#include "hosts/plot/chart_drawing.h"

#include <iostream>

namespace orvane {

void OpenChartFile(const std::optional<std::string>& name, std::optional<PendingFile>& file) {
    if (name) {
        CheckChartFile(*name);
        file.emplace(*name);
    }
}

std::ostream& AsideOf(bool json) {
    return json ? std::cerr : std::cout;
}

void ReportChart(const PendingFile& file, bool json) {
    AsideOf(json) << "Plot  " << file.Target.string() << '\n';
}

} // namespace orvane
