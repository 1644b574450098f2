// Mathematics. The domains are checked before the functions are applied, block by block, so that the compiler can
// vectorise what it has vector instructions for.
#include "wi/spargs.h"
#include "wi/spcmath.h"
#include "wi/spworkers.h"

#include "dovsys/dovsys.h"

#include <algorithm>
#include <array>
#include <limits>

namespace {

double sine(double x)
{
    return std::sin(x);
}
double cosine(double x)
{
    return std::cos(x);
}
double tangent(double x)
{
    return std::tan(x);
}
double arc_sine(double x)
{
    return std::asin(x);
}
double arc_cosine(double x)
{
    return std::acos(x);
}
double arc_tangent(double x)
{
    return std::atan(x);
}
double nearest(double x)
{
    return bestint(x);
}
double common_logarithm(double x)
{
    return std::log10(x);
}
double natural_logarithm(double x)
{
    return std::log(x);
}
double power_of_ten(double x)
{
    return std::pow(10.0, x);
}
double exponential(double x)
{
    return std::exp(x);
}
double arc_tangent_of_two(double y, double x)
{
    return std::atan2(y, x);
}
double power(double a, double b)
{
    return std::pow(a, b);
}

template <double (*function)(double)>
void apply(const double *in, double *out, std::size_t n)
{
    for (std::size_t i = 0; i < n; ++i)
        out[i] = function(in[i]);
}

SP_WIDE void apply_square_root(const double *in, double *out, std::size_t n)
{
    for (std::size_t i = 0; i < n; ++i)
        out[i] = std::sqrt(in[i]);
}

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double above_zero = std::numeric_limits<double>::denorm_min();

// Not-a-number is in every domain, and its own result.
struct function_of_one {
    void (*apply)(const double *in, double *out, std::size_t n);
    double least = -infinity; // of the domain
    double most = infinity;
    const char *message = nullptr; // outside of it
};

// By code, from 1.
constexpr std::array functions_of_one = {
    function_of_one{apply<sine>},
    function_of_one{apply<cosine>},
    function_of_one{apply<tangent>},
    function_of_one{apply<arc_sine>, -1, 1, "ASIN of number out of bounds."},
    function_of_one{apply<arc_cosine>, -1, 1, "ACOS of number out of bounds."},
    function_of_one{apply<arc_tangent>},
    function_of_one{apply<nearest>},
    function_of_one{apply<common_logarithm>, above_zero, infinity, "LOG10 of zero or negitive number."},
    function_of_one{apply<natural_logarithm>, above_zero, infinity, "LOGN of zero or negitive number."},
    function_of_one{apply<power_of_ten>},
    function_of_one{apply<exponential>},
    function_of_one{apply_square_root, 0, infinity, "SQRT of negitive number."},
};
constexpr int first_of_two = 13;
static_assert(functions_of_one.size() + 1 == first_of_two);

SP_WIDE bool is_inside(const function_of_one &function, const double *in, std::size_t n)
{
    const double least = function.least;
    const double most = function.most;
    std::int64_t outside = 0; // in this form, and as wide as the elements, so that the compiler vectorises the loop
    for (std::size_t i = 0; i < n; ++i) {
        outside = in[i] < least ? 1 : outside;
        outside = in[i] > most ? 1 : outside;
    }
    return outside == 0;
}

bool do_one(const function_of_one &function, const double *in, double *out, std::size_t n)
{
    constexpr std::size_t block = 1024; // stays in the first cache
    for (std::size_t i = 0; i < n; i += block) {
        const std::size_t count = std::min(block, n - i);
        if (function.message != nullptr && !is_inside(function, in + i, count))
            return false;
        function.apply(in + i, out + i, count);
    }
    return true;
}

// One side of a function of two numbers: an array, or a number for all elements.
struct side {
    const double *ary;
    double number;
    double operator[](std::size_t i) const { return ary != nullptr ? ary[i] : number; }
};

bool do_two(int code, const side &a, const side &b, double *out, std::size_t n)
{
    if (code != first_of_two) {
        for (std::size_t i = 0; i < n; ++i)
            out[i] = power(a[i], b[i]);
        return true;
    }
    for (std::size_t i = 0; i < n; ++i) {
        if (a[i] == 0 && b[i] == 0)
            return false;
        out[i] = arc_tangent_of_two(a[i], b[i]);
    }
    return true;
}

std::uint32_t random_state = 1;

double next_random()
{
    random_state = random_state * 214013 + 2531011;
    return (random_state >> 16 & 0x7FFF) / 2147483647.0;
}

} // namespace

sp_value *spfunc_x(const sp_call &call)
{
    if (call.code < 1 || call.code >= first_of_two)
        return sp_mk_error("Unknown Function -- (Programmer Error)");
    const function_of_one &function = functions_of_one[static_cast<std::size_t>(call.code - 1)];
    const bool is_array = call.args[0]->type == sp_array;
    const double number = is_array ? 0 : sp_arg_number(call, 0);
    sp_value *result = is_array ? sp_mk_array(call.args[0]->npts) : sp_mk_scaler(0);
    const bool inside = is_array
                            ? do_one(function, call.args[0]->ary, result->ary, static_cast<std::size_t>(result->npts))
                            : do_one(function, &number, &result->scaler, 1);
    if (inside)
        return result;
    sp_free_value(result);
    return sp_mk_error(function.message);
}

sp_value *spfunc_xx(const sp_call &call)
{
    std::array<side, 2> sides{};
    int npts = -1;
    for (std::size_t i = 0; i < sides.size(); ++i) {
        const sp_value &arg = *call.args[i];
        if (arg.type == sp_array)
            npts = npts < 0 ? arg.npts : std::min(npts, arg.npts);
        sides[i] = arg.type == sp_array ? side{arg.ary, 0} : side{nullptr, sp_arg_number(call, i)};
    }
    sp_value *result = npts < 0 ? sp_mk_scaler(0) : sp_mk_array(npts);
    const bool done = npts < 0 ? do_two(call.code, sides[0], sides[1], &result->scaler, 1)
                               : do_two(call.code, sides[0], sides[1], result->ary, static_cast<std::size_t>(npts));
    if (done)
        return result;
    sp_free_value(result);
    return sp_mk_error("ATAN2 both args zero.");
}

sp_value *spfunc_rand(const sp_call &call)
{
    const int n = sp_arg_count(call, 0);
    if (n <= 1)
        return sp_mk_scaler(next_random());
    sp_value *result = sp_try_array(static_cast<std::size_t>(n));
    std::generate_n(result->ary, result->npts, next_random);
    return result;
}

void sp_rand_seed(std::uint32_t seed)
{
    random_state = seed;
}
