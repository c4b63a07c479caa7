// Which pages there are. A new one has its row here.

#include "hosts/panel/acquisition_page.h"
#include "hosts/panel/gates_page.h"
#include "hosts/panel/panel_frame.h"
#include "hosts/panel/spirometer_page.h"

#include <wx/translation.h>

namespace orvane {

const std::vector<PageKind>& PageKinds() {
    static const std::vector<PageKind> kinds{
        {wxTRANSLATE("Acquisition"),
         [](const DriverExports&, const DriverAccess& access) { return !access.Channels.empty(); },
         MakeAcquisitionPage},
        {wxTRANSLATE("Gates"),
         [](const DriverExports& driver, const DriverAccess&) { return HasGates(driver); },
         MakeGatesPage},
        {wxTRANSLATE("Spirometer"),
         [](const DriverExports&, const DriverAccess& access) {
             return HasTurbine(access.Channels);
         },
         MakeSpirometerPage}};
    return kinds;
}

} // namespace orvane
