#include "fileio/geniqfile.h"
#include "fileio/dovfiletype.h"
#include "fileio/fieldbytes.h"
#include "fileio/filetypes.h"
#include "fileio/fileview.h"
#include "fileio/ufp.h"

#include <algorithm>
#include <cstring>

namespace {

static_assert(offsetof(_geniqfile, hd) == sizeof(_dovfile));

constexpr std::int32_t offset_in_head(std::size_t offset)
{
    return static_cast<std::int32_t>(offset - sizeof(_dovfile));
}

constexpr dov_field view_fields[] = {
    {"scale", dov_form::f8, offset_in_head(offsetof(_geniqfile, scale)), 8},
    {"xlam", dov_form::f8, offset_in_head(offsetof(_geniqfile, xlam)), 8},
    {"tbias", dov_form::f8, offset_in_head(offsetof(_geniqfile, tbias)), 8},
    {"iprime", dov_form::i4, offset_in_head(offsetof(_geniqfile, iprime)), 4},
};
constexpr const char *keywords[] = {"scale", "xlam", "tbias", "iprime"};

dov_type_state state;

// What the keyword service goes by: the view's own fields, in memory only, before the reserved area.
const dov_type view_type = {.code = 0,
                            .name = "geniq",
                            .title = "",
                            .headsize = 0,
                            .header = view_fields,
                            .keywords = keywords,
                            .counts = {},
                            .clock = dov_clock::header,
                            .layout = nullptr,
                            .service = geniq_service,
                            .keyword_service = geniq_keyword_service,
                            .state = &state};

template <typename T>
T item_at(const char *items, std::int32_t index)
{
    return dov_load<T>(items + static_cast<std::size_t>(index) * sizeof(T));
}

_iqelement unscaled(_dovfiletype *p, const char *element)
{
    const _geniqfile &view = p->geniq;
    const char *gates = element + sizeof(_gatlook);
    if (view.commonstuff.kw.filetype == iq_type.code)
        return item_at<_iqelement>(element, 0);
    if (view.commonstuff.kw.filetype == dop_type.code) {
        const auto sample = item_at<_dopsample>(element, view.iprime);
        return {static_cast<float>(sample.i), static_cast<float>(sample.q)};
    }
    if (view.hd.gat.dattype == gat_iq)
        return item_at<_iqelement>(gates, view.iprime);
    return {item_at<float>(gates, view.iprime), 0.0F};
}

void convert(_dovfiletype *p, const char *element, void *out)
{
    _iqelement sample = unscaled(p, element);
    sample.i = static_cast<float>(static_cast<double>(sample.i) * p->geniq.scale);
    sample.q = static_cast<float>(static_cast<double>(sample.q) * p->geniq.scale);
    std::memcpy(out, &sample, sizeof sample);
}

void fill_head(_dovfiletype *p, void *out)
{
    const dov_type &own = *dov_type_of(p->commonstuff.kw.filetype);
    auto &hd = *static_cast<_iqheader *>(out);
    hd.t0 = dov_real_at(dov_head(p), *dov_find_field(own.header, "t0"));
    hd.prf = dov_real_at(dov_head(p), *dov_find_field(own.header, "prf"));
    hd.tbias = p->geniq.tbias;
    hd.xlam = p->geniq.xlam;
    if (const dov_field *text = dov_find_field(own.header, "text"))
        std::memcpy(hd.text, static_cast<const char *>(dov_head(p)) + text->offset, sizeof hd.text);
}

const dov_view view = {&iq_type, sizeof(_iqelement), convert, fill_head};

// The value that the file has, or that a file without it has.
double own_value(_dovfiletype *p, const char *name, double otherwise)
{
    const dov_field *field = dov_find_field(dov_type_of(p->commonstuff.kw.filetype)->header, name);
    return field != nullptr ? dov_real_at(dov_head(p), *field) : otherwise;
}

std::int32_t items_of(_dovfiletype *p)
{
    return std::max(dov_type_of(p->commonstuff.kw.filetype)->layout(dov_head(p)).nitems, 1);
}

// The one keyword service that writes without a file to write to.
int put(_dovfiletype *p, const dov_field &field, int opcode, const void *arg)
{
    if ((field.form == dov_form::i4) != (opcode == dov_kw_put_integer))
        return -1;
    std::int32_t index = 0;
    if (field.form == dov_form::i4)
        std::memcpy(&index, arg, sizeof index);
    if (index < 0 || index >= items_of(p))
        return -1;
    std::memcpy(static_cast<char *>(dov_head(p)) + field.offset, arg, static_cast<std::size_t>(field.size));
    return 1;
}

} // namespace

_dovfiletype *opengeniq(const char *filename)
{
    _dovfiletype *p = dov_open_view(filename, {&iq_type, &dop_type, &gat_type}, &state.error);
    if (p == nullptr)
        return nullptr;
    p->geniq.scale = own_value(p, "scale", 1);
    p->geniq.xlam = own_value(p, "xlam", 1);
    p->geniq.tbias = own_value(p, "tbias", 0);
    p->geniq.iprime = 0;
    u_reg(p, geniq_service);
    u_kwreg(p, geniq_keyword_service);
    return p;
}

int getgeniqerror()
{
    return state.error;
}

int geniq_service(_dovfiletype *geniq, int opcode, void *arg)
{
    return dov_view_service(view, geniq, opcode, arg);
}

int geniq_keyword_service(_dovfiletype *geniq, int opcode, char *name, void *arg)
{
    const bool puts = opcode == dov_kw_put_real || opcode == dov_kw_put_integer;
    const dov_field *field = puts && geniq != nullptr ? dov_find_keyword(view_type, name) : nullptr;
    return field != nullptr ? put(geniq, *field, opcode, arg)
                            : dov_keyword_service(view_type, geniq, opcode, name, arg);
}
