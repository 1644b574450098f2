// DOP files: Doppler samples at a constant rate, namp complex ones in every element, stored as scaled integers. Element
// i has the time t0 + i / prf.
//
//   type header, 152 bytes                                     element, namp x 4 bytes
//   offset  size  type   field                                 offset  size  type   field
//        0   104  text   text     free                          4 k     2  int16  i  sample k is scale x (i + iq)
//      104     4  int32  version  1                             4 k + 2 2  int16  q
//      108     4  int32  namp     samples in an element, > 0
//      112     8  real   t0       time of element 0, seconds
//      120     8  real   tbias    time bias
//      128     8  real   prf      elements per second, > 0
//      136     8  real   xlam     wavelength, > 0
//      144     8  real   scale    value of 1; 1 in a new file
//
// Keywords of the type header, in this order: text, t0, tbias, prf, xlam, scale, namp. namp never changes.
#pragma once

#include "fileio/dovfileio.h"

struct _dopheader {
    char text[104];
    std::int32_t version;
    std::int32_t namp;
    double t0;
    double tbias;
    double prf;
    double xlam;
    double scale;
};
static_assert(offsetof(_dopheader, version) == 104);
static_assert(offsetof(_dopheader, t0) == 112);
static_assert(offsetof(_dopheader, scale) == 144);
static_assert(sizeof(_dopheader) == 152);

struct _dopsample {
    std::int16_t i;
    std::int16_t q;
};
static_assert(sizeof(_dopsample) == 4);

struct _dopfile {
    _dovfile commonstuff;
    _dopheader hd;
};

// As openiq(); namp is used for creating only and then at least 1. Elements are read and written with u_getelem() and
// u_putelem() as namp times _dopsample.
_dovfiletype *opendop(const char *filename, const char *mode, int namp);
int getdoperror();

int dop_service(_dovfiletype *dop, int opcode, void *arg);
int dop_keyword_service(_dovfiletype *dop, int opcode, char *name, void *arg);
