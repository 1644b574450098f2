// SPL files: a spline, one element for each breakpoint, in increasing time.
//
//   type header, 192 bytes                                      element, ncoe x 128 bytes
//   offset  size  type   field                                  offset      size   type   field
//        0   104  text   text     free                               0         8   real   time   of the breakpoint
//      104     4  int32  version  1, and refused if not              8         4   int32  ncont  its continuity
//      108     4  int32  ncoe     coefficients of a piece, > 0      12         4   int32  flg2   its flag
//      112    24  text   type     kind of quantity                16 + 8 i     8   real   coefficient i of the piece
//      136    24  text   xunits   units of the abscissa                                   from here to the next
//      160    24  text   yunits   and of the ordinate             16 + 8 ncoe         not used, 0 when written here
//      184     4  int32  ider     derivative that this is
//      188     4  int32  space    0
//
// The last element has the last piece about the last breakpoint. Texts are one blank in a new file, text is all blanks.
// Keywords of the type header, in this order: text, type, xunits, yunits, ncoe, ider. ncoe never changes.
//
// For instance 00000000 00000440 02000000 00000000 00000000 0000f03f ... is an element of a PC's file: time 2.5, ncont
// 2, flg2 0, coefficient 0 is 1.
#pragma once

#include "cu/cu.h"
#include "fileio/dovfileio.h"

constexpr int spl_bytes_per_coe = 128; // of an element
constexpr int spl_text_size = 104;
constexpr int spl_units_size = 24;

struct _splheader {
    char text[spl_text_size];
    std::int32_t version;
    std::int32_t ncoe;
    char type[spl_units_size];
    char xunits[spl_units_size];
    char yunits[spl_units_size];
    std::int32_t ider;
    std::int32_t space;
};
static_assert(offsetof(_splheader, version) == 104);
static_assert(offsetof(_splheader, ncoe) == 108);
static_assert(offsetof(_splheader, type) == 112);
static_assert(offsetof(_splheader, xunits) == 136);
static_assert(offsetof(_splheader, yunits) == 160);
static_assert(offsetof(_splheader, ider) == 184);
static_assert(sizeof(_splheader) == 192);

struct _splfile {
    _dovfile commonstuff;
    _splheader hd;
    int elemsize;  // bytes of an element
    char *elembuf; // one element, made when the first is read or written; commonstuff.owned
};

// As openiq(); ncoe is used for creating only. -5 when the version is not 1.
_dovfiletype *openspl(const char *filename, const char *mode, int ncoe);

// The next element; coe has room for ncoe numbers. What is read is untouched when that fails.
int getspl(_dovfiletype *p, double *time, int *flag1, int *flag2, double *coe);

// Writes an element at the current place: over the one there, or at the end.
int putspl(_dovfiletype *p, double time, int flag1, int flag2, const double *coe);

// The values of the type header; the texts have room for spl_units_size bytes and are cut to it. Null places are left
// out, and ncoe stays as the file was made.
int getsplkeys(_dovfiletype *p, int *ncoe, char *type, char *xunits, char *yunits, int *ider);
int putsplkeys(_dovfiletype *p, const int *ncoe, const char *type, const char *xunits, const char *yunits,
               const int *ider);

int getsplerror(); // the code of the last of these operations, 1 at first

// The services: ufp.h and dovkwdef.h say what the opcodes do.
int spl_service(_dovfiletype *p, int opcode, void *arg);
int spl_keyword_service(_dovfiletype *p, int opcode, char *name, void *arg);

// Splines in files. The spline is the caller's to free; espl_error() has the code when there is none.

// Writes a spline, wherever it is, to a new file: the keyword texts, of which null leaves the blanks, and the
// derivative that it is. 1, or the code of what failed. The file is closed in any case.
int espl_write(const _espl *e, const char *fname, const char *head, const char *type, const char *xunits,
               const char *yunits, int ider);

// Reads the spline of a file into memory.
_espl *espl_read(const char *fname);

// The spline of an open file, in memory (mode 0), or on file (mode 1), where each piece is read when it is needed; then
// the file is to stay open, and its current element moves. Null with -16 for a file with fewer than two breakpoints,
// -12 for one that is no spline file, -13 for another mode, or what reading reports.
_espl *espl_init_with_file(_dovfiletype *fp, int mode);
