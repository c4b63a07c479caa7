// Start, stop, identity, and the state after the end.

#include "hosts/orvane/selftest/selftest_checks.h"
#include "hosts/session/console_identity.h"

#include <cmath>

namespace orvane {

namespace {

void Starts(const SelftestTarget& target) {
    Expect(StartDriver(target.Driver, target.Options), "StartDll gives false");
}

void RestartsAndStops(const SelftestTarget& target) {
    const DriverExports& driver = target.Driver;
    if (driver.GetInterfaceName() == "Orvane150") {
        throw SkippedCheck("each start and stop affects the radio network");
    }
    Starts(target);
    driver.StopDll();
    driver.StopDll();
    Starts(target);
}

void TellsOfAChangeOnce(const SelftestTarget& target) {
    const DriverExports& driver = target.Driver;
    const int before = driver.GetEtatVerifCanaux();
    // It notes a change as VerifCanaux does, and only the first to do so counts the gates.
    driver.GetNombreDeFourcheMaxPortimetre();
    const int changes = driver.GetEtatVerifCanaux() - before;
    Expect(changes == 0 || changes == 1, "one change counts as " + std::to_string(changes));
    Expect(driver.VerifCanaux(), "VerifCanaux reports the same change again");
}

void SaysWhoItIs(const SelftestTarget& target) {
    const DriverExports& driver = target.Driver;
    Expect(!driver.GetBuilderName().empty(), "GetBuilderName is empty");
    Expect(!driver.GetInterfaceName().empty(), "GetInterfaceName is empty");
    for (const IdentityText& text : IdentityTexts(driver)) {
        ExpectOneLine(text.Text, "identity");
    }
}

void HasConsistentConstants(const SelftestTarget& target) {
    const DriverExports& driver = target.Driver;
    const double shortest = driver.GetMinPas();
    Expect(shortest >= 0.0 && shortest < driver.GetMaxDtInBuffMode(),
           "the shortest period is not below the longest");
    Expect(std::isfinite(driver.GetMaxDtInBuffMode()), "the longest period is not finite");
    ExpectEqual(driver.GetMinInTime(), shortest, "GetMinInTime");
    Expect(driver.GetOutValMin() < driver.GetOutValMax(), "the output range is empty");
    Expect(driver.GetInResolution() > 1 && driver.GetOutResolution() > 1,
           "a resolution has no steps");
    ExpectEqual(driver.GetParameter(3), 10000, "GetParameter(3)");
    ExpectEqual(driver.GetParameter(4), 100, "GetParameter(4)");
    ExpectEqual(driver.GetParameter(0), 0, "GetParameter(0)");
}

void IsEmptyAfterTheStop(const SelftestTarget& target) {
    const DriverExports& driver = target.Driver;
    driver.StopDll();
    driver.StopDll();
    ExpectEqual(driver.RecuperationPoint(0, 0), 0.0, "a sample");
    ExpectEqual(driver.CombienDeCanauxEnEntree(), 0, "the number of input channels");
    for (const int index : IndexesOutside(0)) {
        ExpectEqual(driver.QuelValeurPour(index), 0.0, "a value");
        Expect(driver.QuelNomPour(index, 0).empty(), "a channel has a name");
    }
}

} // namespace

std::vector<SelftestCheck> LifecycleChecks() {
    return {
        {"the driver starts", Starts, true},
        {"starts and stops may be repeated", RestartsAndStops},
        {"a change of adapters is reported once", TellsOfAChangeOnce},
        {"the identity texts have one line each", SaysWhoItIs},
        {"the constants are consistent", HasConsistentConstants},
    };
}

std::vector<SelftestCheck> EndChecks() {
    return {{"after a stop there are no channels and no samples", IsEmptyAfterTheStop}};
}

} // namespace orvane
