// The handle of an open file, whatever its type.
#pragma once

#include "fileio/dopfile.h"
#include "fileio/gatfile.h"
#include "fileio/geniqfile.h"
#include "fileio/genreafile.h"
#include "fileio/imgfile.h"
#include "fileio/iqfile.h"
#include "fileio/pksfile.h"
#include "fileio/reafile.h"
#include "fileio/splfile.h"
#include "fileio/vecfile.h"

// Every file type's record begins with the common one. A handle is one block of the size of the largest.
union _dovfiletype {
    _dovfile commonstuff;
    _iqfile iq;
    _pksfile pks;
    _reafile rea;
    _dopfile dop;
    _splfile spl;
    _gatfile gat;
    _imgfile img;
    _vecfile vec;
    _geniqfile geniq;
    _genreafile genrea;
};
