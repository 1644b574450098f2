// Views: files of several types read as one, by services that stand before those of the type.
#pragma once

#include "fileio/filetype.h"

#include <initializer_list>

// How a file is read as elements and a type header of another type.
struct dov_view {
    const dov_type *type; // whose elements and type header are given
    std::int32_t elemsize;
    void (*convert)(_dovfiletype *p, const char *element, void *out); // one element of the file
    void (*head)(_dovfiletype *p, void *out);
};

// Opens a file of one of these types for reading, with space for one element. Null when that fails, with the reason in
// *error. The services are still those of the file's type.
_dovfiletype *dov_open_view(const char *filename, std::initializer_list<const dov_type *> types, int *error);

// What a view's service does: what has to do with elements and the type header; the rest is the file's own service.
int dov_view_service(const dov_view &view, _dovfiletype *p, int opcode, void *arg);
