#include "fileio/pksfile.h"
#include "fileio/filetypes.h"

namespace {

static_assert(offsetof(_pksfile, hd) == sizeof(_dovfile));

constexpr dov_field header_fields[] = {
    {"text", dov_form::text, 0, 104}, {"version", dov_form::i4, 104, 4}, {"npks", dov_form::i4, 108, 4},
    {"type", dov_form::i4, 112, 4},   {"nfft", dov_form::i4, 116, 4},    {"wdw", dov_form::i4, 120, 4},
    {"lag", dov_form::i4, 124, 4},    {"weight", dov_form::i4, 128, 4},  {"spare", dov_form::i4, 132, 4},
    {"t0", dov_form::f8, 136, 8},     {"prf", dov_form::f8, 144, 8},     {"tbias", dov_form::f8, 152, 8},
    {"xlam", dov_form::f8, 160, 8},   {"hz1", dov_form::f8, 168, 8},     {"hz2", dov_form::f8, 176, 8},
};
constexpr const char *keywords[] = {"text", "t0",   "tbias", "prf", "xlam", "hz1",   "hz2",
                                    "npks", "type", "nfft",  "wdw", "lag",  "weight"};
constexpr const char *counts[] = {"npks"};
constexpr dov_field peak_fields[] = {{"hz", dov_form::f4, 0, 4}, {"amp", dov_form::f4, 4, 4}};

dov_layout layout(const void *head)
{
    return dov_items({}, 0, peak_fields, sizeof(_pkspeak), static_cast<const _pksheader *>(head)->npks);
}

dov_type_state state;

} // namespace

const dov_type pks_type = {102,
                           "pks",
                           "spectral peaks",
                           sizeof(_pksheader),
                           header_fields,
                           keywords,
                           counts,
                           dov_clock::header,
                           layout,
                           pks_service,
                           pks_keyword_service,
                           &state};

_dovfiletype *openpks(const char *filename, const char *mode, int npks)
{
    _pksheader head;
    dov_init_head(pks_type, &head);
    head.npks = npks;
    return dov_open(pks_type, filename, mode, &head);
}

int getpkserror()
{
    return state.error;
}

int pks_service(_dovfiletype *pks, int opcode, void *arg)
{
    return dov_service(pks_type, pks, opcode, arg);
}

int pks_keyword_service(_dovfiletype *pks, int opcode, char *name, void *arg)
{
    return dov_keyword_service(pks_type, pks, opcode, name, arg);
}
