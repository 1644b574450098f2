// The reserved area of a file: named values that belong to no type. It is held in memory and written at close.
//
//   offset  size   meaning
//   0       1      1: the area is in use
//   1       R - 1  keyword list, see keywrdlst.h; its numbers are in the format of the file's machine
//
// An area of fewer than 3 bytes, or whose first byte is not 1, counts as absent.
//
// Operations give 1, or -1 when they fail: without a handle, without an area, for a name that is not there. They do not
// touch dovfileerror().
#pragma once

#include <cstdint>

union _dovfiletype;

int dovfile_res_new(_dovfiletype *p); // an empty area in use

// Put a value in place of one of the same name, or delete one, which may be absent. Refused for a read-only file. A
// value that does not fit gives -1, and a former one of that name is gone.
int dovfile_res_put_int(_dovfiletype *p, const char *name, std::int32_t ival);
int dovfile_res_put_dbl(_dovfiletype *p, const char *name, double dval);
int dovfile_res_put_str(_dovfiletype *p, const char *name, const char *sval);
int dovfile_res_delete(_dovfiletype *p, const char *name);

// The value of a name and of that type; 0, 0.0 or "" when they fail. A string has at most 127 bytes with its NUL.
int dovfile_res_get_int(_dovfiletype *p, const char *name, std::int32_t *ival);
int dovfile_res_get_dbl(_dovfiletype *p, const char *name, double *dval);
int dovfile_res_get_str(_dovfiletype *p, const char *name, char *sval);

// The number of items, malformed ones included; an absent area has none, which is no failure.
int dovfile_res_get_n(_dovfiletype *p, std::int32_t *n);

// Name, of at most 63 characters, and type of the item of an index from 0; "" and 0 when there is none or it is
// malformed.
int dovfile_res_get_indx(_dovfiletype *p, int indx, char *name, std::int32_t *type);

int dovfile_res_exist(_dovfiletype *p, const char *name, std::int32_t *exist); // 1 or 0 in exist

// Converts the numbers of the area with the selected conversion of mcvt.h.
int dovfile_res_cvt(_dovfiletype *p);
