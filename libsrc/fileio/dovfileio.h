// The container of all measurement files: a keyword header, a reserved area with named values, a type header whose
// layout belongs to the file type, and elements of one size.
//
//   offset       size   type    field
//   0            1      uint8   machine      code of the machine whose format the file has, see mcvt.h
//   1            1      uint8   version      1
//   2            1      uint8   filetype     101 IQ, 102 PKS, 103 REA, 105 DOP, 106 SPL, 109 GAT, 110 IMG, 111 VEC
//   3            1      uint8   space        0, not read
//   4            4      int32   reservesize  R, bytes of the reserved area, 0 for none
//   8            4      int32   headsize     H, bytes of the type header, 0 for none
//   12           4      int32   elementsize  E, bytes of an element
//   16           4      int32   nelements    N
//   20           R              reserved area, see dovreserve.h
//   20 + R       H              type header
//   20 + R + H   N x E          elements; what follows them is ignored
//
// For instance 03 01 65 00 00000400 00000090 00000008 00000002 begins an IQ file written by a Sun with two samples.
//
// New files have this machine's format; a file of another machine is converted while it is read, and while it is
// written when it was opened for update. Elements are addressed by their index; reads and writes share the current one.
//
// Operations give 1 or one of the codes below, and the last code is kept. A null handle gives -10. Failures leave the
// handle usable, and it must be closed.
//
// Elements go through a buffer: what was written is in the file after dovfileclose(). A write may therefore be found to
// have failed by a later operation; from then on the file has the elements that reached it. A process that ends
// without closing leaves a file with what it held when it was opened, or with no element when it was new.
#pragma once

#include <cstddef>
#include <cstdint>

constexpr int dov_ok = 1;
constexpr int dov_end = -2;             // beyond the last element, or nothing could be read
constexpr int dov_memory = -3;          // out of memory
constexpr int dov_cannot_open = -4;     // the file could not be opened or created
constexpr int dov_version = -5;         // version is not 1
constexpr int dov_too_short = -6;       // header, reserved area, type header or elements are not all there
constexpr int dov_write_failed = -7;    // write failed or was short
constexpr int dov_read_short = -8;      // short read
constexpr int dov_seek_failed = -9;     // seek failed, or element index out of range
constexpr int dov_no_handle = -10;      // null handle
constexpr int dov_head_size = -11;      // the type header has another size than its type's
constexpr int dov_wrong_type = -12;     // negative element count; another type, or another element size than its type's
constexpr int dov_bad_argument = -13;   // negative count, sizes below the file's, bad mode or opcode
constexpr int dov_cannot_convert = -14; // unsupported machine, or a converter is missing
constexpr int dov_read_only = -15;      // write to a file opened read-only
constexpr int dov_not_positive = -16;   // prf or xlam is not positive

// What a code means, in words; "unknown error" for any other.
const char *dovfileerrortext(int code);

union _dovfiletype; // an open file; dovfiletype.h
struct dov_stream;

// The keyword header.
struct _keywords {
    std::uint8_t machine;
    std::uint8_t version;
    std::uint8_t filetype;
    std::uint8_t space;
    std::int32_t reservesize;
    std::int32_t headsize;
    std::int32_t elementsize;
    std::int32_t nelements;
};
static_assert(offsetof(_keywords, reservesize) == 4);
static_assert(offsetof(_keywords, headsize) == 8);
static_assert(offsetof(_keywords, elementsize) == 12);
static_assert(offsetof(_keywords, nelements) == 16);
static_assert(sizeof(_keywords) == 20);

// Directions of a conversion.
constexpr int dov_to_file = 0;
constexpr int dov_from_file = 1;

using _dovcvt = void (*)(_dovfiletype *p, void *buffer, int direction);
using _dovblockcvt = void (*)(_dovfiletype *p, void *copies, const void *elements, int n, int direction);
using _dovcall = int (*)(_dovfiletype *p, int opcode, void *arg);
using _dovkwcall = int (*)(_dovfiletype *p, int opcode, char *name, void *arg);

// What all open files have in common. Only these operations change it, but for the services and what converts.
struct _dovfile {
    int handle;            // descriptor
    _keywords kw;          // integers in this machine's order
    std::int64_t byte0;    // file offset of element 0
    std::int32_t nextelem; // the element that the next read or write addresses
    std::int32_t nelements;
    std::int32_t curpos; // where the file stands, -1 when that is not known
    int hdsize;          // bytes of the type header and of an element in memory
    int elemsize;
    int dirty;          // 1 when anything was written
    int convert;        // 1 when type header and elements go through the converters
    int machine;        // of the file
    int lastoper;       // 0 none or seek, 1 write, 2 read
    int rdonly;         // 1 when opened read-only
    _dovcvt hdcvt;      // type header
    _dovcvt elemcvt;    // one element
    _dovcall ucall;     // data service of the file type
    _dovkwcall ukwcall; // keyword service
    int rsize;          // bytes at rspace
    int rchng;          // 1 when the reserved area is to be written
    char *rspace;       // reserved area, owned
    char fname[256];    // at most 253 characters
    // Besides, of this library's own:
    _dovblockcvt
        blockcvt; // converted copies of n elements of one size in file and memory; null when there is only elemcvt
    dov_stream *stream; // the file's bytes, owned
    void *owned;        // a block of the file type's, freed with the record
};

// Opens an existing file, for reading or for reading and writing; the third is what both do. Null when that fails, with
// the reason in dovfileerror(). Type code, H and E as they are in the file. The caller closes the handle.
// Negative R or H give -9, as the seek to element 0 would; an E below 1 gives -6.
_dovfiletype *dovfileopen(const char *filename, int *type, int *headsize, int *elemsize);
_dovfiletype *dovfileupdate(const char *filename, int *type, int *headsize, int *elemsize);
_dovfiletype *dovfileopen_x(const char *filename, int *type, int *headsize, int *elemsize, int upd);

// Creates or empties a file, which can then be read and written, with a reserved area of 1024 bytes and a zero type
// header. A negative H or an E below 1 gives -13. The second makes it in another machine's format, with R bytes of
// reserved area, if any: the file type's converters must be installed before anything is written.
constexpr int ressize = 1024;
_dovfiletype *dovfilecreate(const char *filename, int type, int headsize, int elemsize);
_dovfiletype *dovfilecreate_x(const char *filename, int type, int headsize, int elemsize, int machine, int reservesize);

// Installs converters, and the sizes of type header and element in memory, which are at least those of the file, else
// -13. Where a size differs from the file's everything is converted, also in a file of this machine.
int dovfileconvert(_dovfiletype *p, _dovcvt hdcvt, _dovcvt elemcvt, int hdsize, int elemsize);

// The type header; head has hdsize bytes. It is on disk when the second returns.
int dovfilegethead(_dovfiletype *p, void *head);
int dovfileputhead(_dovfiletype *p, const void *head);

// Addresses element nextelem, which may be the one behind the last, where writing appends.
int dovfileseek(_dovfiletype *p, int nextelem);

// n elements at the current one, which moves behind them; buf has n * elemsize bytes. Reading beyond the last gives -2
// and reads nothing. A file has at most INT32_MAX elements; -9 for more.
int dovfilereadblock(_dovfiletype *p, void *buf, int n);
int dovfilewriteblock(_dovfiletype *p, const void *buf, int n);

// The element of an index.
int dovfilereadelement(_dovfiletype *p, void *element, int elemnum);
int dovfilewriteelement(_dovfiletype *p, const void *element, int elemnum);

// The real that element elemnum begins with, in files whose elements do: their time. The current element stays; -2 when
// there is no such element.
int dovfilereadtime(_dovfiletype *p, double *time, int elemnum);

int dovfilemaxelement(_dovfiletype *p, std::int32_t *maxelement); // index of the last, -1 when there is none
int dovfilenextelement(_dovfiletype *p, std::int32_t *nextelement);
int dovfilemode(_dovfiletype *p, int *mode); // 1 read-only, 0 update

// Writes what is to be written and frees the handle, whatever it returns.
int dovfileclose(_dovfiletype *p);

int dovfileerror(); // the last code; 1 at first

// The type code of a file, -1 when it cannot be opened. Its machine: 1, or 0 when it cannot be opened.
int dovfiletype(const char *filename);
int dovfilemachine(const char *filename, int *machine);
