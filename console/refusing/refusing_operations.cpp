// What a console refuses that does not have all operations that it has to have.

#include "console/port_operations.h"
#include "console/refusing/refuse.h"

ORVANE_REQUIRED_OPERATIONS(ORVANE_REFUSE)
