#include "fileio/gatfile.h"
#include "fileio/filetypes.h"

namespace {

static_assert(offsetof(_gatfile, hd) == sizeof(_dovfile));

constexpr dov_field header_fields[] = {
    {"version", dov_form::i4, 0, 4}, {"ngat", dov_form::i4, 4, 4}, {"dattype", dov_form::i4, 8, 4},
    {"incrng", dov_form::f4, 12, 4}, {"t0", dov_form::f8, 16, 8},  {"prf", dov_form::f8, 24, 8},
};
constexpr const char *keywords[] = {"t0", "prf", "incrng", "ngat", "dattype"};
constexpr const char *counts[] = {"ngat", "dattype"};
constexpr dov_field look_fields[] = {
    {"time", dov_form::f8, 0, 8},
    {"range", dov_form::f8, 8, 8},
    {"elevation", dov_form::f4, 16, 4},
    {"azimuth", dov_form::f4, 20, 4},
};
constexpr dov_field amplitude_fields[] = {{"amp", dov_form::f4, 0, 4}};
constexpr dov_field iq_fields[] = {{"i", dov_form::f4, 0, 4}, {"q", dov_form::f4, 4, 4}};

dov_layout layout(const void *head)
{
    const auto &hd = *static_cast<const _gatheader *>(head);
    switch (hd.dattype) {
    case gat_amplitudes:
        return dov_items(look_fields, sizeof(_gatlook), amplitude_fields, 4, hd.ngat);
    case gat_iq:
        return dov_items(look_fields, sizeof(_gatlook), iq_fields, 8, hd.ngat);
    default:
        return {};
    }
}

dov_type_state state;

} // namespace

const dov_type gat_type = {109,
                           "gat",
                           "range gates",
                           sizeof(_gatheader),
                           header_fields,
                           keywords,
                           counts,
                           dov_clock::element,
                           layout,
                           gat_service,
                           gat_keyword_service,
                           &state};

_dovfiletype *opengat(const char *filename, const char *mode, int ngat, int dattype)
{
    _gatheader head;
    dov_init_head(gat_type, &head);
    head.ngat = ngat;
    head.dattype = dattype;
    return dov_open(gat_type, filename, mode, &head);
}

int getgaterror()
{
    return state.error;
}

int gat_service(_dovfiletype *gat, int opcode, void *arg)
{
    return dov_service(gat_type, gat, opcode, arg);
}

int gat_keyword_service(_dovfiletype *gat, int opcode, char *name, void *arg)
{
    return dov_keyword_service(gat_type, gat, opcode, name, arg);
}
