// Functions that gather, sum up, select and clip.
#include "wi/spargs.h"
#include "wi/spworkers.h"

#include <algorithm>
#include <array>
#include <string>

namespace {

// Smaller, or larger, as the order tells; not-a-number is never.
struct smaller {
    static bool before(double a, double b) { return a < b; }
};
struct larger {
    static bool before(double a, double b) { return a > b; }
};

// The element of an array that comes before all others, the first of equal ones; the first element when that is not a
// number. Several candidates at a time do not wait for each other.
template <class Order>
double extreme_of(const sp_elements &array)
{
    constexpr std::size_t lanes = 8;
    std::array<double, lanes> best;
    best.fill(array[0]);
    std::size_t i = 0;
    for (; i + lanes <= array.size(); i += lanes)
        for (std::size_t lane = 0; lane < lanes; ++lane)
            best[lane] = Order::before(array[i + lane], best[lane]) ? array[i + lane] : best[lane];
    for (; i < array.size(); ++i)
        best[0] = Order::before(array[i], best[0]) ? array[i] : best[0];
    const double found = *std::min_element(best.begin(), best.end(), Order::before);
    return found == 0 ? *std::find(array.begin(), array.end(), 0.0) : found; // zeros have signs
}

template <class Order>
sp_value *extreme(const sp_call &call)
{
    bool any = false;
    double best = 0;
    for (const sp_value *arg : call.args) {
        const sp_elements array(*arg);
        if (array.size() == 0)
            continue;
        const double candidate = extreme_of<Order>(array);
        if (!any || Order::before(candidate, best))
            best = candidate;
        any = true;
    }
    return sp_mk_scaler(best);
}

// In the order in which they come.
double sum(const sp_call &call)
{
    double total = 0;
    for (const sp_value *arg : call.args)
        for (const double element : sp_elements(*arg))
            total += element;
    return total;
}

bool is_set(double flag)
{
    return flag < 0 || flag > 0;
}

// What of the data a flag array selects: the elements whose flag is as asked for, and those without one on request.
sp_value *select(const sp_elements &data, const sp_elements &flags, bool set, bool beyond)
{
    sp_value *result = sp_mk_elements(data.size());
    const std::size_t flagged = std::min(data.size(), flags.size());
    std::size_t count = 0;
    for (std::size_t i = 0; i < flagged; ++i) {
        result->ary[count] = data[i];
        count += is_set(flags[i]) == set ? 1U : 0U;
    }
    if (beyond)
        count =
            static_cast<std::size_t>(std::copy(data.begin() + flagged, data.end(), result->ary + count) - result->ary);
    return sp_cut_array(result, count);
}

sp_value *bad_argument(const char *which, const char *function)
{
    return sp_mk_error((std::string("Bad ") + which + " argument in " + function + ".").c_str());
}

sp_value *select_by_flags(const sp_call &call, bool set, const char *function, const char *nothing)
{
    const sp_value &data = *call.args[0];
    const sp_value &flags = *call.args[1];
    const bool has_data = data.type == sp_array || data.type == sp_scaler;
    if (!has_data && flags.type != sp_scaler)
        return bad_argument("1st", function);
    if (flags.type == sp_null)
        return bad_argument("2nd", function);
    if (data.type != sp_array && flags.type == sp_scaler) // a single flag goes with arrays only
        return sp_get_blank_value();
    sp_value *result = select(sp_elements(data), sp_elements(flags), set, set);
    if (result->npts > 0)
        return data.type == sp_array ? result : sp_cut_result(result, 1);
    sp_free_value(result);
    return sp_mk_string(nothing);
}

template <class Clip>
sp_value *clipped(const sp_call &call, Clip clip)
{
    const sp_elements data(*call.args[0]);
    const double limit = sp_arg_number(call, 1);
    sp_value *result = sp_mk_elements(data.size());
    if (data.size() == 0) {
        sp_free_value(result);
        return sp_get_blank_value();
    }
    std::transform(data.begin(), data.end(), result->ary, [=](double x) { return clip(x, limit); });
    return sp_cut_result(result, data.size());
}

} // namespace

sp_value *spfunc_min(const sp_call &call)
{
    return extreme<smaller>(call);
}

sp_value *spfunc_max(const sp_call &call)
{
    return extreme<larger>(call);
}

sp_value *spfunc_sum(const sp_call &call)
{
    return sp_mk_scaler(sum(call));
}

sp_value *spfunc_avg(const sp_call &call)
{
    const std::size_t n = sp_total(call);
    return sp_mk_scaler(n > 0 ? sum(call) / static_cast<double>(n) : 0);
}

sp_value *spfunc_npts(const sp_call &call)
{
    return sp_mk_scaler(static_cast<double>(sp_total(call)));
}

sp_value *spfunc_ramp(const sp_call &call)
{
    const double start = sp_arg_number(call, 0, 0);
    const double step = sp_arg_number(call, 1, 1);
    sp_value *result = sp_try_array(static_cast<std::size_t>(sp_arg_count(call, 2, 1)));
    for (int i = 0; i < result->npts; ++i)
        result->ary[i] = i * step + start;
    return result;
}

sp_value *spfunc_seq(const sp_call &call)
{
    if (call.args.empty()) {
        sp_value *zero = sp_mk_array(1);
        zero->ary[0] = 0;
        return zero;
    }
    return sp_gather(call);
}

sp_value *spfunc_subarray(const sp_call &call)
{
    const int index = sp_arg_count(call, 1, 1);
    const int count = sp_arg_count(call, 2, 1);
    if (index < 1)
        return sp_mk_error("Bad index argument.");
    if (count < 1)
        return sp_mk_error("Bad count argument.");
    const sp_elements array(*call.args[0]);
    const auto first = static_cast<std::size_t>(index) - 1;
    if (first >= array.size())
        return sp_mk_error("Index out of bounds.");
    if (count == 1)
        return sp_mk_scaler(array[first]);
    sp_value *result = sp_mk_elements(std::min(array.size() - first, static_cast<std::size_t>(count)));
    std::copy_n(array.begin() + first, result->npts, result->ary);
    return result;
}

sp_value *spfunc_validarray(const sp_call &call)
{
    return select_by_flags(call, true, "VALIDARRAY", "No valid points.");
}

sp_value *spfunc_notvalidarray(const sp_call &call)
{
    return select_by_flags(call, false, "NOTVALIDARRAY", "No nonvalid points.");
}

sp_value *spfunc_cliptop(const sp_call &call)
{
    return clipped(call, [](double x, double limit) { return x > limit ? limit : x; });
}

sp_value *spfunc_clipbot(const sp_call &call)
{
    return clipped(call, [](double x, double limit) { return x >= limit ? x : limit; });
}
