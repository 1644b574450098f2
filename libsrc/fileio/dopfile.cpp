#include "fileio/dopfile.h"
#include "fileio/filetypes.h"

namespace {

static_assert(offsetof(_dopfile, hd) == sizeof(_dovfile));

constexpr dov_field header_fields[] = {
    {"text", dov_form::text, 0, 104}, {"version", dov_form::i4, 104, 4}, {"namp", dov_form::i4, 108, 4},
    {"t0", dov_form::f8, 112, 8},     {"tbias", dov_form::f8, 120, 8},   {"prf", dov_form::f8, 128, 8},
    {"xlam", dov_form::f8, 136, 8},   {"scale", dov_form::f8, 144, 8},
};
constexpr const char *keywords[] = {"text", "t0", "tbias", "prf", "xlam", "scale", "namp"};
constexpr const char *counts[] = {"namp"};
constexpr dov_field sample_fields[] = {{"i", dov_form::i2, 0, 2}, {"q", dov_form::i2, 2, 2}};

dov_layout layout(const void *head)
{
    return dov_items({}, 0, sample_fields, sizeof(_dopsample), static_cast<const _dopheader *>(head)->namp);
}

dov_type_state state;

} // namespace

const dov_type dop_type = {105,
                           "dop",
                           "Doppler samples",
                           sizeof(_dopheader),
                           header_fields,
                           keywords,
                           counts,
                           dov_clock::header,
                           layout,
                           dop_service,
                           dop_keyword_service,
                           &state};

_dovfiletype *opendop(const char *filename, const char *mode, int namp)
{
    _dopheader head;
    dov_init_head(dop_type, &head);
    head.namp = namp;
    return dov_open(dop_type, filename, mode, &head);
}

int getdoperror()
{
    return state.error;
}

int dop_service(_dovfiletype *dop, int opcode, void *arg)
{
    return dov_service(dop_type, dop, opcode, arg);
}

int dop_keyword_service(_dovfiletype *dop, int opcode, char *name, void *arg)
{
    return dov_keyword_service(dop_type, dop, opcode, name, arg);
}
