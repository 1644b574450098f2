// Arithmetic over arrays that is put off until its result is needed. It is then done in one pass, block by block, so
// that what lies between stays in the cache; arrays that nobody else holds become the result.
//
// Steps are kept one after the other: those of an operand form a run that leaves one array, computed by the last of
// them; a step takes what the runs before it have computed, the last one first.
#pragma once

#include <cstdint>

#include "wi/spstack.h"
#include "wi/sputil.h"

enum sp_operator : std::uint8_t {
    sp_no_operator = 0,
    sp_op_plus = 1,
    sp_op_minus = 2,
    sp_op_times = 3,
    sp_op_divide = 4,
};

// The operator of a code; a code that is none acts as plus.
constexpr sp_operator sp_operator_of(int code)
{
    return code == sp_op_minus || code == sp_op_times || code == sp_op_divide ? static_cast<sp_operator>(code)
                                                                              : sp_op_plus;
}

constexpr const char *sp_zero_divide = "Divide By Zero Error.";

// A divisor counts as zero when it is neither less nor greater, so not-a-number does.
constexpr bool sp_is_zero(double divisor)
{
    return !(divisor < 0 || divisor > 0);
}

constexpr double sp_apply(sp_operator op, double a, double b)
{
    return op == sp_op_minus ? a - b : op == sp_op_times ? a * b : op == sp_op_divide ? a / b : a + b;
}

struct sp_source {
    enum origin : std::uint8_t { computed, array, number };
    origin from = computed;
    union {
        const double *ary = nullptr;
        double value;
    };
    sp_value *owner = nullptr; // the array's, when the run owns it
};

// left op right, or with `sum` (plus or minus) acc sum (left op right). One of left and right is no number, acc is
// none; a number that divides is not zero.
struct sp_step {
    sp_operator op;
    sp_operator sum;
    sp_source left;
    sp_source right;
    sp_source acc;
};

constexpr std::size_t sp_longest_run = 32;

class sp_steps {
public:
    std::size_t size() const { return steps.size(); }
    sp_step &back() { return steps.back(); }
    void push(const sp_step &step) { steps.push(step); }

    // Does the run of at most sp_longest_run steps, all of npts >= 1 elements, and removes it: a new ARRAY, or an ERROR
    // when a divisor is zero or the memory is exhausted.
    sp_value *run(std::size_t first, std::size_t last, int npts);

    // Removes the run without doing it.
    void drop(std::size_t first, std::size_t last);

    void release() { steps.release(); }
    std::size_t bytes() const { return steps.bytes(); }

private:
    sp_value *take_result(std::size_t first, std::size_t last, int npts);

    sp_stack<sp_step> steps;
};
