#pragma once

/// \file
/// Start, stop, identity and constants of the driver.

#include "export_macro.h"

#include <wx/string.h>

#include <cstdint>

// Texts are returned by value under plain names on purpose; clang warns about that.
#ifdef __clang__
#pragma clang diagnostic push
#pragma clang diagnostic ignored "-Wreturn-type-c-linkage"
#endif

extern "C" {

/// Opens the connection to the console, after closing one that is still open.
///
/// Reads which console model answered, its memory, and what is plugged into it. A failure shows at
/// most one message and leaves the driver closed.
///
/// \param reserved not read
/// \param contexte passed to the console unchanged
/// \param langue language code of the host: "fr", "en" or another; selects the channel names
/// \param dacParam above 0: frequency limit of the analog outputs in hertz
/// \return true when the connection is open
/// \note Blocks up to 10 s while it waits for a console, and as long as a message is shown:
///       driver_exports.h says where that is.
ORVANE_EXPORT bool StartDll(uint32_t reserved, const wxString& contexte, const wxString& langue,
                            int32_t dacParam);

/// Closes the connection. Safe at any time, even if none is open. Does not stop the spirometer
/// thread: the host does that first.
/// \note With a radio network, blocks up to 3 s while its pods leave.
ORVANE_EXPORT void StopDll();

/// Closes the console itself, as StartDll and StopDll also do.
ORVANE_EXPORT void ShutdownConsole();

/// Name of the maker of the console.
ORVANE_EXPORT wxString GetBuilderName();
/// Name of the console model; "Orvane????" before the first start and for an unknown model.
ORVANE_EXPORT wxString GetInterfaceName();
/// Shortest sample period of the model in seconds; 0.0 for an unknown model.
ORVANE_EXPORT double GetMinPas();
/// The same as GetMinPas.
ORVANE_EXPORT double GetMinInTime();
/// Number of steps of an input.
ORVANE_EXPORT uint32_t GetInResolution();
/// Number of steps of an output.
ORVANE_EXPORT uint32_t GetOutResolution();
/// Highest value of an analog output: 10.0 on model 12368, otherwise 1.0.
ORVANE_EXPORT double GetOutValMax();
/// Lowest value of an analog output: -10.0 on model 12368, otherwise -1.0.
ORVANE_EXPORT double GetOutValMin();
/// Longest sample period of a buffered acquisition, seconds.
ORVANE_EXPORT double GetMaxDtInBuffMode();
/// Pre-trigger points that the model offers: 50 on model 12368, otherwise 0.
ORVANE_EXPORT uint32_t GetNbPointPreSynchro();
/// A numeric parameter of the driver: 10000 for n = 3, 100 for n = 4, otherwise 0.
ORVANE_EXPORT uint32_t GetParameter(uint32_t n);
/// Accepts the call and does nothing.
ORVANE_EXPORT void SetFunction();

/// Time of a monotonic high-resolution counter in microseconds, from an arbitrary origin. Without
/// such a counter it rings the bell and returns 0.0. Any thread may call it.
ORVANE_EXPORT double GetTimeResolu();

} // extern "C"

#ifdef __clang__
#pragma clang diagnostic pop
#endif

/// \name Identity texts of the console
/// Each reads the console's memory first if that has not succeeded yet. A console without such a
/// memory gives empty texts, and each call then shows a message and blocks until it is closed:
/// driver_exports.h says where. Half a surrogate pair in a text reads as U+FFFD.
/// @{

/// Serial number.
ORVANE_EXPORT wxString GetSerialNumber();
/// Console type, followed by "-FR".
ORVANE_EXPORT wxString GetConsoleType();
/// Number of the establishment that owns the console.
ORVANE_EXPORT wxString GetEtablissementNumber();
/// First personal line.
ORVANE_EXPORT wxString GetInfoPerso1();
/// Second personal line.
ORVANE_EXPORT wxString GetInfoPerso2();
/// @}
