#pragma once

#include "hosts/session/channel_info.h"
#include "hosts/session/driver_session.h"

#include <map>
#include <stdexcept>
#include <string>
#include <vector>

namespace orvane {

/// What the checks run on.
struct SelftestTarget {
    const DriverExports& Driver;
    const DriverOptions& Options;
    bool Outputs = false;                  ///< Analog outputs may be driven.
    std::map<std::string, int>& Exercised; ///< Takes kinds of instruments, and how many were used.
};

/// One rule that every driver follows and a host can check. A check that returns has passed. In
/// every case it leaves the settings of the console as they were.
struct SelftestCheck {
    std::string Text;
    void (*Run)(const SelftestTarget& target);
    bool Prerequisite = false; ///< If it fails, the others cannot be run.
};

/// Ends a check that failed; the text says how.
struct FailedCheck : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// Ends a check that cannot be made here; the text says why.
struct SkippedCheck : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// Throws FailedCheck unless the condition holds.
void Expect(bool holds, const std::string& finding);
/// The same for two numbers that have to be equal; `what` names them.
void ExpectEqual(double found, double expected, const std::string& what);
/// Throws FailedCheck unless the text is one line without control characters.
void ExpectOneLine(const wxString& text, const std::string& what);
/// "channel 3: " in front of a finding.
std::string OnChannel(int index, const std::string& finding);

/// Indexes that no list of this many entries has.
std::vector<int> IndexesOutside(int count);

/// \name The checks, by family; the lifecycle comes first, the end last
/// @{
std::vector<SelftestCheck> LifecycleChecks();
std::vector<SelftestCheck> ChannelChecks();
std::vector<SelftestCheck> SettingChecks();
std::vector<SelftestCheck> AcquisitionChecks();
std::vector<SelftestCheck>
InstrumentChecks(); ///< Adjustments, pictures, outputs, gates, spirometer, radio.
std::vector<SelftestCheck> EndChecks();

/// @}

} // namespace orvane
