#include "fileio/filetype.h"
#include "fileio/dovfiletype.h"
#include "fileio/fieldbytes.h"
#include "fileio/filetypes.h"
#include "fileio/mcvt.h"
#include "fileio/ufp.h"

#include "dovsys/dovsys.h"

#include <algorithm>
#include <climits>
#include <cstring>

namespace {

constexpr const char *positive_fields[] = {"prf", "xlam"};

bool all_positive(const dov_type &type, const void *head)
{
    return std::all_of(std::begin(positive_fields), std::end(positive_fields), [&](const char *name) {
        const dov_field *field = dov_find_field(type.header, name);
        return field == nullptr || dov_real_at(head, *field) > 0;
    });
}

// ---- conversion --------------------------------------------------------------------------------------------------

void convert_run(dov_form form, void *values, std::size_t n)
{
    switch (form) {
    case dov_form::i2:
        return mcvt_run_i2(values, n);
    case dov_form::i4:
        return mcvt_run_i4(values, n);
    case dov_form::f4:
        return mcvt_run_f4(values, n);
    case dov_form::f8:
        return mcvt_run_f8(values, n);
    case dov_form::raw:
    case dov_form::text:
        return;
    }
}

void copy_run(dov_form form, void *copies, const void *values, std::size_t n)
{
    switch (form) {
    case dov_form::i2:
        return mcvt_copy_i2(copies, values, n);
    case dov_form::i4:
        return mcvt_copy_i4(copies, values, n);
    case dov_form::f4:
        return mcvt_copy_f4(copies, values, n);
    default:
        return mcvt_copy_f8(copies, values, n);
    }
}

// Whether records of this size are nothing but numbers of one form.
bool is_uniform(std::span<const dov_field> fields, std::int64_t size)
{
    std::int64_t next = 0;
    for (const dov_field &field : fields) {
        if (field.form != fields.front().form || field.offset != next || field.form == dov_form::raw ||
            field.form == dov_form::text)
            return false;
        next += field.size;
    }
    return next == size && next > 0;
}

void convert_group(const dov_layout &layout, char *items)
{
    if (is_uniform(layout.group, layout.group_size)) {
        const std::size_t values = layout.group.size() * static_cast<std::size_t>(layout.nitems);
        convert_run(layout.group.front().form, items, values);
        return;
    }
    for (std::int32_t i = 0; i < layout.nitems; ++i)
        dov_convert_fields(layout.group, items + static_cast<std::ptrdiff_t>(i) * layout.group_size);
}

// The fields are independent of each other, so the direction does not matter; the selected conversion knows it.

void convert_head(_dovfiletype *p, void *head, int /*direction*/)
{
    dov_convert_fields(dov_type_of(p->commonstuff.kw.filetype)->header, head);
}

dov_layout layout_of(_dovfiletype *p)
{
    return dov_type_of(p->commonstuff.kw.filetype)->layout(dov_head(p));
}

void convert_element(_dovfiletype *p, void *element, int /*direction*/)
{
    dov_convert_elements(layout_of(p), element, 1);
}

void convert_block(_dovfiletype *p, void *copies, const void *elements, int n, int /*direction*/)
{
    dov_convert_copies(layout_of(p), copies, elements, n);
}

// ---- type header -------------------------------------------------------------------------------------------------

void register_services(const dov_type &type, _dovfiletype *p)
{
    u_reg(p, type.service);
    u_kwreg(p, type.keyword_service);
}

int install(const dov_type &type, _dovfiletype *p)
{
    const int code = dovfileconvert(p, convert_head, convert_element, type.headsize, p->commonstuff.kw.elementsize);
    p->commonstuff.blockcvt = convert_block;
    register_services(type, p);
    return code;
}

// An open file whose type header is read and found to be one of this type.
int read_head(const dov_type &type, _dovfiletype *p)
{
    const _keywords &kw = p->commonstuff.kw;
    if (kw.filetype != type.code)
        return dov_wrong_type;
    if (kw.headsize != type.headsize)
        return dov_head_size;
    int code = install(type, p);
    if (code == dov_ok)
        code = dovfilegethead(p, dov_head(p));
    if (code != dov_ok)
        return code;
    if (type.is_versioned && dov_integer_at(dov_head(p), *dov_find_field(type.header, "version")) != 1)
        return dov_version;
    if (type.layout(dov_head(p)).size != kw.elementsize)
        return dov_wrong_type;
    return all_positive(type, dov_head(p)) ? dov_ok : dov_not_positive;
}

int write_first_head(const dov_type &type, _dovfiletype *p, const void *head)
{
    const int code = install(type, p);
    if (code != dov_ok)
        return code;
    std::memcpy(dov_head(p), head, static_cast<std::size_t>(type.headsize));
    dov_mend_head(type, dov_head(p));
    return dovfileputhead(p, dov_head(p));
}

_dovfiletype *kept_if_good(const dov_type &type, _dovfiletype *p)
{
    if (p == nullptr || type.state->error == dov_ok)
        return p;
    dovfileclose(p);
    return nullptr;
}

_dovfiletype *open_existing(const dov_type &type, const char *filename, bool update)
{
    int code = 0;
    int headsize = 0;
    int elemsize = 0;
    _dovfiletype *p = dovfileopen_x(filename, &code, &headsize, &elemsize, update ? 1 : 0);
    type.state->error = p != nullptr ? read_head(type, p) : dovfileerror();
    return p;
}

} // namespace

void *dov_head(_dovfiletype *p)
{
    return &p->commonstuff + 1;
}

const dov_field *dov_find_field(std::span<const dov_field> fields, std::string_view name)
{
    const auto found =
        std::find_if(fields.begin(), fields.end(), [&](const dov_field &field) { return field.name == name; });
    return found != fields.end() ? &*found : nullptr;
}

const dov_field *dov_find_keyword(const dov_type &type, const char *name)
{
    for (const char *keyword : type.keywords) {
        if (c_iseqx(keyword, name) != 0)
            return dov_find_field(type.header, keyword);
    }
    return nullptr;
}

std::int32_t dov_integer_at(const void *record, const dov_field &field)
{
    return dov_load<std::int32_t>(dov_field_bytes(record, field));
}

double dov_real_at(const void *record, const dov_field &field)
{
    const char *bytes = dov_field_bytes(record, field);
    return field.form == dov_form::f4 ? static_cast<double>(dov_load<float>(bytes)) : dov_load<double>(bytes);
}

_dovfiletype *dov_open(const dov_type &type, const char *filename, const char *mode, const void *head)
{
    _dovfiletype *p = nullptr;
    switch (mode != nullptr ? toupperx(*mode) : '\0') {
    case 'O':
    case 'R':
        p = open_existing(type, filename, false);
        break;
    case 'U':
        p = open_existing(type, filename, true);
        break;
    case 'N':
    case 'C':
        return dov_create(type, filename, head, mcvt_pc, ressize);
    default:
        type.state->error = dov_bad_argument;
    }
    return kept_if_good(type, p);
}

_dovfiletype *dov_create(const dov_type &type, const char *filename, const void *head, int machine, int reservesize)
{
    const std::int64_t size = type.layout(head).size;
    if (size < 1 || size > INT_MAX) {
        type.state->error = dov_bad_argument;
        return nullptr;
    }
    _dovfiletype *p = dovfilecreate_x(filename, type.code, type.headsize, static_cast<int>(size), machine, reservesize);
    type.state->error = p != nullptr ? write_first_head(type, p, head) : dovfileerror();
    return kept_if_good(type, p);
}

void dov_init_head(const dov_type &type, void *head)
{
    std::memset(head, 0, static_cast<std::size_t>(type.headsize));
    for (const dov_field &field : type.header) {
        if (field.form == dov_form::text)
            extendstr(dov_field_bytes(head, field), std::string_view(field.name) == "text" ? field.size - 1 : 1);
    }
    if (const dov_field *scale = dov_find_field(type.header, "scale"))
        dov_store(1.0, dov_field_bytes(head, *scale));
    dov_mend_head(type, head);
}

void dov_mend_head(const dov_type &type, void *head)
{
    constexpr double one = 1;
    for (const char *name : positive_fields) {
        const dov_field *field = dov_find_field(type.header, name);
        if (field != nullptr && !(dov_real_at(head, *field) > 0))
            dov_store(one, dov_field_bytes(head, *field));
    }
    if (const dov_field *version = dov_find_field(type.header, "version"))
        dov_store(std::int32_t{1}, dov_field_bytes(head, *version));
}

void dov_convert_fields(std::span<const dov_field> fields, void *record)
{
    for (const dov_field &field : fields)
        convert_run(field.form, dov_field_bytes(record, field), 1);
}

void dov_convert_elements(const dov_layout &layout, void *elements, int n)
{
    auto *bytes = static_cast<char *>(elements);
    for (int i = 0; i < n; ++i, bytes += layout.size) {
        dov_convert_fields(layout.fields, bytes);
        convert_group(layout, bytes + layout.group_at);
    }
}

void dov_convert_copies(const dov_layout &layout, void *copies, const void *elements, int n)
{
    const auto count = static_cast<std::size_t>(n);
    const bool only_group = layout.fields.empty() && std::int64_t{layout.nitems} * layout.group_size == layout.size;
    if (is_uniform(layout.fields, layout.size)) {
        copy_run(layout.fields.front().form, copies, elements, count * layout.fields.size());
    } else if (only_group && is_uniform(layout.group, layout.group_size)) {
        const std::size_t values = layout.group.size() * static_cast<std::size_t>(layout.nitems);
        copy_run(layout.group.front().form, copies, elements, count * values);
    } else {
        std::memcpy(copies, elements, count * static_cast<std::size_t>(layout.size));
        dov_convert_elements(layout, copies, n);
    }
}
