#include "wi/sputil.h"

#include "dovsys/dovsys.h"
#include "wi/sppool.h"

#include <algorithm>
#include <array>
#include <climits>

namespace {

constexpr std::array kind_names = {"NULL", "ARRAY", "ENAME", "STRING", "SCALER", "ERROR"};

sp_value *make_text(sp_kind kind, const char *text)
{
    sp_value *val = sp_get_blank_value();
    val->type = kind;
    val->string = c_mkstr(text != nullptr ? text : "");
    return val;
}

sp_value *array_of(double *ary, int npts)
{
    sp_value *val = sp_get_blank_value();
    val->type = sp_array;
    val->npts = npts;
    val->ary = ary;
    return val;
}

} // namespace

sp_value *sp_get_blank_value()
{
    return static_cast<sp_value *>(jmalloc(sizeof(sp_value)));
}

sp_value *sp_mk_scaler(double number)
{
    sp_value *val = sp_get_blank_value();
    val->type = sp_scaler;
    val->scaler = number;
    return val;
}

sp_value *sp_mk_string(const char *text)
{
    return make_text(sp_string, text);
}

sp_value *sp_mk_error(const char *message)
{
    return make_text(sp_error, message);
}

sp_value *sp_mk_array(int npts)
{
    double *ary = npts > 0 ? sp_pool_take(npts) : nullptr;
    return array_of(ary != nullptr ? ary : c_mkdary(npts), std::max(npts, 0));
}

sp_value *sp_try_array(std::size_t npts)
{
    double *ary = npts > 0 && npts <= INT_MAX ? sp_pool_take(static_cast<int>(npts)) : nullptr;
    if (npts > 0 && ary == nullptr)
        return sp_mk_error("Out of memory.");
    return array_of(ary, static_cast<int>(npts));
}

sp_value *sp_cpval(const sp_value *val)
{
    if (val == nullptr)
        return nullptr;
    sp_value *copy = val->type == sp_array && val->ary != nullptr ? sp_mk_array(val->npts) : sp_get_blank_value();
    copy->type = val->type;
    copy->scaler = val->scaler;
    copy->npts = val->npts;
    c_strncpy(copy->ename, val->ename, sp_name_length + 1);
    if (copy->ary != nullptr)
        std::copy_n(val->ary, val->npts, copy->ary);
    if (val->type == sp_string || val->type == sp_error)
        copy->string = c_mkstr(val->string);
    return copy;
}

void sp_free_value(sp_value *val)
{
    if (val == nullptr)
        return;
    jfree(val->string);
    sp_pool_give(val->ary, val->npts);
    jfree(val);
}

double *sp_mkary(int npts)
{
    return c_mkdary(npts);
}

double *sp_cpary(const double *ary, int npts)
{
    return c_cpdary(ary, npts);
}

const char *sp_kind_name(int kind)
{
    return kind > 0 && kind < static_cast<int>(kind_names.size()) ? kind_names[static_cast<std::size_t>(kind)]
                                                                  : kind_names.front();
}
