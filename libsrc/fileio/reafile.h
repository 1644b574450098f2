// REA files: a track of range, elevation and azimuth. Every element has its own time; times increase.
//
//   type header, 144 bytes                        element, 32 bytes
//   offset  size  type   field                    offset  size  type   field
//        0     4  int32  version  1                    0     8  real   time
//        4   104  text   text     free                 8     8  real   range
//      108     4  int32  spare    not used            16     4  real   elevation
//      112     8  real   t0       nominal start       20     4  real   azimuth
//      120     8  real   prf      nominal rate, > 0   24     4  int32  flag       1: the element is valid
//      128     8  real   tbias    time bias           28     4  int32  spare      not used
//      136     8  real   xlam     wavelength, > 0
//
// Keywords of the type header, in this order: text, t0, tbias, prf, xlam.
#pragma once

#include "fileio/dovfileio.h"

struct _reaheader {
    std::int32_t version;
    char text[104];
    std::int32_t spare;
    double t0;
    double prf;
    double tbias;
    double xlam;
};
static_assert(offsetof(_reaheader, text) == 4);
static_assert(offsetof(_reaheader, spare) == 108);
static_assert(offsetof(_reaheader, t0) == 112);
static_assert(sizeof(_reaheader) == 144);

struct _reaelement {
    double time;
    double range;
    float elevation;
    float azimuth;
    std::int32_t flag;
    std::int32_t spare;
};
static_assert(offsetof(_reaelement, elevation) == 16);
static_assert(offsetof(_reaelement, flag) == 24);
static_assert(sizeof(_reaelement) == 32);

struct _reafile {
    _dovfile commonstuff;
    _reaheader hd;
};

// As openiq(). A track is read and written with u_getelem() and u_putelem() as _reaelement.
_dovfiletype *openrea(const char *filename, const char *mode);
int getreaerror();

int rea_service(_dovfiletype *rea, int opcode, void *arg);
int rea_keyword_service(_dovfiletype *rea, int opcode, char *name, void *arg);
