// Refuses the required operations that a partial console leaves out.

#include "console/port_operations.h"
#include "console/refusing/refuse.h"

ORVANE_REQUIRED_OPERATIONS(ORVANE_REFUSE)
