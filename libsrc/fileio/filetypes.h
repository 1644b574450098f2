// The table of file types.
#pragma once

#include "fileio/filetype.h"

extern const dov_type iq_type;
extern const dov_type pks_type;
extern const dov_type rea_type;
extern const dov_type dop_type;
extern const dov_type spl_type;
extern const dov_type gat_type;
extern const dov_type img_type;
extern const dov_type vec_type;

std::span<const dov_type *const> dov_types();          // by code
const dov_type *dov_type_of(int code);                 // null when there is none
const dov_type *dov_type_named(std::string_view name); // by name, in lower case

// The keyword header as a table, for programs that show it.
std::span<const dov_field> dov_keyword_header();

// Opens a file of any of these types for reading (mode O or R) or updating (U). Null when that fails, with the reason
// in *error.
_dovfiletype *dov_open_any(const char *filename, const char *mode, int *error);
