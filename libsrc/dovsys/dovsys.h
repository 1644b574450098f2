// The system library: tracked memory, strings and lists, environment settings, files and directories, rounding,
// JSON text.
// Nothing in it is safe to call from two threads at once.
#pragma once

#include "dovsys/basicstr.h"
#include "dovsys/bestint.h"
#include "dovsys/comutil.h"
#include "dovsys/dirutil.h"
#include "dovsys/jmalloc.h"
#include "dovsys/json.h"
#include "dovsys/logicals.h"
#include "dovsys/rddir.h"
