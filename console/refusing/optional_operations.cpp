// Refuses the optional operations that a console leaves out. Part of every driver.

#include "console/port_operations.h"
#include "console/refusing/refuse.h"

ORVANE_OPTIONAL_OPERATIONS(ORVANE_REFUSE)
