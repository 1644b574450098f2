#include "wi/spargs.h"

#include "wi/spconvert.h"

#include <algorithm>
#include <climits>

namespace {

double number_of(const sp_value &value)
{
    if (value.type == sp_scaler)
        return value.scaler;
    sp_value *number = sp_convert(nullptr, &value, sp_scaler);
    const double result = number->scaler;
    sp_free_value(number);
    return result;
}

} // namespace

double sp_arg_number(const sp_call &call, std::size_t i, double otherwise)
{
    return i < call.args.size() ? number_of(*call.args[i]) : otherwise;
}

int sp_arg_count(const sp_call &call, std::size_t i, double otherwise)
{
    constexpr double most = 2147483647;
    const double number = sp_arg_number(call, i, otherwise);
    return number > 0 ? static_cast<int>(std::min(number + 0.5, most)) : 0;
}

sp_elements::sp_elements(const sp_value &value)
{
    if (value.type == sp_array) {
        all = {value.ary, static_cast<std::size_t>(value.npts)};
    } else {
        one = number_of(value);
        all = {&one, 1};
    }
}

std::size_t sp_total(const sp_call &call)
{
    std::size_t total = 0;
    for (const sp_value *arg : call.args)
        total += arg->type == sp_array ? static_cast<std::size_t>(arg->npts) : 1;
    return total;
}

sp_value *sp_mk_elements(std::size_t n)
{
    return sp_mk_array(static_cast<int>(std::min(n, std::size_t{INT_MAX})));
}

sp_value *sp_gather(const sp_call &call)
{
    sp_value *result = sp_try_array(sp_total(call));
    if (result->type == sp_error)
        return result;
    double *out = result->ary;
    for (const sp_value *arg : call.args) {
        const sp_elements elements(*arg);
        out = std::copy(elements.begin(), elements.end(), out);
    }
    return result;
}

sp_value *sp_cut_array(sp_value *array, std::size_t count)
{
    if (count >= static_cast<std::size_t>(array->npts) / 2) {
        array->npts = static_cast<std::int32_t>(count);
        return array;
    }
    sp_value *cut = sp_mk_elements(count);
    std::copy_n(array->ary, count, cut->ary);
    sp_free_value(array);
    return cut;
}

sp_value *sp_cut_result(sp_value *array, std::size_t count)
{
    if (count != 1)
        return sp_cut_array(array, count);
    sp_value *number = sp_mk_scaler(array->ary[0]);
    sp_free_value(array);
    return number;
}
