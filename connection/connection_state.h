#pragma once

/// \file
/// The state of the connection. Lives as long as the library is loaded; written by StartDll only,
/// on the host's thread.

#include "console/console_records.h"

#include <wx/string.h>

namespace orvane {

struct ConnectionState {
    wxString Contexte;              ///< For the console's first contact.
    wxString Langue;                ///< Language code of the host.
    int32_t DacParam = -1;          ///< Above 0: frequency limit of the outputs, Hz.
    int32_t ConsoleModel = 0;       ///< Model code; 0 before the first start.
    uint32_t NbPointPreSynchro = 0; ///< Pre-trigger points of the model.
    tInterfaceDesc InterfaceDesc{}; ///< The console's description of its interface.
};

inline ConnectionState Connection;

} // namespace orvane
