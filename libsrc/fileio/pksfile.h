// PKS files: spectral peaks at a constant rate, npks of them in every element. Element i has the time t0 + i / prf.
//
//   type header, 184 bytes                                    element, npks x 8 bytes
//   offset  size  type   field                                offset  size  type  field
//        0   104  text   text     free                         8 k     4  real  hz   frequency of peak k
//      104     4  int32  version  1                            8 k + 4 4  real  amp  its amplitude
//      108     4  int32  npks     peaks in an element, > 0
//      112     4  int32  type     kind of peaks
//      116     4  int32  nfft     length of the transforms
//      120     4  int32  wdw      samples in a window
//      124     4  int32  lag      samples from one window to the next
//      128     4  int32  weight   weighting of the window
//      132     4  int32  spare    not used
//      136     8  real   t0       time of element 0, seconds
//      144     8  real   prf      elements per second, > 0
//      152     8  real   tbias    time bias
//      160     8  real   xlam     wavelength, > 0
//      168     8  real   hz1      frequencies that were searched, from
//      176     8  real   hz2      to
//
// Keywords of the type header, in this order: text, t0, tbias, prf, xlam, hz1, hz2, npks, type, nfft, wdw, lag, weight.
// npks never changes.
#pragma once

#include "fileio/dovfileio.h"

struct _pksheader {
    char text[104];
    std::int32_t version;
    std::int32_t npks;
    std::int32_t type;
    std::int32_t nfft;
    std::int32_t wdw;
    std::int32_t lag;
    std::int32_t weight;
    std::int32_t spare;
    double t0;
    double prf;
    double tbias;
    double xlam;
    double hz1;
    double hz2;
};
static_assert(offsetof(_pksheader, version) == 104);
static_assert(offsetof(_pksheader, t0) == 136);
static_assert(offsetof(_pksheader, hz2) == 176);
static_assert(sizeof(_pksheader) == 184);

struct _pkspeak {
    float hz;
    float amp;
};
static_assert(sizeof(_pkspeak) == 8);

struct _pksfile {
    _dovfile commonstuff;
    _pksheader hd;
};

// As openiq(); npks is used for creating only and then at least 1. Elements are read and written with u_getelem() and
// u_putelem() as npks times _pkspeak.
_dovfiletype *openpks(const char *filename, const char *mode, int npks);
int getpkserror();

int pks_service(_dovfiletype *pks, int opcode, void *arg);
int pks_keyword_service(_dovfiletype *pks, int opcode, char *name, void *arg);
