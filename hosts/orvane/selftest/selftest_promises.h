#pragma once

#include "hosts/session/channel_info.h"

#include <stdexcept>
#include <string>
#include <vector>

namespace orvane {

/// What the promises of a driver are held against.
struct SelftestBench {
    const DriverExports& Driver;
    wxString Language;
    bool Outputs = false; ///< Analog outputs may be driven.
};

/// One promise that a host can check. A check that returns has found it held. It leaves the
/// settings of the console as it found them, in every case.
struct Promise {
    std::string Text;
    void (*Check)(const SelftestBench& bench);
    bool Prerequisite = false; ///< Without it the others cannot be checked.
};

/// Ends a check: the promise is broken, and how.
struct BrokenPromise : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// Ends a check: here the promise cannot be checked, and why.
struct UncheckedPromise : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// Throws BrokenPromise unless it holds.
void Expect(bool holds, const std::string& finding);
/// The same for two numbers that have to be equal; `what` names them.
void ExpectEqual(double found, double expected, const std::string& what);
/// Throws BrokenPromise unless the text is one line without control characters.
void ExpectOneLine(const wxString& text, const std::string& what);
/// "channel 3: " in front of a finding.
std::string OnChannel(int index, const std::string& finding);

/// Indexes that no list of this many entries has.
std::vector<int> IndexesOutside(int count);

/// \name The promises, by family; lifecycle goes first, the end last
/// @{
std::vector<Promise> LifecyclePromises();
std::vector<Promise> ChannelPromises();
std::vector<Promise> SettingPromises();
std::vector<Promise> AcquisitionPromises();
std::vector<Promise>
InstrumentPromises(); ///< Adjustments, pictures, outputs, gates, spirometer, radio.
std::vector<Promise> EndPromises();

} // namespace orvane
/// @}
