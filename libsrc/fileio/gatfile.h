// GAT files: range gates. Every element is one look: its own time, which increases, where it pointed, and one value for
// each of ngat gates; gate k is at range + k x incrng.
//
//   type header, 32 bytes                                      element, 24 + ngat x 4 or 8 bytes
//   offset  size  type   field                                 offset  size  type  field
//        0     4  int32  version  1                                 0     8  real  time
//        4     4  int32  ngat     gates in an element, > 0          8     8  real  range      of gate 0
//        8     4  int32  dattype  1: amplitudes; 2: I and Q        16     4  real  elevation
//       12     4  real   incrng   range from gate to gate          20     4  real  azimuth
//       16     8  real   t0       nominal start, seconds          then, for dattype 1
//       24     8  real   prf      nominal rate, > 0            24 + 4 k   4  real  amp        of gate k
//                                                                 for dattype 2
//                                                              24 + 8 k   4  real  i
//                                                              28 + 8 k   4  real  q
//
// Keywords of the type header, in this order: t0, prf, incrng, ngat, dattype. ngat and dattype never change.
#pragma once

#include "fileio/dovfileio.h"

constexpr int gat_amplitudes = 1;
constexpr int gat_iq = 2;

struct _gatheader {
    std::int32_t version;
    std::int32_t ngat;
    std::int32_t dattype;
    float incrng;
    double t0;
    double prf;
};
static_assert(offsetof(_gatheader, incrng) == 12);
static_assert(offsetof(_gatheader, t0) == 16);
static_assert(sizeof(_gatheader) == 32);

// What an element begins with.
struct _gatlook {
    double time;
    double range;
    float elevation;
    float azimuth;
};
static_assert(offsetof(_gatlook, elevation) == 16);
static_assert(sizeof(_gatlook) == 24);

struct _gatfile {
    _dovfile commonstuff;
    _gatheader hd;
};

// As openiq(); ngat, at least 1, and dattype are used for creating only. Elements are read and written with u_getelem()
// and u_putelem() as a _gatlook and the gates.
_dovfiletype *opengat(const char *filename, const char *mode, int ngat, int dattype);
int getgaterror();

int gat_service(_dovfiletype *gat, int opcode, void *arg);
int gat_keyword_service(_dovfiletype *gat, int opcode, char *name, void *arg);
