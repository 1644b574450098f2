// Keyword lists: named values one after the other in a buffer of bytes, ended by a zero byte.
//
//   byte      integer, L = n + 7     real, L = n + 11       string, L = n + s + 5
//   0         L, bytes of the item   L                      L
//   1         1                      2                      3
//   2 ...     4 bytes, the value     8 bytes, the value     S = s + 1, the value with its NUL
//   then      the name with its NUL  the name with its NUL  the name with its NUL
//
// n and s are the lengths of name and value. For instance 0a 01 05 00 00 00 61 62 63 00 is the integer abc = 5.
//
// L and S are written as unsigned bytes and read as signed ones. An item of more than 127 bytes therefore ends the list
// for readers, and writers refuse to put anything behind it: name and value together are to stay within 122 characters.
//
// An item of length 1, one that ends later than one byte before the buffer's end, one of another type and one whose
// name or string has no byte are malformed: they count as items and yield nothing.
//
// Names compare without regard to case. A null buffer is an empty one, and a null name is found nowhere.
#pragma once

#include <cstdint>

constexpr int kwl_integer = 1;
constexpr int kwl_real = 2;
constexpr int kwl_string = 3;

constexpr int kwl_name_size = 64;    // bytes for a name that is read: longer ones are cut to 63 characters
constexpr int kwl_string_size = 128; // bytes for a string that is read

// The value of an item, the one of its type.
struct kwl_value {
    std::int32_t ival;
    double dval;
    char sval[kwl_string_size];
};

void kwl_init(char *buf, int nbuf); // makes the list empty

// The item of an index from 0: 1 with its name, type and value, 0 when it is malformed, -1 when there is none; name is
// empty and type is 0 then. The second is the same without the value.
int kwl_read(const char *buf, int nbuf, int indx, char *name, int *type, kwl_value *value);
int kwl_tell(const char *buf, int nbuf, int indx, char *name, int *type);

// The same for the item at an offset: the walk through a list begins at 0 and goes on recallint(buf, offset) bytes
// further.
int kwl_read_at(const char *buf, int nbuf, int offset, char *name, int *type, kwl_value *value);

int kwl_find(const char *buf, int nbuf,
             const char *name);            // index of the first item of that name, -1 when there is none
int kwl_nitems(const char *buf, int nbuf); // all items, malformed ones included

// Removes an item by closing the gap: 1, or 0 when there is none of that index. What is vacated is zero.
int kwl_delete(char *buf, int nbuf, int indx);

// The value of a name: 1, or 0 when no item of that name has that type; the output is then untouched.
int kwl_get_str(const char *buf, int nbuf, const char *name, char *sval);
int kwl_get_dbl(const char *buf, int nbuf, const char *name, double *dval);
int kwl_get_int(const char *buf, int nbuf, const char *name, std::int32_t *ival);

// Put a value at the end of the list, in place of one of the same name: 1, or 0 when it does not fit, of which the
// former value is gone as well, or when the name, or the string, is empty. Names are cut to 64 bytes, of which 63 are
// read back, strings to 180.
int kwl_put_str(char *buf, int nbuf, const char *name, const char *sval);
int kwl_put_dbl(char *buf, int nbuf, const char *name, double dval);
int kwl_put_int(char *buf, int nbuf, const char *name, std::int32_t ival);

// Converts the value of every integer with cvt4 and of every real with cvt8, in place. Both get an aligned address.
void kwl_convert(char *buf, int nbuf, void (*cvt4)(void *), void (*cvt8)(void *));

// The bytes of lists: the signed byte at an offset, a byte stored after clamping to 0 ... 255, n bytes copied.
int recallint(const char *buf, int offset);
void storeint(char *buf, int offset, int value);
void bytcpy(char *target, const char *source, int n);
