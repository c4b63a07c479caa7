// A console with a spirometer turbine on connector 3, through which 2 l/s flow, or ORVANE_FLOW.

#include "tests/support/scripted_console.h"

#include <cstdlib>

[[maybe_unused]] static const bool ready = [] {
    ScriptedChannel flow = InputChannel("Flow", -20, 20);
    flow.Functions = {Function("Flow", "Q", "l/s", {Calibre("20 l/s", -20, 20)})};
    const char* told = std::getenv("ORVANE_FLOW");
    flow.Value = told != nullptr ? std::atof(told) : 2.0;
    Console.Connectors[3] = Adapter("482109", {flow});
    Console.Recording = false;
    return true;
}();
