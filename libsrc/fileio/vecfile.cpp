#include "fileio/vecfile.h"
#include "fileio/filetypes.h"

namespace {

static_assert(offsetof(_vecfile, hd) == sizeof(_dovfile));

constexpr dov_field header_fields[] = {{"version", dov_form::i4, 0, 4}, {"nvec", dov_form::i4, 4, 4}};
constexpr const char *keywords[] = {"nvec"};
constexpr const char *counts[] = {"nvec"};
constexpr dov_field item_fields[] = {{"x", dov_form::f8, 0, 8}};

dov_layout layout(const void *head)
{
    return dov_items({}, 0, item_fields, 8, static_cast<const _vecheader *>(head)->nvec);
}

dov_type_state state;

} // namespace

const dov_type vec_type = {111,
                           "vec",
                           "vectors",
                           sizeof(_vecheader),
                           header_fields,
                           keywords,
                           counts,
                           dov_clock::index,
                           layout,
                           vec_service,
                           vec_keyword_service,
                           &state};

_dovfiletype *openvec(const char *filename, const char *mode, int nvec)
{
    _vecheader head;
    dov_init_head(vec_type, &head);
    head.nvec = nvec;
    return dov_open(vec_type, filename, mode, &head);
}

int getvecerror()
{
    return state.error;
}

int vec_service(_dovfiletype *vec, int opcode, void *arg)
{
    return dov_service(vec_type, vec, opcode, arg);
}

int vec_keyword_service(_dovfiletype *vec, int opcode, char *name, void *arg)
{
    return dov_keyword_service(vec_type, vec, opcode, name, arg);
}
