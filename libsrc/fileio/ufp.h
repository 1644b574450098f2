// The access layer: every open measurement file is driven through the two services of its type, by these calls.
//
// Each call passes an opcode and an argument to the service and returns its result: 1, or a code of dovfileio.h, and
// for keywords -1. Calls that the layer refuses itself, without a file, a service or an argument, return what u_error()
// then reports.
#pragma once

#include "fileio/dovfileio.h"
#include "fileio/dovkwdef.h"

// Opcodes of all data services, and what arg points at. Times are in seconds, integers of 32 bits.
constexpr int dov_u_first_time = 1; // real out
constexpr int dov_u_last_time = 2;  // real out
constexpr int dov_u_nelem = 3;      // integer out
constexpr int dov_u_can_write = 4;  // integer out, 1 or 0
constexpr int dov_u_next_time = 5;  // real out
constexpr int dov_u_next_elem = 6;  // integer out
constexpr int dov_u_time_move = 7;  // real in
constexpr int dov_u_elem_move = 8;  // integer in
constexpr int dov_u_get_elem = 9;   // element out
constexpr int dov_u_get_nelem = 10; // elements out, as many as opcode 19 said
constexpr int dov_u_put_elem = 11;  // element in
constexpr int dov_u_get_head = 12;  // type header out
constexpr int dov_u_put_head = 13;  // type header in
constexpr int dov_u_elem_size = 14; // integer out
constexpr int dov_u_head_size = 15; // integer out
constexpr int dov_u_nitems = 16;    // integer out
constexpr int dov_u_handle = 17;    // handle out
constexpr int dov_u_close = 18;     // not used
constexpr int dov_u_set_nelem = 19; // integer in

// The services of an open file.
int u_reg(_dovfiletype *p, _dovcall service);
int u_kwreg(_dovfiletype *p, _dovkwcall service);

int u_firsttime(_dovfiletype *p, double *time);
int u_lasttime(_dovfiletype *p, double *time);
int u_nelem(_dovfiletype *p, std::int32_t *n);
int u_canwrite(_dovfiletype *p, std::int32_t *can);
int u_nexttime(_dovfiletype *p, double *time);
int u_nextelem(_dovfiletype *p, std::int32_t *elem);

int u_timemove(_dovfiletype *p, double time); // to the first element at or after that time
int u_elemmove(_dovfiletype *p, int elem);    // clamped to 0 ... the number of elements

// Elements have u_elemsize() bytes, in this machine's format; the next one moves on.
int u_getelem(_dovfiletype *p, void *element);
int u_getnelem(_dovfiletype *p, int n, void *elements);
int u_putelem(_dovfiletype *p, const void *element);

// The type header, of u_headsize() bytes.
int u_gethead(_dovfiletype *p, void *head);
int u_puthead(_dovfiletype *p, const void *head);

int u_elemsize(_dovfiletype *p, std::int32_t *size);
int u_headsize(_dovfiletype *p, std::int32_t *size);
int u_nitems(_dovfiletype *p, std::int32_t *n);  // how many items of the same kind an element has
int u_type(_dovfiletype *p, std::int32_t *type); // the type code
int u_filename(_dovfiletype *p, char *name);     // at most 253 characters
int u_close(_dovfiletype *p);                    // the handle is gone afterwards

// Keywords: those of the type header first, then those of the reserved area. Names are cut to 60 characters and
// trailing blanks are stripped. A string that is read has at most dov_kw_string_size bytes.
int u_kwput_d(_dovfiletype *p, const char *name, double value);
int u_kwput_i(_dovfiletype *p, const char *name, std::int32_t value);
int u_kwput_s(_dovfiletype *p, const char *name, const char *value);
int u_kwdelete(_dovfiletype *p, const char *name);
int u_kwget_d(_dovfiletype *p, const char *name, double *value);
int u_kwget_i(_dovfiletype *p, const char *name, std::int32_t *value);
int u_kwget_s(_dovfiletype *p, const char *name, char *value);
int u_kwget_n(_dovfiletype *p, std::int32_t *n);
int u_kwexist(_dovfiletype *p, const char *name, std::int32_t *exist);
int u_kwindx(_dovfiletype *p, int indx, char *name, std::int32_t *type); // name has 64 bytes; type 1, 2 or 3

// Of the layer's last call: 1 when the service was called, whatever it returned, -10 for a null handle, -13 for a null
// argument or a file whose type has registered no service. In words: dovfileerrortext().
int u_error();
