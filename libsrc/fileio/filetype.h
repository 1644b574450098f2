// What a file type is made of. A type is one module: the records of its type header and its element, a dov_type that
// describes both with tables, and its own operations, most of which are the common ones given that description. The
// table of all types is in filetypes.cpp.
//
// The tables are what everybody goes by who handles bytes of these files: the converters, the keyword services, and
// programs that show, check or make files.
#pragma once

#include "fileio/dovfileio.h"

#include <cstdint>
#include <span>
#include <string_view>

// Forms of values; what a form is in a file is the machine's.
enum class dov_form : std::uint8_t {
    raw, // bytes that are the same everywhere, shown as a little-endian integer
    i2,  // integers
    i4,
    f4, // reals
    f8,
    text, // bytes that end in a NUL, padded with blanks, the same everywhere
};

struct dov_field {
    const char *name;
    dov_form form;
    std::int32_t offset; // in its record
    std::int32_t size;   // bytes
};

// An element: some fields, then a group of fields, for each of its items.
struct dov_layout {
    std::span<const dov_field> fields;
    std::span<const dov_field> group; // offsets are from the item's begin
    std::int32_t nitems = 0;
    std::int32_t group_at = 0;   // offset of item 0
    std::int32_t group_size = 0; // bytes of an item
    std::int64_t size = 0;       // of the whole element; 0 when the type header's counts are wrong
};

// The layout of an element with nitems items of a group; without a size when there are fewer than one.
constexpr dov_layout dov_items(std::span<const dov_field> fields, std::int32_t group_at,
                               std::span<const dov_field> group, std::int32_t group_size, std::int32_t nitems)
{
    const std::int64_t size = nitems < 1 ? 0 : group_at + std::int64_t{nitems} * group_size;
    return {fields, group, nitems, group_at, group_size, size};
}

// Where the times of elements come from.
enum class dov_clock : std::uint8_t {
    header,  // t0 + i / prf
    element, // the element's first field, a real; times increase
    index,   // an element's time is its index
};

// What a type's module keeps between calls.
struct dov_type_state {
    int error = dov_ok;    // the last code
    int nsave = 0;         // elements of a block read
    std::int32_t indx = 0; // of the keyword to be named
};

struct dov_type {
    std::uint8_t code;
    const char *name;  // also the suffix of its files
    const char *title; // what it holds
    std::int32_t headsize;
    std::span<const dov_field> header;
    std::span<const char *const> keywords; // fields of the type header that are keywords, in the order of their index
    std::span<const char *const> counts;   // fields that fix the element: they never change
    dov_clock clock;
    dov_layout (*layout)(const void *head);
    _dovcall service;
    _dovkwcall keyword_service;
    dov_type_state *state;
    bool is_versioned = false; // only version 1 is read
};

// The type header of an open file, which every record has right behind the common part.
void *dov_head(_dovfiletype *p);

const dov_field *dov_find_field(std::span<const dov_field> fields, std::string_view name); // null when there is none
const dov_field *dov_find_keyword(const dov_type &type, const char *name); // in any case; null when there is none
std::int32_t dov_integer_at(const void *record, const dov_field &field);
double dov_real_at(const void *record, const dov_field &field);

// The common operations of a type's module.

// Mode O or R opens for reading, U for reading and writing; N and C create with a copy of the type header given. Only
// the first character counts, in any case. Null when that fails; the reason is in the type's state: -13 another mode,
// or wrong counts in the given type header; -12 another type or element size; -11 another size of the type header; -16
// prf or xlam not positive; or what the container reports.
_dovfiletype *dov_open(const dov_type &type, const char *filename, const char *mode, const void *head);

// Creates a file in a machine's format, with R bytes of reserved area; otherwise as mode N.
_dovfiletype *dov_create(const dov_type &type, const char *filename, const void *head, int machine, int reservesize);

// The type header of a new file: version 1, prf, xlam and scale 1, "text" blank, other texts one blank, everything else
// 0.
void dov_init_head(const dov_type &type, void *head);

// Puts 1 in place of a prf or xlam that is not positive, and version 1.
void dov_mend_head(const dov_type &type, void *head);

// The services; ufp.h and dovkwdef.h say what the opcodes do. Keywords of the type header come before those of the
// reserved area. A put that has not the form of the header's field goes to the reserved area, like other names; an
// integer for a field that is none and a delete are refused.
int dov_service(const dov_type &type, _dovfiletype *p, int opcode, void *arg);
int dov_keyword_service(const dov_type &type, _dovfiletype *p, int opcode, char *name, void *arg);

// Convert the fields of a record, or of n elements, with the selected conversion of mcvt.h; the last gives converted
// copies, which must not overlap the elements.
void dov_convert_fields(std::span<const dov_field> fields, void *record);
void dov_convert_elements(const dov_layout &layout, void *elements, int n);
void dov_convert_copies(const dov_layout &layout, void *copies, const void *elements, int n);
