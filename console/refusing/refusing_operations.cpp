// Every operation of the port for a console that does not have them all: each call is refused and
// nothing is written. They are weak: an operation that the console has itself takes the place of
// its own here.

#include "console/port_operations.h"

template <class... Arguments> static void Ignore(const Arguments&... /*arguments*/) {}

#define ORVANE_REFUSE(result, name, parameters, arguments)                                         \
    __attribute__((weak)) result name parameters {                                                 \
        Ignore arguments;                                                                          \
        return result();                                                                           \
    }
ORVANE_PORT_OPERATIONS(ORVANE_REFUSE)
