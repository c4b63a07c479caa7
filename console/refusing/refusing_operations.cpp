// Every operation of the port for a console that does not have them all: each call is refused and
// nothing is written. They are weak: an operation that the console has itself takes the place of
// its own here.

#include "console/port_operations.h"

#pragma GCC diagnostic ignored "-Wunused-parameter" // A refusal looks at none.

#define ORVANE_REFUSE(result, name, parameters, arguments)                                         \
    __attribute__((weak)) result name parameters {                                                 \
        return result();                                                                           \
    }

ORVANE_PORT_OPERATIONS(ORVANE_REFUSE)
