// Which pages there are. A new one has its row here.

#include "hosts/panel/acquisition_page.h"
#include "hosts/panel/channel_page.h"
#include "hosts/panel/console_page.h"
#include "hosts/panel/gates_page.h"
#include "hosts/panel/generator_page.h"
#include "hosts/panel/panel_frame.h"
#include "hosts/panel/radio_page.h"
#include "hosts/panel/spirometer_page.h"

#include <wx/translation.h>

namespace orvane {

const std::vector<PageKind>& PageKinds() {
    static const std::vector<PageKind> kinds{
        {wxTRANSLATE("Acquisition"),
         [](const DriverExports&, const DriverAccess& access) { return !access.Channels.empty(); },
         MakeAcquisitionPage},
        {wxTRANSLATE("Generator"),
         [](const DriverExports& driver, const DriverAccess&) {
             return driver.CombienDeCanauxEnSortie() > 0;
         },
         MakeGeneratorPage},
        {wxTRANSLATE("Gates"),
         [](const DriverExports& driver, const DriverAccess&) { return HasGates(driver); },
         MakeGatesPage},
        {wxTRANSLATE("Spirometer"),
         [](const DriverExports&, const DriverAccess& access) {
             return HasTurbine(access.Channels);
         },
         MakeSpirometerPage},
        {wxTRANSLATE("Radio"),
         [](const DriverExports& driver, const DriverAccess&) { return HasRadio(driver); },
         MakeRadioPage},
        {wxTRANSLATE("Channel"),
         [](const DriverExports&, const DriverAccess& access) { return !access.Channels.empty(); },
         MakeChannelPage},
        {wxTRANSLATE("Console"), [](const DriverExports&, const DriverAccess&) { return true; },
         MakeConsolePage}};
    return kinds;
}

} // namespace orvane
