// What a console refuses that does without the optional operations; every driver has this.

#include "console/port_operations.h"
#include "console/refusing/refuse.h"

ORVANE_OPTIONAL_OPERATIONS(ORVANE_REFUSE)
