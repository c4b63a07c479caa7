#include "hosts/session/console_identity.h"

#include "hosts/session/acquisition_request.h"
#include "hosts/session/durations.h"
#include "hosts/session/number_text.h"
#include "hosts/session/translation.h"

#include <wx/translation.h>

namespace orvane {

std::vector<IdentityText> IdentityTexts(const DriverExports& driver) {
    return {
        {wxTRANSLATE("Builder"), "/builder", driver.GetBuilderName()},
        {wxTRANSLATE("Interface"), "/interface", driver.GetInterfaceName()},
        {wxTRANSLATE("Console type"), "/consoleType", driver.GetConsoleType()},
        {wxTRANSLATE("Serial number"), "/serialNumber", driver.GetSerialNumber()},
        {wxTRANSLATE("Establishment number"), "/establishmentNumber",
         driver.GetEtablissementNumber()},
        {wxTRANSLATE("First personal line"), "/personalLines/0", driver.GetInfoPerso1()},
        {wxTRANSLATE("Second personal line"), "/personalLines/1", driver.GetInfoPerso2()},
    };
}

std::vector<LimitText> LimitTexts(const DriverExports& driver) {
    const auto steps = [](uint32_t count) {
        return Translated("%s steps", {std::to_string(count)});
    };
    return {
        {wxTRANSLATE("Shortest period"), DurationText(driver.GetMinPas())},
        {wxTRANSLATE("Longest period"), DurationText(LongestPeriodSec(driver))},
        {wxTRANSLATE("Longest reported"), DurationText(driver.GetMaxDtInBuffMode())},
        {wxTRANSLATE("Pre-trigger points"), std::to_string(driver.GetNbPointPreSynchro())},
        {wxTRANSLATE("Input resolution"), steps(driver.GetInResolution())},
        {wxTRANSLATE("Output resolution"), steps(driver.GetOutResolution())},
        {wxTRANSLATE("Output range"), RangeText(driver.GetOutValMin(), driver.GetOutValMax())},
        {wxTRANSLATE("Parameters 3 and 4"),
         std::to_string(driver.GetParameter(3)) + ", " + std::to_string(driver.GetParameter(4))},
    };
}

} // namespace orvane
