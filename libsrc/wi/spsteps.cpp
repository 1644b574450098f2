#include "wi/spsteps.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

// The loop's iterations are independent of each other although its arrays may be the same one. Other compilers compute
// the same, more slowly.
#if defined(__GNUC__) && !defined(__clang__)
#define SP_INDEPENDENT _Pragma("GCC ivdep")
#else
#define SP_INDEPENDENT
#endif

// Loops are compiled a second time for processors with wider registers, with the same results to the bit. Not for
// Windows, where this compiler does not align the stack as those need it.
#if defined(__GNUC__) && defined(__x86_64__) && !defined(_WIN32)
#define SP_WIDE [[gnu::target("avx2")]]
#define SP_HAS_WIDE (__builtin_cpu_supports("avx2") != 0)
#else
#define SP_WIDE
#define SP_HAS_WIDE false
#endif

namespace {

const bool wide = SP_HAS_WIDE;

constexpr std::size_t block = 512; // elements; a few blocks fit the first cache

// As many results wait at once at most: each was computed by a step of its own and is used by another.
constexpr std::size_t most_waiting = (sp_longest_run + 1) / 2;
alignas(64) std::array<std::array<double, block>, most_waiting> waiting;

struct each {
    const double *ary;
    double operator[](std::size_t i) const { return ary[i]; }
};

struct same {
    double value;
    double operator[](std::size_t /*i*/) const { return value; }
};

// One step over n elements; false when one of the divisors is zero. `out` may be one of the arrays that are read.
template <sp_operator sum, sp_operator op, class Left, class Right>
[[gnu::always_inline]] inline bool loop(double *out, const double *acc, Left left, Right right, std::size_t n)
{
    std::int64_t zeros = 0; // in this form, and as wide as the elements, so that the compiler vectorises the loop
    SP_INDEPENDENT
    for (std::size_t i = 0; i < n; ++i) {
        const double divisor = right[i];
        if constexpr (op == sp_op_divide && std::is_same_v<Right, each>)
            zeros = std::fabs(divisor) > 0 ? zeros : 1;
        const double value = sp_apply(op, left[i], divisor);
        if constexpr (sum == sp_no_operator)
            out[i] = value;
        else
            out[i] = sp_apply(sum, acc[i], value);
    }
    return zeros == 0;
}

template <sp_operator sum, sp_operator op, class Left, class Right>
bool compute_narrow(double *out, const double *acc, Left left, Right right, std::size_t n)
{
    return loop<sum, op>(out, acc, left, right, n);
}

template <sp_operator sum, sp_operator op, class Left, class Right>
SP_WIDE bool compute_wide(double *out, const double *acc, Left left, Right right, std::size_t n)
{
    return loop<sum, op>(out, acc, left, right, n);
}

template <sp_operator sum, sp_operator op, class Left, class Right>
bool compute(double *out, const double *acc, Left left, Right right, std::size_t n)
{
    return wide ? compute_wide<sum, op>(out, acc, left, right, n) : compute_narrow<sum, op>(out, acc, left, right, n);
}

template <sp_operator sum, sp_operator op>
bool compute_op(double *out, const double *acc, const sp_source &left, const sp_source &right, std::size_t n)
{
    if (left.from == sp_source::number)
        return compute<sum, op>(out, acc, same{left.value}, each{right.ary}, n);
    if (right.from == sp_source::number)
        return compute<sum, op>(out, acc, each{left.ary}, same{right.value}, n);
    return compute<sum, op>(out, acc, each{left.ary}, each{right.ary}, n);
}

using worker = bool (*)(double *, const double *, const sp_source &, const sp_source &, std::size_t);

template <sp_operator sum>
constexpr std::array<worker, 5> workers_of = {nullptr, compute_op<sum, sp_op_plus>, compute_op<sum, sp_op_minus>,
                                              compute_op<sum, sp_op_times>, compute_op<sum, sp_op_divide>};

// By the sum, then by the operator.
constexpr std::array workers = {workers_of<sp_no_operator>, workers_of<sp_op_plus>, workers_of<sp_op_minus>};

// The source for the block that starts at an element; what was computed is taken off.
sp_source at(const sp_source &source, std::size_t start, std::size_t &waits)
{
    sp_source here = source;
    if (source.from == sp_source::array)
        here.ary += start;
    else if (source.from == sp_source::computed)
        here.ary = waiting[--waits].data();
    return here;
}

// All steps for one block; the last one's result goes to `out`.
bool compute_block(const sp_step *begin, const sp_step *end, std::size_t start, std::size_t n, double *out)
{
    std::size_t waits = 0;
    for (const sp_step *step = begin; step != end; ++step) {
        const sp_source right = at(step->right, start, waits);
        const sp_source left = at(step->left, start, waits);
        const double *acc = step->sum != sp_no_operator ? at(step->acc, start, waits).ary : nullptr;
        double *result = step + 1 == end ? out : waiting[waits].data();
        if (!workers[step->sum][step->op](result, acc, left, right, n))
            return false;
        ++waits;
    }
    return true;
}

template <class Action>
void for_each_owner(sp_step *begin, sp_step *end, Action action)
{
    for (sp_step *step = begin; step != end; ++step)
        for (sp_source *source : {&step->left, &step->right, &step->acc})
            if (source->owner != nullptr)
                action(source->owner);
}

} // namespace

sp_value *sp_steps::take_result(std::size_t first, std::size_t last, int npts)
{
    sp_value *result = nullptr;
    for_each_owner(&steps[first], steps.data() + last, [&](sp_value *&owner) {
        if (result == nullptr)
            result = std::exchange(owner, nullptr);
    });
    if (result == nullptr)
        return sp_try_array(static_cast<std::size_t>(npts));
    result->npts = npts;
    return result;
}

sp_value *sp_steps::run(std::size_t first, std::size_t last, int npts)
{
    const auto size = static_cast<std::size_t>(npts);
    sp_value *result = take_result(first, last, npts);
    bool good = result->type == sp_array;
    for (std::size_t start = 0; good && start < size; start += block)
        good = compute_block(&steps[first], steps.data() + last, start, std::min(block, size - start),
                             result->ary + start);
    drop(first, last);
    if (good || result->type == sp_error)
        return result;
    sp_free_value(result);
    return sp_mk_error(sp_zero_divide);
}

void sp_steps::drop(std::size_t first, std::size_t last)
{
    for_each_owner(steps.data() + first, steps.data() + last, sp_free_value);
    steps.erase(first, last);
}
