// Functions of spline files.
#include "wi/spargs.h"
#include "wi/spfile.h"
#include "wi/spworkers.h"

#include "fileio/fileio.h"

#include <algorithm>
#include <array>
#include <memory>

namespace {

struct free_spline {
    void operator()(_espl *e) const { espl_free(e); }
};
using spline_ptr = std::unique_ptr<_espl, free_spline>;

struct close_file {
    void operator()(_dovfiletype *p) const { u_close(p); }
};
using file_ptr = std::unique_ptr<_dovfiletype, close_file>;

// Times at which a spline is looked at: so many in each interval, and the last breakpoint.
class time_grid {
public:
    time_grid(const _espl &spline, const fileparams &parms)
        : e(spline), t0(parms.t0), t1(parms.t1), most(std::max(parms.mxelms, 1)),
          pieces(std::clamp(parms.nptsbrk, 1, most))
    {
    }

    // Calls take(time) for those in the window, no more than are wanted; returns how many they are.
    template <class Take>
    int each(Take take) const
    {
        int count = 0;
        for (int i = 0; i < e.nbrks && count < most; ++i) {
            const double start = e.brks[i].time;
            const bool last = i + 1 == e.nbrks;
            const double end = last ? start : e.brks[i + 1].time;
            if (start > t1 || end < t0)
                continue;
            for (int j = 0; j < (last ? 1 : pieces) && count < most; ++j) {
                const double time = start + (end - start) * j / pieces;
                if (time < t0 || time > t1)
                    continue;
                take(time);
                ++count;
            }
        }
        return count;
    }

private:
    const _espl &e;
    double t0, t1;
    int most;
    int pieces;
};

// The derivative that a quantity is; -1 for the time itself, -2 for none.
int order_of(const fileparams &parms)
{
    switch (parms.datatype) {
    case 0:
    case sp_data_function:
        return std::max(parms.iderv, 0);
    case sp_data_rate:
        return 1;
    case sp_data_acceleration:
        return 2;
    case sp_data_time:
        return -1;
    default:
        return -2;
    }
}

sp_value *break_points(_dovfiletype *p)
{
    std::int32_t n = 0;
    int ncoe = 0;
    std::array<char, spl_units_size> units{};
    getsplkeys(p, &ncoe, units.data(), units.data(), units.data(), nullptr);
    u_nelem(p, &n);
    u_timemove(p, -1e30);
    sp_value *coefficients = sp_mk_array(ncoe);
    sp_value *result = sp_mk_array(n);
    int code = dov_ok;
    for (std::int32_t i = 0; i < n && code == dov_ok; ++i) {
        int ncont = 0;
        int flag = 0;
        code = getspl(p, &result->ary[i], &ncont, &flag, coefficients->ary);
    }
    sp_free_value(coefficients);
    if (code == dov_ok)
        return result;
    sp_free_value(result);
    return sp_mk_error("Internal error in SPLBRKS (1).");
}

} // namespace

sp_value *sp_read_spline(const fileparams &parms)
{
    const int order = order_of(parms);
    if (order < -1)
        return sp_mk_error("Bad data type for file type.");
    const spline_ptr spline(espl_read(parms.fname));
    if (spline == nullptr)
        return sp_mk_error("Internal problem reading SPL file.");
    if (spline->t0 > parms.t1 || spline->t1 < parms.t0)
        return sp_mk_error("T0 and T1 overlap, no data found.");
    const time_grid grid(*spline, parms);
    const int n = grid.each([](double /*time*/) {});
    if (n == 0)
        return sp_mk_error("No data found between T0 and T1.");
    sp_value *result = sp_mk_array(n);
    double *out = result->ary;
    grid.each([&](double time) { *out++ = order < 0 ? time : espl(spline.get(), time, order); });
    return result;
}

// A number that is no array is not looked at: the value at 0 it is.
sp_value *spfunc_espl(const sp_call &call)
{
    if (call.args[0]->type != sp_string)
        return sp_mk_error("Bad argument type for filename.");
    const spline_ptr spline(espl_read(call.args[0]->string));
    if (spline == nullptr)
        return sp_mk_error("Unable to open spline file.");
    const sp_value &x = *call.args[1];
    if (x.type != sp_array)
        return sp_mk_scaler(espl(spline.get(), 0, 0));
    sp_value *result = sp_mk_array(x.npts);
    std::transform(x.ary, x.ary + x.npts, result->ary, [&](double time) { return espl(spline.get(), time, 0); });
    return result;
}

sp_value *spfunc_splbrks(const sp_call &call)
{
    if (call.args[0]->type != sp_string)
        return sp_mk_error("Bad argument type in SPLBRKS.");
    const file_ptr file(openspl(call.args[0]->string, "Old", 0));
    return file != nullptr ? break_points(file.get()) : sp_mk_error("Unable to open Spline file in SPLBRKS.");
}
