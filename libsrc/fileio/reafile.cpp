#include "fileio/reafile.h"
#include "fileio/filetypes.h"

namespace {

static_assert(offsetof(_reafile, hd) == sizeof(_dovfile));

constexpr dov_field header_fields[] = {
    {"version", dov_form::i4, 0, 4}, {"text", dov_form::text, 4, 104}, {"spare", dov_form::i4, 108, 4},
    {"t0", dov_form::f8, 112, 8},    {"prf", dov_form::f8, 120, 8},    {"tbias", dov_form::f8, 128, 8},
    {"xlam", dov_form::f8, 136, 8},
};
constexpr const char *keywords[] = {"text", "t0", "tbias", "prf", "xlam"};
constexpr dov_field element_fields[] = {
    {"time", dov_form::f8, 0, 8},     {"range", dov_form::f8, 8, 8}, {"elevation", dov_form::f4, 16, 4},
    {"azimuth", dov_form::f4, 20, 4}, {"flag", dov_form::i4, 24, 4}, {"spare", dov_form::i4, 28, 4},
};

dov_layout layout(const void * /*head*/)
{
    return {.fields = element_fields, .group = {}, .size = sizeof(_reaelement)};
}

dov_type_state state;

} // namespace

const dov_type rea_type = {103,
                           "rea",
                           "range, elevation and azimuth",
                           sizeof(_reaheader),
                           header_fields,
                           keywords,
                           {},
                           dov_clock::element,
                           layout,
                           rea_service,
                           rea_keyword_service,
                           &state};

_dovfiletype *openrea(const char *filename, const char *mode)
{
    _reaheader head;
    dov_init_head(rea_type, &head);
    return dov_open(rea_type, filename, mode, &head);
}

int getreaerror()
{
    return state.error;
}

int rea_service(_dovfiletype *rea, int opcode, void *arg)
{
    return dov_service(rea_type, rea, opcode, arg);
}

int rea_keyword_service(_dovfiletype *rea, int opcode, char *name, void *arg)
{
    return dov_keyword_service(rea_type, rea, opcode, name, arg);
}
