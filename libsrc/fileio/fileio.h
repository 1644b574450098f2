// Measurement files: a container with named values, a type header and elements; the file types on it; and the layer
// through which all of them are read and written alike. Files of five machines are read and updated in their own
// format.
//
//     _dovfiletype *iq = openiq("data.iq", "Read");
//     double t, i, q;
//     while (getiq(iq, &t, &i, &q) == 1)
//         ...
//     u_close(iq);
//
// Nothing in it is safe to call from two threads at once.
#pragma once

#include "fileio/dovfileio.h"
#include "fileio/dovfiletype.h"
#include "fileio/dovkwdef.h"
#include "fileio/dovreserve.h"
#include "fileio/filetypes.h"
#include "fileio/keywrdlst.h"
#include "fileio/mcvt.h"
#include "fileio/ufp.h"
