// The services of a file type.

#include "fileio/dovfiletype.h"
#include "fileio/dovreserve.h"
#include "fileio/fieldbytes.h"
#include "fileio/ufp.h"

#include "dovsys/dovsys.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace {

// ---- times -------------------------------------------------------------------------------------------------------

struct timing {
    double t0 = 0;
    double prf = 1;
};

timing timing_of(const dov_type &type, _dovfiletype *p)
{
    if (type.clock == dov_clock::index)
        return {};
    const void *head = dov_head(p);
    return {dov_real_at(head, *dov_find_field(type.header, "t0")),
            dov_real_at(head, *dov_find_field(type.header, "prf"))};
}

double time_at(const timing &clock, std::int32_t element)
{
    return element / clock.prf + clock.t0;
}

int time_of(const dov_type &type, _dovfiletype *p, std::int32_t element, void *time)
{
    if (type.clock == dov_clock::element) {
        double value = 0;
        const int code = dovfilereadtime(p, &value, element);
        return code == dov_ok ? dov_give(value, time) : code;
    }
    return dov_give(time_at(timing_of(type, p), element), time);
}

// Halving for the first element that is not before t.
int find_time(_dovfiletype *p, double t, std::int32_t &element)
{
    std::int32_t from = 0;
    std::int32_t to = p->commonstuff.nelements;
    while (from < to) {
        const std::int32_t middle = from + (to - from) / 2;
        double time = 0;
        const int code = dovfilereadtime(p, &time, middle);
        if (code != dov_ok)
            return code;
        if (time >= t)
            to = middle;
        else
            from = middle + 1;
    }
    element = from;
    return dov_ok;
}

// A time that is an element's own moves there, although the product may come out just above its index.
std::int32_t element_at(const timing &clock, double t, std::int32_t n)
{
    if (t <= clock.t0)
        return 0;
    const double index = std::ceil((t - clock.t0) * clock.prf) + 0.5;
    if (!(t <= time_at(clock, n - 1)) || !(index < n + 1.0))
        return n;
    const auto element = static_cast<std::int32_t>(std::max(index, 0.0));
    return element > 0 && time_at(clock, element - 1) == t ? element - 1 : element;
}

int move_to_time(const dov_type &type, _dovfiletype *p, double t)
{
    const std::int32_t n = p->commonstuff.nelements;
    std::int32_t element = 0;
    if (type.clock != dov_clock::element)
        element = element_at(timing_of(type, p), t, n);
    else if (const int code = find_time(p, t, element); code != dov_ok)
        return code;
    return dovfileseek(p, std::clamp(element, 0, n));
}

int put_head(const dov_type &type, _dovfiletype *p)
{
    dov_mend_head(type, dov_head(p));
    return dovfileputhead(p, dov_head(p));
}

// The counts stay, since the elements have the size that they say.
int replace_head(const dov_type &type, _dovfiletype *p, const void *head)
{
    if (p->commonstuff.rdonly)
        return dov_read_only;
    const jmalloc_ptr<char> former(static_cast<char *>(jjmalloc(type.headsize)));
    if (former == nullptr)
        return dov_memory;
    const auto size = static_cast<std::size_t>(type.headsize);
    std::memcpy(former.get(), dov_head(p), size);
    std::memcpy(dov_head(p), head, size);
    for (const char *name : type.counts) {
        const dov_field &field = *dov_find_field(type.header, name);
        std::memcpy(dov_field_bytes(dov_head(p), field), dov_field_bytes(former.get(), field),
                    static_cast<std::size_t>(field.size));
    }
    return put_head(type, p);
}

// ---- keywords ----------------------------------------------------------------------------------------------------

std::int32_t keyword_type(const dov_field &field)
{
    return field.form == dov_form::text ? 3 : field.form == dov_form::i4 ? 1 : 2;
}

bool is_count(const dov_type &type, const dov_field &field)
{
    return std::any_of(type.counts.begin(), type.counts.end(),
                       [&](const char *name) { return c_iseq(name, field.name) != 0; });
}

// The bytes that a put of the field's own form has for it, in a file that may be written.
int put_keyword(const dov_type &type, _dovfiletype *p, const dov_field &field, const void *arg)
{
    if (p->commonstuff.rdonly)
        return dov_read_only;
    char *place = dov_field_bytes(dov_head(p), field);
    const auto size = static_cast<std::size_t>(field.size);
    if (field.form == dov_form::text) {
        std::memset(place, 0, size);
        c_strncpy(place, static_cast<const char *>(arg), field.size);
    } else if (field.form == dov_form::f4) {
        dov_store(static_cast<float>(dov_load<double>(arg)), place);
    } else {
        std::memcpy(place, arg, size);
    }
    return put_head(type, p);
}

int get_keyword(_dovfiletype *p, const dov_field &field, int opcode, void *arg)
{
    const void *head = dov_head(p);
    const bool text = field.form == dov_form::text;
    if (opcode == dov_kw_get_string) {
        c_strncpy(static_cast<char *>(arg), text ? dov_field_bytes(head, field) : "", field.size);
        return text ? 1 : -1;
    }
    const double real = text ? 0 : field.form == dov_form::i4 ? dov_integer_at(head, field) : dov_real_at(head, field);
    if (opcode == dov_kw_get_real)
        dov_give(real, arg);
    else
        dov_give(std::isnan(real) ? 0 : static_cast<std::int32_t>(std::clamp<double>(real, INT32_MIN, INT32_MAX)), arg);
    return text ? -1 : 1;
}

int keyword_by_index(const dov_type &type, _dovfiletype *p, char *name, void *arg)
{
    const auto n = static_cast<std::int32_t>(type.keywords.size());
    const std::int32_t indx = type.state->indx;
    if (indx >= 0 && indx < n) {
        const char *keyword = type.keywords[static_cast<std::size_t>(indx)];
        c_strncpy(name, keyword, 64);
        return dov_give(keyword_type(*dov_find_field(type.header, keyword)), arg);
    }
    std::int32_t item_type = 0;
    const int outcome = dovfile_res_get_indx(p, indx < n ? -1 : indx - n, name, &item_type);
    dov_give(item_type, arg);
    return outcome;
}

} // namespace

int dov_service(const dov_type &type, _dovfiletype *p, int opcode, void *arg)
{
    if (p == nullptr)
        return dov_no_handle;
    const _dovfile &f = p->commonstuff;
    switch (opcode) {
    case dov_u_first_time:
        return time_of(type, p, 0, arg);
    case dov_u_last_time:
        return time_of(type, p, f.nelements - 1, arg);
    case dov_u_nelem:
        return dov_give(f.nelements, arg);
    case dov_u_can_write:
        return dov_give(std::int32_t{f.rdonly == 0}, arg);
    case dov_u_next_time:
        return time_of(type, p, f.nextelem, arg);
    case dov_u_next_elem:
        return dov_give(f.nextelem, arg);
    case dov_u_time_move:
        return move_to_time(type, p, dov_load<double>(arg));
    case dov_u_elem_move:
        return dovfileseek(p, std::clamp(dov_load<std::int32_t>(arg), 0, f.nelements));
    case dov_u_get_elem:
        return dovfilereadblock(p, arg, 1);
    case dov_u_get_nelem:
        return dovfilereadblock(p, arg, type.state->nsave);
    case dov_u_put_elem:
        return dovfilewriteblock(p, arg, 1);
    case dov_u_get_head:
        std::memcpy(arg, dov_head(p), static_cast<std::size_t>(type.headsize));
        return dov_ok;
    case dov_u_put_head:
        return replace_head(type, p, arg);
    case dov_u_elem_size:
        return dov_give(std::int32_t{f.elemsize}, arg);
    case dov_u_head_size:
        return dov_give(type.headsize, arg);
    case dov_u_nitems:
        return dov_give(std::max(type.layout(dov_head(p)).nitems, 1), arg);
    case dov_u_handle:
        return dov_give(p, arg);
    case dov_u_close:
        return dovfileclose(p);
    case dov_u_set_nelem:
        type.state->nsave = dov_load<std::int32_t>(arg);
        return dov_ok;
    default:
        return dov_bad_argument;
    }
}

int dov_keyword_service(const dov_type &type, _dovfiletype *p, int opcode, char *name, void *arg)
{
    if (p == nullptr)
        return dov_no_handle;
    const auto n = static_cast<std::int32_t>(type.keywords.size());
    const bool named = opcode != dov_kw_by_index; // which writes the name
    const dov_field *field = named ? dov_find_keyword(type, name) : nullptr;
    const std::int32_t kind = field != nullptr ? keyword_type(*field) : 0;
    switch (opcode) {
    case dov_kw_put_real:
    case dov_kw_put_string:
        if (kind == (opcode == dov_kw_put_real ? 2 : 3))
            return put_keyword(type, p, *field, arg);
        break;
    case dov_kw_put_integer:
    case dov_kw_delete:
        if (kind == 1 && opcode == dov_kw_put_integer && !is_count(type, *field))
            return put_keyword(type, p, *field, arg);
        if (kind != 0)
            return -1;
        break;
    case dov_kw_get_real:
    case dov_kw_get_integer:
    case dov_kw_get_string:
        if (kind != 0)
            return get_keyword(p, *field, opcode, arg);
        break;
    case dov_kw_exists:
        if (kind != 0)
            return dov_give(std::int32_t{1}, arg);
        break;
    case dov_kw_count: {
        std::int32_t reserved = 0;
        const int outcome = dovfile_res_get_n(p, &reserved);
        dov_give(n + reserved, arg);
        return outcome;
    }
    case dov_kw_by_index:
        return keyword_by_index(type, p, name, arg);
    case dov_kw_save_index:
        type.state->indx = dov_load<std::int32_t>(arg);
        return 1;
    default:
        return -1;
    }
    return dovkwdef(p, opcode, name, arg);
}
