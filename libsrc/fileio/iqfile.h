// IQ files: complex samples I + iQ at a constant rate. Sample i has the time t0 + i / prf.
//
//   type header, 144 bytes                        element, 8 bytes
//   offset  size  type   field                    offset  size  type  field
//        0     4  int32  version  1                    0     4  real  i
//        4     4         pad      not used             4     4  real  q
//        8   104  text   text     free
//      112     8  real   t0       time of element 0, seconds
//      120     8  real   prf      elements per second, above 0
//      128     8  real   tbias    time bias
//      136     8  real   xlam     wavelength, above 0
//
// Keywords of the type header, in this order: text, t0, tbias, prf, xlam.
#pragma once

#include "fileio/dovfileio.h"

struct _iqheader {
    std::int32_t version;
    std::int32_t pad;
    char text[104];
    double t0;
    double prf;
    double tbias;
    double xlam;
};
static_assert(offsetof(_iqheader, text) == 8);
static_assert(offsetof(_iqheader, t0) == 112);
static_assert(offsetof(_iqheader, xlam) == 136);
static_assert(sizeof(_iqheader) == 144);

struct _iqelement {
    float i;
    float q;
};
static_assert(sizeof(_iqelement) == 8);

struct _iqfile {
    _dovfile commonstuff;
    _iqheader hd;
};

// Opens (mode O or R for reading, U for update) or creates (N, C) a file; only the first character of the mode counts.
// Null when that fails, with the reason in getiqerror(). The caller closes it with u_close() or dovfileclose().
_dovfiletype *openiq(const char *filename, const char *mode);

// The next sample and its time; what is read is untouched when that fails. These four give -12 for other types' files.
int getiq(_dovfiletype *iq, double *dtme, double *fi, double *fq);

// Writes a sample, as 32-bit reals, at the current place: over the one there, or at the end.
int putiq(_dovfiletype *iq, double fi, double fq);

// The numbers of the type header. A prf or xlam that is not positive is stored as 1.
int getiqkeys(_dovfiletype *iq, double *t0, double *tbias, double *prf, double *xlam);
int putiqkeys(_dovfiletype *iq, const double *t0, const double *tbias, const double *prf, const double *xlam);

int getiqerror(); // the code of the last of these operations, 1 at first

// The services: ufp.h and dovkwdef.h say what the opcodes do.
int iq_service(_dovfiletype *iq, int opcode, void *arg);
int iq_keyword_service(_dovfiletype *iq, int opcode, char *name, void *arg);
