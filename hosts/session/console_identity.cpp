#include "hosts/session/console_identity.h"

namespace orvane {

std::vector<IdentityText> IdentityTexts(const DriverExports& driver) {
    return {
        {"Builder", "/builder", driver.GetBuilderName()},
        {"Interface", "/interface", driver.GetInterfaceName()},
        {"Console type", "/consoleType", driver.GetConsoleType()},
        {"Serial number", "/serialNumber", driver.GetSerialNumber()},
        {"Establishment number", "/establishmentNumber", driver.GetEtablissementNumber()},
        {"First personal line", "/personalLines/0", driver.GetInfoPerso1()},
        {"Second personal line", "/personalLines/1", driver.GetInfoPerso2()},
    };
}

} // namespace orvane
