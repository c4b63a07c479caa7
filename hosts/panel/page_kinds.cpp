// Which pages there are. A new one has its row here.

#include "hosts/panel/acquisition_page.h"
#include "hosts/panel/panel_frame.h"

#include <wx/translation.h>

namespace orvane {

const std::vector<PageKind>& PageKinds() {
    static const std::vector<PageKind> kinds{
        {wxTRANSLATE("Acquisition"),
         [](const DriverExports&, const DriverAccess& access) { return !access.Channels.empty(); },
         MakeAcquisitionPage}};
    return kinds;
}

} // namespace orvane
