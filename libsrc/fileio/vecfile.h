// VEC files: vectors of nvec components. The time of a vector is its index.
//
//   type header, 8 bytes                                       element, nvec x 8 bytes
//   offset  size  type   field                                 offset  size  type  field
//        0     4  int32  version  1                            8 k        8  real  x
//        4     4  int32  nvec     components, > 0
//
// Keyword of the type header: nvec, which never changes.
#pragma once

#include "fileio/dovfileio.h"

struct _vecheader {
    std::int32_t version;
    std::int32_t nvec;
};
static_assert(sizeof(_vecheader) == 8);

struct _vecfile {
    _dovfile commonstuff;
    _vecheader hd;
};

// As openiq(); nvec is used for creating only and then at least 1. Elements are read and written with u_getelem() and
// u_putelem() as nvec times double.
_dovfiletype *openvec(const char *filename, const char *mode, int nvec);
int getvecerror();

int vec_service(_dovfiletype *vec, int opcode, void *arg);
int vec_keyword_service(_dovfiletype *vec, int opcode, char *name, void *arg);
