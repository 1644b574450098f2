#include "fileio/filetypes.h"
#include "fileio/dovfiletype.h"

#include <algorithm>
#include <iterator>

namespace {

constexpr const dov_type *types[] = {&iq_type,  &pks_type, &rea_type, &dop_type,
                                     &spl_type, &gat_type, &img_type, &vec_type};

template <typename predicate>
const dov_type *find(predicate is_wanted)
{
    const auto *found = std::find_if(std::begin(types), std::end(types), is_wanted);
    return found != std::end(types) ? *found : nullptr;
}

} // namespace

std::span<const dov_type *const> dov_types()
{
    return types;
}

const dov_type *dov_type_of(int code)
{
    return find([&](const dov_type *type) { return type->code == code; });
}

const dov_type *dov_type_named(std::string_view name)
{
    return find([&](const dov_type *type) { return type->name == name; });
}

std::span<const dov_field> dov_keyword_header()
{
    static constexpr dov_field fields[] = {
        {"machine", dov_form::raw, 0, 1},     {"version", dov_form::raw, 1, 1},    {"filetype", dov_form::raw, 2, 1},
        {"space", dov_form::raw, 3, 1},       {"reservesize", dov_form::i4, 4, 4}, {"headsize", dov_form::i4, 8, 4},
        {"elementsize", dov_form::i4, 12, 4}, {"nelements", dov_form::i4, 16, 4},
    };
    return fields;
}

_dovfiletype *dov_open_any(const char *filename, const char *mode, int *error)
{
    const int code = dovfiletype(filename);
    const dov_type *type = dov_type_of(code);
    *error = code < 0 ? dovfileerror() : dov_wrong_type;
    if (type == nullptr)
        return nullptr;
    const bool creates = mode == nullptr || (*mode != 'O' && *mode != 'R' && *mode != 'U');
    _dovfiletype *p = creates ? nullptr : dov_open(*type, filename, mode, nullptr);
    *error = creates ? dov_bad_argument : type->state->error;
    return p;
}
