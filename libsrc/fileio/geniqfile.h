// The general IQ file: IQ, DOP and GAT files read as if they were IQ files. The access layer gives 8-byte elements, an
// I and a Q as 32-bit reals, and the type header of an IQ file, whatever the file has. Nothing can be written.
//
// Each sample is scale times
//   IQ   the sample,
//   DOP  sample iprime of the element,
//   GAT  gate iprime of the element; an amplitude is an I, with a Q of 0.
//
// Its keywords come before those of the reserved area, in this order: scale (a DOP file's own, else 1), xlam (1 for a
// GAT file), tbias (0 for a GAT file), iprime (an integer, 0 at first). The first three and iprime may be put, within
// the element's items, and hold until the file is closed.
#pragma once

#include "fileio/dopfile.h"
#include "fileio/gatfile.h"
#include "fileio/iqfile.h"

struct _geniqfile {
    _dovfile commonstuff;
    union {
        _iqheader iq;
        _dopheader dop;
        _gatheader gat;
    } hd;
    double scale;
    double xlam;
    double tbias;
    std::int32_t iprime;
};

// Null when the file cannot be opened or is of another type (-12), with the reason in getgeniqerror().
_dovfiletype *opengeniq(const char *filename);
int getgeniqerror();

int geniq_service(_dovfiletype *geniq, int opcode, void *arg);
int geniq_keyword_service(_dovfiletype *geniq, int opcode, char *name, void *arg);
