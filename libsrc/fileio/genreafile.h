// The general REA file: REA and GAT files read as tracks. The access layer gives a _reaelement each, and the type
// header of a REA file, whatever the file has. Nothing can be written.
//
// Of a GAT file the elements are time, range of gate 0, elevation and azimuth, with flag 1; its type header gives t0
// and prf, with tbias 0 and xlam 1. Keywords are those of the file's own type.
#pragma once

#include "fileio/gatfile.h"
#include "fileio/reafile.h"

struct _genreafile {
    _dovfile commonstuff;
    union {
        _reaheader rea;
        _gatheader gat;
    } hd;
};

// Null when the file cannot be opened or is of another type (-12), with the reason in getgenreaerror().
_dovfiletype *opengenrea(const char *filename);
int getgenreaerror();

int genrea_service(_dovfiletype *genrea, int opcode, void *arg);
