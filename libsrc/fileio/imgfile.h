// IMG files: an image, one line of nsamp samples in every element. The time of a line is its index.
//
//   type header, 8 bytes                                       element, nsamp x 4 bytes
//   offset  size  type   field                                 offset  size  type  field
//        0     4  int32  version  1                            4 k        4  real  sample
//        4     4  int32  nsamp    samples in a line, > 0
//
// Keyword of the type header: nsamp, which never changes.
#pragma once

#include "fileio/dovfileio.h"

struct _imgheader {
    std::int32_t version;
    std::int32_t nsamp;
};
static_assert(sizeof(_imgheader) == 8);

struct _imgfile {
    _dovfile commonstuff;
    _imgheader hd;
};

// As openiq(); nsamp is used for creating only and then at least 1. Elements are read and written with u_getelem() and
// u_putelem() as nsamp times float.
_dovfiletype *openimg(const char *filename, const char *mode, int nsamp);
int getimgerror();

int img_service(_dovfiletype *img, int opcode, void *arg);
int img_keyword_service(_dovfiletype *img, int opcode, char *name, void *arg);
